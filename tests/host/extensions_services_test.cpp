// What the host provides to a module's extensions: services, texts, questions and menus, and what it reports
// of their use.
#include "host/extensions_test.h"

#include <algorithm>
#include <array>

#include "frame/host/command_numbers.h"
#include "frame/host/host_types.h"

using testing::HasSubstr;

namespace QxHost {
namespace {

using namespace Velmora::SDK;

TEST_F(ExtensionsTest, AResultListIsReportedWithItsMarker) {
  extensionCount = 1;
  shared_.view.emplace(shared_.items, std::vector<FileItem*>{}, nullptr, WString());
  const WString path = scratch_.Write(W("a.txt"), "");
  onRegister = [&path](IHostApp& host) {
    auto* const files = static_cast<IHostFileOperation*>(host.GetService(kServiceFileOperation, 0));
    IHostFileList* const list = host.CreateFileList();
    list->AddItem(files->GetFileItem(path.c_str(), 1));
    EXPECT_EQ(host.FileListRequest(kListResult, list, 1, 0), 1);
    list->Release();
    IHostFileList* const none = host.CreateFileList();
    EXPECT_EQ(host.FileListRequest(kListResult, none, 0, 0), 1);
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
    auto* const refresh = static_cast<IHostViewRefresh*>(host.GetService(kServiceViewRefresh, 0));
    refresh->AddFolder(W("Z:\\a"));
    EXPECT_EQ(recorded_.Out(), "");
    host.ReleaseService(refresh, kServiceViewRefresh);
    host.ReleaseService(host.GetService(kServiceFileOperation, 0), 0);
    EXPECT_EQ(host.GetService(kServiceFileOperation, 0), host.GetService(kServiceFileOperation, 0));
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
