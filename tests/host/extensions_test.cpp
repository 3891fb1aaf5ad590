// The life cycle of a module's extensions, with a module whose behaviour each test sets.
#include "host/services/extensions.h"

#include <gmock/gmock.h>

#include <stdexcept>
#include <thread>

#include "host/output/failures.h"
#include "recorded_output.h"
#include "support/scratch_folder.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace QxHost {
namespace {

using namespace Velmora::SDK;

std::vector<std::string> calls;
u32 extensionCount = 3;
std::function<s32(IHostApp&, s32 number)> onCommand;
std::function<s32(IHostApp&)> onRegister;
std::function<s32(IHostApp&, IHostCommandCall&)> onScript;

class FakePlugin final : public IPluginInterface {
 public:
  explicit FakePlugin(s32 index) : index_(std::to_string(index)) {}

  s32 OnRegister(IHostApp* host) override {
    calls.push_back("register " + index_);
    return onRegister ? onRegister(*host) : 1;
  }
  u32 GetExtensionKind() override { return 8192; }
  s32 OnStart(IHostApp* host) override {
    calls.push_back("start " + index_);
    host_ = host;
    return 1;
  }
  const char* GetExtensionId() override { return ""; }
  bool OnHostEvent(std::intptr_t source, s32 code) override {
    calls.push_back("event " + index_ + " " + std::to_string(source) + " " + std::to_string(code));
    if (code < 0) throw std::runtime_error("bad event");
    return true;
  }
  s32 OnCommand(s32 number, std::intptr_t a, std::intptr_t b) override {
    calls.push_back("command " + index_ + " " + std::to_string(number) + " " + std::to_string(a) + " " +
                    std::to_string(b));
    return number != kCommandShutdown && onCommand ? onCommand(*host_, number) : 0;
  }
  s32 Reserved1() override { return 0; }
  s32 OnCustomCommand(IHostCommandCall* call) override {
    calls.push_back("script " + index_ + " " + std::to_string(call->GetCommandId()));
    return onScript ? onScript(*host_, *call) : 0;
  }
  s32 OnHelperMessage(s32, IHostHelperMessage*) override { return 0; }
  s32 Reserved2() override { return 0; }
  s32 Reserved3() override { return 0; }
  s32 OnShutdown(std::intptr_t) override { return 0; }
  s32 Reserved4() override { return 0; }
  s32 Reserved5() override { return 0; }
  s32 Reserved6() override { return 0; }

 private:
  std::string index_;
  IHostApp* host_ = nullptr;
};

class FakeProperties final : public IFileProperties {
 public:
  const char* GetProviderId() override { return ""; }
  s32 RegisterProperties(IHostApp*) override {
    calls.push_back("properties");
    return 0;
  }
  bool Detach() override {
    calls.push_back("detach");
    return false;
  }
  bool Attach(u64 value) override {
    calls.push_back("attach " + std::to_string(value));
    return false;
  }
  bool ClearCache() override { return false; }
  bool Reserved1() override { return false; }
  bool GetPropertyValue(IHostFileItem*, WCHAR*, u16, u16) override { return false; }
  bool Reserved2() override { return false; }
  bool Reserved3() override { return false; }
  bool Reserved4() override { return false; }
  bool Reserved5() override { return false; }
  bool Reserved6() override { return false; }
  bool Reserved7() override { return false; }
};

FakePlugin fakePlugins[] = {FakePlugin(0), FakePlugin(1), FakePlugin(2)};
FakeProperties fakeProperties;

void* FakeCreate(s32 index) {
  calls.push_back("create " + std::to_string(index));
  if (index == 1) return static_cast<IFileProperties*>(&fakeProperties);
  return static_cast<IPluginInterface*>(&fakePlugins[index]);
}

bool FakeDelete(void*, s32 index) {
  calls.push_back("delete " + std::to_string(index));
  return true;
}

bool FakeInfo(u32 index, ExtensionInfo* info) {
  if (index >= extensionCount) return false;
  // A module may fill the fields completely, without a terminator.
  std::fill(std::begin(info->name), std::end(info->name), W('n'));
  std::fill(std::begin(info->version), std::end(info->version), 'v');
  std::fill(std::begin(info->id), std::end(info->id), static_cast<char>('a' + index % 26));
  info->moduleName[0] = W('M');
  info->hostBuild = 1;
  return true;
}

s32 RunScript(Extensions& extensions, const std::string& name, const std::vector<std::string>& arguments) {
  ScriptCall call(extensions.ScriptCommand(name), arguments);
  return extensions.RunScriptCommand(call);
}

class ExtensionsTest : public testing::Test {
 protected:
  void SetUp() override {
    calls.clear();
    extensionCount = 3;
    onCommand = nullptr;
    onRegister = nullptr;
    onScript = nullptr;
  }

