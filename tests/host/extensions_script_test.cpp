// The script commands of a module's extensions.
#include "host/extensions_test.h"

#include <stdexcept>

#include "frame/host/command_numbers.h"
#include "host/output/failures.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace QxHost {
namespace {

using namespace Velmora::SDK;

s32 RunScript(Extensions& extensions, const std::string& name, const std::vector<std::string>& arguments) {
  ScriptCall call(extensions.ScriptCommand(name), arguments);
  return extensions.RunScriptCommand(call);
}

// The second extension to register, which has index 2, declares the commands.
void DeclareScriptCommands() {
  FakeModule::onRegister = [registered = 0](IHostApp& host) mutable {
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
    host.PostCommand(kCommandReadSelection, 5, 6);
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

TEST_F(ExtensionsTest, ScriptCommandsAreRecordedOnceAndOnlyInTheirSet) {
  extensionCount = 1;
  onRegister = [](IHostApp& host) {
    EXPECT_EQ(host.GetCustomCommandSet("Other"), nullptr);
    IHostCustomCommandSet* const set = host.GetCustomCommandSet("QX.Utils");
    EXPECT_FALSE(set->IsRegistered());
    IHostCustomCommand* const command = set->AddCommand("SortLines", kScriptSortLines, 0x100000, 2048);
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
  EXPECT_EQ(command.number, u32{kScriptSortLines});
  EXPECT_EQ(command.description, W("sorts"));
  ASSERT_EQ(command.parameters.size(), 1u);
  EXPECT_EQ(command.parameters.front().name, "FILE");
  EXPECT_EQ(command.parameters.front().flags, 4128u);
}

}  // namespace
}  // namespace QxHost