  static SystemAnswers Answers(const ScratchFolder& scratch) {
    SystemAnswers answers;
    answers.configFolder = scratch.Path(W("config"));
    return answers;
  }

  ScratchFolder scratch_;
  RecordedOutput recorded_;
  std::unique_ptr<Reporter> reporter_ = MakeJsonReporter(recorded_.output);
  Questions questions_{*reporter_, recorded_.output, {}, {}, nullptr};
  Shared shared_{recorded_.output, *reporter_, LanguageTable(), Answers(scratch_), questions_, false};
  const ModuleExports exports_{FakeCreate, FakeDelete, FakeInfo};
};

TEST_F(ExtensionsTest, LiveFromCreateToDeleteInTheOrderOfTheirIndices) {
  onCommand = [](IHostApp&, s32) { return 1; };
  Extensions extensions(shared_, exports_);
  EXPECT_TRUE(extensions.Start());
  EXPECT_EQ(extensions.RunCommand(30000), 1);
  extensions.Stop();
  EXPECT_THAT(calls,
              ElementsAre("create 0", "create 1", "create 2", "register 0", "start 0", "properties",
                          "attach 1", "register 2", "start 2", "command 0 30000 0 0", "command 0 20002 0 0",
                          "delete 0", "detach", "delete 1", "command 2 20002 0 0", "delete 2"));
}

TEST_F(ExtensionsTest, AreDeletedOnceEvenIfNobodyStopsThem) {
  {
    Extensions extensions(shared_, exports_);
    extensions.Start();
    calls.clear();
  }
  EXPECT_THAT(calls, ElementsAre("command 0 20002 0 0", "delete 0", "detach", "delete 1",
                                 "command 2 20002 0 0", "delete 2"));
}

TEST_F(ExtensionsTest, RecordsOfFullFieldsAreReadToTheirEnd) {
  extensionCount = 1;
  Extensions extensions(shared_, exports_);
  extensions.ReportRecords();
  EXPECT_THAT(recorded_.Out(), HasSubstr("\"name\":\"" + std::string(100, 'n') + "\""));
  EXPECT_THAT(recorded_.Out(), HasSubstr("\"version\":\"vvvvvvvvvv\""));
  EXPECT_THAT(recorded_.Out(), HasSubstr("\"id\":\"" + std::string(34, 'a') + "\""));
}

TEST_F(ExtensionsTest, RecordsWithoutAnEndAreNotFollowedForEver) {
  extensionCount = 0xFFFFFFFF;
  Extensions extensions(shared_, exports_);
  extensions.ReportRecords();
  EXPECT_LT(recorded_.Out().size(), 100000u);
}

TEST_F(ExtensionsTest, AModuleWithoutExtensionsIsNone) {
  extensionCount = 0;
  EXPECT_THROW(Extensions(shared_, exports_), ModuleFailure);
}

TEST_F(ExtensionsTest, ACommandGoesToWhoDeclaredItElseByItsNumber) {
  onRegister = [registered = 0](IHostApp& host) mutable {
    // The second extension to register, Multi Rename, declares a number outside its range.
    if (registered++ == 1) host.GetCommandFactory()->CreateCommand(31, 0, 0, 0, 0, 0);
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  calls.clear();
  for (const s32 number : {31, 30999, 31000, 32999, 33000, -1}) extensions.RunCommand(number);
  EXPECT_THAT(calls, ElementsAre("command 2 31 0 0", "command 0 30999 0 0", "command 2 31000 0 0",
                                 "command 2 32999 0 0", "command 0 33000 0 0", "command 0 -1 0 0"));
}

TEST_F(ExtensionsTest, APostedCommandRunsAfterTheCommandHasReturned) {
  onCommand = [](IHostApp& host, s32 number) {
    if (number == 31000) {
      host.PostCommand(32000, 5, 6);
      calls.push_back("posted");
    }
    return number == 31000 ? 1 : 0;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  calls.clear();
  EXPECT_EQ(extensions.RunCommand(31000), 1);
  EXPECT_THAT(calls, ElementsAre("command 2 31000 0 0", "posted", "command 2 32000 5 6"));
}

TEST_F(ExtensionsTest, WhatTheModuleThrowsIsAFailureOfTheModule) {
  Extensions extensions(shared_, exports_);
  extensions.Start();
  onCommand = [](IHostApp&, s32) -> s32 { throw std::runtime_error("stoi argument out of range"); };
  try {
    extensions.RunCommand(30000);
    FAIL() << "nothing was thrown";
  } catch (const ModuleFailure& failure) {
    EXPECT_THAT(failure.what(), HasSubstr("OnCommand: stoi argument out of range"));
  }
  onCommand = [](IHostApp&, s32) -> s32 { throw 5; };
  EXPECT_THROW(extensions.RunCommand(30000), ModuleFailure);
}

// Stands in for a window: a thread that does what a test sets, while the host's main thread serves it.
class OtherThread {
 public:
  void Run(std::function<void()> work) { thread_ = std::thread(std::move(work)); }
  ~OtherThread() {
    if (thread_.joinable()) thread_.join();
  }

 private:
  std::thread thread_;
};

TEST_F(ExtensionsTest, AWindowIsServedWhatItPostsUntilItsExtensionIsClosed) {
  OtherThread window;
  onCommand = [&](IHostApp& host, s32 number) {
    if (number == 31000) {
      window.Run([&host] {
        for (int post = 0; post < 100; ++post) host.PostCommand(32000, post, 7);
        host.PostCommand(32001, 0, 0);
      });
    }
    if (number == 32001) host.ExtensionClosed();
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  calls.clear();
  EXPECT_EQ(extensions.RunWindow(31000), 1);
  ASSERT_EQ(calls.size(), 102u);
  EXPECT_EQ(calls.front(), "command 2 31000 0 0");
  for (std::size_t post = 0; post < 100; ++post) {
    EXPECT_EQ(calls[post + 1], "command 2 32000 " + std::to_string(post) + " 7");
  }
  EXPECT_EQ(calls.back(), "command 2 32001 0 0");
}

TEST_F(ExtensionsTest, APostedCommandRunsOnTheThreadThatServesTheWindow) {
  OtherThread window;
  std::thread::id served;
  onCommand = [&](IHostApp& host, s32 number) {
    if (number == 31000) window.Run([&host] { host.PostCommand(32000, 0, 0); });
    if (number == 32000) {
      served = std::this_thread::get_id();
      host.ExtensionClosed();
    }
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.RunWindow(31000);
  EXPECT_EQ(served, std::this_thread::get_id());
}

// The window closes while the host is already shutting it down.
TEST_F(ExtensionsTest, AShutdownThatWasPostedForAnObjectNeverReachesTheNext) {
  IHostApp* hostOfWindow = nullptr;
  onCommand = [&](IHostApp& host, s32) {
    hostOfWindow = &host;
    host.ExtensionClosed();
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.RunWindow(31000);
  hostOfWindow->PostCommand(20002, 0, 0);
  calls.clear();
  extensions.Renew(31000);
  extensions.RunWindow(31000);
  EXPECT_THAT(calls, ElementsAre("delete 2", "create 2", "register 2", "start 2", "command 2 31000 0 0"));
}

TEST_F(ExtensionsTest, AWindowThatClosesWhileItsCommandRunsIsNotWaitedFor) {
  onCommand = [](IHostApp& host, s32) {
    host.ExtensionClosed();
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  EXPECT_EQ(extensions.RunWindow(31000), 1);
  EXPECT_EQ(extensions.RunWindow(31000), 1);
}

TEST_F(ExtensionsTest, AWindowThatIsNotOpenedIsNotWaitedFor) {
  onCommand = [](IHostApp&, s32) { return 0; };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  EXPECT_EQ(extensions.RunWindow(31000), 0);
}

TEST_F(ExtensionsTest, AnExtensionThatClosedBeforeItsWindowOpensIsStillWaitedFor) {
  OtherThread window;
  bool isServed = false;
  onCommand = [&](IHostApp& host, s32 number) {
    if (number == 31001) host.ExtensionClosed();
    if (number == 31000) window.Run([&host] { host.PostCommand(32000, 0, 0); });
    if (number == 32000) {
      isServed = true;
      host.ExtensionClosed();
    }
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.RunCommand(31001);
  extensions.RunWindow(31000);
  EXPECT_TRUE(isServed);
}

TEST_F(ExtensionsTest, AClosedExtensionIsDeletedAndMadeAnewWithoutAnotherShutDown) {
  Extensions extensions(shared_, exports_);
  extensions.Start();
  calls.clear();
  extensions.Renew(31000);
  extensions.RunCommand(31000);
  extensions.Stop();
  EXPECT_THAT(calls, ElementsAre("delete 2", "create 2", "register 2", "start 2", "command 2 31000 0 0",
                                 "command 0 20002 0 0", "delete 0", "detach", "delete 1",
                                 "command 2 20002 0 0", "delete 2"));
}

TEST_F(ExtensionsTest, AnEventOfAControlGoesToItsExtensionWhileThatLives) {
  HostApp* host = nullptr;
  onCommand = [&](IHostApp& hostOfCommand, s32 number) {
    if (number == 31000) host = static_cast<HostApp*>(&hostOfCommand);
    return 0;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.RunCommand(31000);
  ASSERT_NE(host, nullptr);
  calls.clear();
  host->SendEvent(17, 52300);
  EXPECT_THAT(calls, ElementsAre("event 2 17 52300"));
  extensions.Stop();
  calls.clear();
  host->SendEvent(17, 52300);
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(ExtensionsTest, ExceptionOfTheModuleInAnEventIsReportedAndCaught) {
  HostApp* host = nullptr;
  onCommand = [&](IHostApp& hostOfCommand, s32) {
    host = static_cast<HostApp*>(&hostOfCommand);
    return 0;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.RunCommand(31000);
  host->SendEvent(17, -1);
  EXPECT_EQ(recorded_.problems, "qxhost: the module threw out of OnHostEvent: bad event\n");
}

TEST_F(ExtensionsTest, WhatAWindowPostsAfterItsExtensionIsDeletedGoesNowhere) {
  IHostApp* host = nullptr;
  onCommand = [&](IHostApp& hostOfCommand, s32 number) {
    if (number == 31000) host = &hostOfCommand;
    return 0;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.RunCommand(31000);
  extensions.Stop();
  calls.clear();
  ASSERT_NE(host, nullptr);
  host->PostCommand(32000, 0, 0);
  extensions.RunCommand(31000);
  EXPECT_THAT(calls, IsEmpty());
}

// The second extension to register, which has index 2, declares the commands.
void DeclareScriptCommands() {
  onRegister = [registered = 0](IHostApp& host) mutable {
    EXPECT_EQ(host.GetCustomCommandSet("Other"), nullptr);
    EXPECT_EQ(host.GetCustomCommandSet(nullptr), nullptr);
    if (registered++ != 1) return 1;
    IHostCustomCommandSet* const set = host.GetCustomCommandSet("QX.Utils");
    IHostCustomCommand* const command = set->AddCommand("Join", 40, 0, 0);
    command->SetDescription(W("Joins"));
    command->AddParameter("WORD", 0x1020, W("A word"));
    command->AddParameter("COUNT", 0x40, W("A number"));
    command->AddParameter("QUIET", 0x10, W("A switch"));
    set->AddCommand("Split", 41, 0, 0);
    set->Commit(1);
    return 1;
  };
}

TEST_F(ExtensionsTest, AScriptCommandGoesToWhoDeclaredItWithItsParameters) {
  DeclareScriptCommands();
  onScript = [](IHostApp&, IHostCommandCall& call) {
    EXPECT_EQ(WString(ViewOf(call.GetValue("WORD"))), W("x"));
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  calls.clear();
  EXPECT_EQ(RunScript(extensions, "JOIN", {"word=x"}), 1);
  EXPECT_THAT(calls, ElementsAre("script 2 40"));
  EXPECT_EQ(recorded_.Out(), "");
}

TEST_F(ExtensionsTest, ResultOfAScriptCommandIsReportedAfterWhatItHasPosted) {
  DeclareScriptCommands();
  onScript = [](IHostApp& host, IHostCommandCall& call) {
    host.PostCommand(32000, 5, 6);
    call.SetResultCode(1314);
    if (call.HasFlag("WORD")) call.SetResultText(W("text"));
    return 0;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  calls.clear();
  EXPECT_EQ(RunScript(extensions, "Join", {"WORD=x"}), 0);
  EXPECT_THAT(calls, ElementsAre("script 2 40", "command 2 32000 5 6"));
  EXPECT_EQ(RunScript(extensions, "Split", {}), 0);
  EXPECT_EQ(recorded_.Out(),
            "{\"event\":\"script-result\",\"code\":1314,\"text\":\"text\"}\n"
            "{\"event\":\"script-result\",\"code\":1314,\"text\":null}\n");
}

TEST_F(ExtensionsTest, AScriptCommandThatIsNoneNamesThoseThereAre) {
  DeclareScriptCommands();
  Extensions extensions(shared_, exports_);
  extensions.Start();
  calls.clear();
  try {
    extensions.ScriptCommand("Joins");
    FAIL() << "nothing was thrown";
  } catch (const BadCall& refusal) {
    EXPECT_STREQ(
        refusal.what(),
        "\"Joins\" is not a script command; the script commands are: Join, Split. Did you mean Join?");
  }
  EXPECT_THROW(RunScript(extensions, "Join", {}), BadCall);
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(ExtensionsTest, WhatAScriptCommandThrowsIsAFailureOfTheModule) {
  DeclareScriptCommands();
  onScript = [](IHostApp&, IHostCommandCall&) -> s32 {
    throw std::invalid_argument("invalid stoi argument");
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  try {
    RunScript(extensions, "Split", {});
    FAIL() << "nothing was thrown";
  } catch (const ModuleFailure& failure) {
    EXPECT_THAT(failure.what(), HasSubstr("OnCustomCommand: invalid stoi argument"));
  }
}

TEST_F(ExtensionsTest, AllScriptCommandsAreReportedInOrderOrOneOfThem) {
  DeclareScriptCommands();
  Extensions extensions(shared_, exports_);
  extensions.Start();
  const std::string join =
      "{\"event\":\"script\",\"name\":\"Join\",\"number\":40,\"description\":\"Joins\",\"parameters\":["
      "{\"name\":\"WORD\",\"kind\":\"TEXT\",\"required\":true,\"description\":\"A word\"},"
      "{\"name\":\"COUNT\",\"kind\":\"NUMBER\",\"required\":false,\"description\":\"A number\"},"
      "{\"name\":\"QUIET\",\"kind\":\"SWITCH\",\"required\":false,\"description\":\"A switch\"}]}\n";
  const std::string split =
      "{\"event\":\"script\",\"name\":\"Split\",\"number\":41,\"description\":\"\",\"parameters\":[]}\n";
  extensions.ReportAllScriptCommands();
  EXPECT_EQ(recorded_.Out(), join + split);
  recorded_.out.clear();
  extensions.ReportScriptCommand("split");
  EXPECT_EQ(recorded_.Out(), split);
  EXPECT_THROW(extensions.ReportScriptCommand("Splits"), BadCall);
}

TEST_F(ExtensionsTest, AResultListIsReportedWithItsMarker) {
  extensionCount = 1;
  shared_.view.emplace(shared_.items, std::vector<FileItem*>{}, nullptr, WString());
  const WString path = scratch_.Write(W("a.txt"), "");
  onRegister = [&path](IHostApp& host) {
    auto* const files = static_cast<IHostFileOperation*>(host.GetService(3000, 0));
    IHostFileList* const list = host.CreateFileList();
    list->AddItem(files->GetFileItem(path.c_str(), 1));
    EXPECT_EQ(host.FileListRequest(21120, list, 1, 0), 1);
    list->Release();
    IHostFileList* const none = host.CreateFileList();
    EXPECT_EQ(host.FileListRequest(21120, none, 0, 0), 1);
    none->Release();
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  EXPECT_THAT(recorded_.Out(), HasSubstr("\\\\a.txt\"]}\n{\"event\":\"list\",\"request\":21120,\"marker\":0,"
                                         "\"items\":[]}\n"));
  EXPECT_THAT(recorded_.Out(),
              testing::StartsWith("{\"event\":\"list\",\"request\":21120,\"marker\":1,\"items\":[\""));
}

TEST_F(ExtensionsTest, AModuleIsFoundByItsIdInAnyCaseAndByNoOther) {
  extensionCount = 2;
  u32 system = 0;
  u32 first = 0;
  onRegister = [&](IHostApp& host) {
    system = host.FindModuleByGuid("A4C2985D9C7E4035A3221CFD600171D0");
    first = host.FindModuleByGuid(std::string(34, 'A').c_str());
    EXPECT_EQ(host.FindModuleByGuid("00000000000000000000000000000000"), 0u);
    EXPECT_EQ(host.FindModuleByGuid(""), 0u);
    EXPECT_EQ(host.FindModuleByGuid(nullptr), 0u);
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  EXPECT_NE(system & 0xFFFF, 0u);
  EXPECT_NE(first & 0xFFFF, 0u);
  EXPECT_NE(system & 0xFFFF, first & 0xFFFF);
}

TEST_F(ExtensionsTest, AMissingTextIsEmptyAndReportedOnce) {
  extensionCount = 1;
  onRegister = [](IHostApp& host) {
    for (int time = 0; time < 3; ++time) {
      EXPECT_EQ(WString(host.GetLanguageString(7)), W(""));
      EXPECT_EQ(WString(host.GetLanguageTitle(7)), W(""));
      EXPECT_EQ(WString(host.GetModuleLanguageString(0, 8)), W(""));
      EXPECT_EQ(WString(host.GetModuleLanguageString(0x12345, 9)), W(""));
    }
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  EXPECT_EQ(recorded_.Out(),
            "{\"event\":\"missing-text\",\"id\":7}\n"
            "{\"event\":\"missing-text\",\"id\":8}\n"
            "{\"event\":\"missing-text\",\"id\":9}\n");
}

TEST_F(ExtensionsTest, LogLinesAreFilledInAndReported) {
  extensionCount = 1;
  onRegister = [](IHostApp& host) {
    host.LogMessage(1, 30, W("FILE : %s not found (%d)"), W("x"), 2);
    host.LogText(0, 10, W("100%s"));
    host.LogText(0, 10, nullptr);
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  EXPECT_EQ(recorded_.Out(),
            "{\"event\":\"log\",\"category\":1,\"level\":30,\"text\":\"FILE : x not found (2)\"}\n"
            "{\"event\":\"log\",\"category\":0,\"level\":10,\"text\":\"100%s\"}\n"
            "{\"event\":\"log\",\"category\":0,\"level\":10,\"text\":\"\"}\n");
}

TEST_F(ExtensionsTest, ARefreshIsReportedWhenTheServiceIsReleased) {
  extensionCount = 1;
  onRegister = [this](IHostApp& host) {
    auto* const refresh = static_cast<IHostViewRefresh*>(host.GetService(3010, 0));
    refresh->AddFolder(W("Z:\\a"));
    EXPECT_EQ(recorded_.Out(), "");
    host.ReleaseService(refresh, 3010);
    host.ReleaseService(host.GetService(3000, 0), 0);
    EXPECT_EQ(host.GetService(3000, 0), host.GetService(3000, 0));
    EXPECT_EQ(host.GetService(1, 0), nullptr);
    host.ReleaseService(nullptr, 0);
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  EXPECT_EQ(recorded_.Out(), "{\"event\":\"refresh\",\"folder\":\"Z:\\\\a\"}\n");
}

TEST_F(ExtensionsTest, FoldersEndInABackslashAndFitOrAreNotGiven) {
  extensionCount = 1;
  onRegister = [this](IHostApp& host) {
    const WString expected = scratch_.Path(W("config")) + W("\\");
    WString buffer(expected.size() + 1, W('x'));
    EXPECT_TRUE(host.GetConfigPath(buffer.data(), static_cast<u32>(buffer.size())));
    EXPECT_EQ(WString(buffer.c_str()), expected);
    EXPECT_FALSE(host.GetConfigPath(buffer.data(), static_cast<u32>(expected.size())));
    EXPECT_FALSE(host.GetTargetPanelPath(buffer.data(), static_cast<u32>(buffer.size())));
    EXPECT_FALSE(host.GetConfigPath(nullptr, 0));
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
}

TEST_F(ExtensionsTest, ATextAnswerThatDoesNotFitIsRefused) {
  extensionCount = 1;
  Questions questions(*reporter_, recorded_.output, {*ParseAnswer("text=abc"), *ParseAnswer("text=abcd")}, {},
                      nullptr);
  Shared shared(recorded_.output, *reporter_, LanguageTable(), Answers(scratch_), questions, false);
  onRegister = [](IHostApp& host) {
    std::array<WCHAR, 4> buffer = {W('o')};
    EXPECT_TRUE(host.AskText(W("T"), W(""), nullptr, nullptr, buffer.data(), 4, nullptr, 0));
    EXPECT_EQ(WString(buffer.data()), W("abc"));
    EXPECT_FALSE(host.AskText(W("T"), W(""), nullptr, nullptr, buffer.data(), 4, nullptr, 0));
    EXPECT_EQ(WString(buffer.data()), W("abc"));
    return 1;
  };
  Extensions extensions(shared, exports_);
  extensions.Start();
  EXPECT_TRUE(questions.HasRefused());
}

TEST_F(ExtensionsTest, AChoiceIsWrittenIntoTheRecord) {
  extensionCount = 1;
  Questions questions(*reporter_, recorded_.output, {*ParseAnswer("choice=two")}, {}, nullptr);
  Shared shared(recorded_.output, *reporter_, LanguageTable(), Answers(scratch_), questions, false);
  onRegister = [](IHostApp& host) {
    AskChoiceRecord record;
    record.choices = host.CreateStringList();
    record.choices->Add(W("one"));
    record.choices->Add(W("two"));
    // A full caption has no terminator.
    std::fill(std::begin(record.caption), std::end(record.caption), W('c'));
    EXPECT_TRUE(host.AskChoice(&record));
    EXPECT_EQ(WString(record.result), W("two"));
    EXPECT_FALSE(host.AskChoice(&record));
    record.choices->Release();
    record.choices = nullptr;
    EXPECT_FALSE(host.AskChoice(&record));
    EXPECT_FALSE(host.AskChoice(nullptr));
    return 1;
  };
  Extensions extensions(shared, exports_);
  extensions.Start();
  EXPECT_THAT(recorded_.Out(), HasSubstr("\"title\":\"" + std::string(64, 'c') + "\""));
}

TEST_F(ExtensionsTest, ScriptCommandsAreRecordedOnceAndOnlyInTheirSet) {
  extensionCount = 1;
  onRegister = [](IHostApp& host) {
    EXPECT_EQ(host.GetCustomCommandSet("Other"), nullptr);
    IHostCustomCommandSet* const set = host.GetCustomCommandSet("QX.Utils");
    EXPECT_FALSE(set->IsRegistered());
    IHostCustomCommand* const command = set->AddCommand("SortLines", 30352, 0x100000, 2048);
    command->AddParameter("FILE", 4128, W("path"));
    command->SetDescription(W("sorts"));
    set->Commit(1);
    EXPECT_TRUE(set->IsRegistered());
    EXPECT_EQ(set->AddCommand("Late", 1, 0, 0), nullptr);
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  ASSERT_EQ(shared_.scriptCommands.commands.size(), 1u);
  const DeclaredScriptCommand& command = shared_.scriptCommands.commands.front();
  EXPECT_EQ(command.name, "SortLines");
  EXPECT_EQ(command.number, 30352u);
  EXPECT_EQ(command.description, W("sorts"));
  ASSERT_EQ(command.parameters.size(), 1u);
  EXPECT_EQ(command.parameters.front().name, "FILE");
  EXPECT_EQ(command.parameters.front().flags, 4128u);
}

TEST_F(ExtensionsTest, ACommandOfTheMenuIsReportedWithItsName) {
  extensionCount = 1;
  onRegister = [](IHostApp& host) {
    IHostMenuBuilder& menus = *host.GetMenuBuilder();
    const MenuHandle root = menus.CreateRootMenu(0, 1, 0);
    for (const u32 number : {30150u, 6161u, 6163u}) {
      menus.AddCommand(root, host.GetCommandFactory()->CreateCommand(number, 0, 0, 0, 9, 0), 1, 0);
    }
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.ReportMenus();
  EXPECT_THAT(
      recorded_.Out(),
      testing::EndsWith(
          R"({"event":"menu","path":"/","number":30150,"name":"sort-lines","id":0,"display":9,"text":""})"
          "\n"
          R"({"event":"menu","path":"/","number":6161,"name":"control-file-history","id":0,"display":9,"text":""})"
          "\n"
          R"({"event":"menu","path":"/","number":6163,"name":null,"id":0,"display":9,"text":""})"
          "\n"));
}

TEST_F(ExtensionsTest, MenuHandlesThatWereNotGivenOutAreRefused) {
  extensionCount = 1;
  onRegister = [](IHostApp& host) {
    IHostMenuBuilder& menus = *host.GetMenuBuilder();
    int stranger = 0;
    EXPECT_EQ(menus.AddSubMenuText(nullptr, W("x"), 0), nullptr);
    EXPECT_EQ(menus.AddSubMenuText(reinterpret_cast<MenuHandle>(&stranger), W("x"), 0), nullptr);
    const MenuHandle root = menus.CreateRootMenu(0, 1, 0);
    const CommandHandle command = host.GetCommandFactory()->CreateCommand(7, 0, 0, 0, 9, 0);
    EXPECT_EQ(menus.AddSubMenuText(reinterpret_cast<MenuHandle>(command), W("x"), 0), nullptr);
    menus.AddCommand(root, nullptr, 1, 0);
    menus.AddCommand(nullptr, command, 1, 0);
    menus.AddCommand(root, reinterpret_cast<CommandHandle>(root), 1, 0);
    menus.AddSeparator(nullptr, 0);
    menus.AddCommand(root, command, 1, 0);
    menus.AddCommand(menus.AddSubMenuText(root, W("sub"), 0), command, 1, 0);
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.ReportMenus();
  EXPECT_EQ(recorded_.Out(),
            R"({"event":"menu","path":"","number":null,"name":null,"id":0,"display":0,"text":""})"
            "\n"
            R"({"event":"menu","path":"/","number":7,"name":null,"id":0,"display":9,"text":""})"
            "\n"
            R"({"event":"menu","path":"/sub","number":null,"name":null,"id":0,"display":0,"text":"sub"})"
            "\n"
            R"({"event":"menu","path":"/sub/","number":7,"name":null,"id":0,"display":9,"text":""})"
            "\n");
}

}  // namespace
}  // namespace QxHost
