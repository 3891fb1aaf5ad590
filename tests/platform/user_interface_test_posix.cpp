// Message boxes, forms and program starts are passed to the installed handler.

#include "platform/posix/user_interface.h"

#include <gtest/gtest.h>

namespace {

class Recorder : public Platform::UserInterface {
 public:
  int MessageBox(const WCHAR* text, const WCHAR* caption, UINT style) override {
    texts.push_back(WString(ViewOf(caption)) + W("|") + WString(ViewOf(text)));
    lastStyle = style;
    return IDYES;
  }

  INT_PTR Dialog(Platform::FormRequest& form) override {
    texts.push_back(form.title);
    for (Platform::FormField& field : form.fields) {
      texts.push_back(field.get());
      accepted.push_back(field.set(W("new")));
    }
    return IDOK;
  }

  INT_PTR ShellExecute(const WCHAR* verb, const WCHAR* file, const WCHAR* arguments, int show) override {
    for (const WCHAR* text : {verb, file, arguments}) texts.emplace_back(ViewOf(text));
    lastShow = show;
    return 42;
  }

  std::vector<WString> texts;
  std::vector<bool> accepted;
  UINT lastStyle = 0;
  int lastShow = 0;
};

class UserInterfaceTest : public testing::Test {
 protected:
  UserInterfaceTest() : before_(Platform::InstallUserInterface(&recorder_)) {}
  ~UserInterfaceTest() override { Platform::InstallUserInterface(before_); }

  Recorder recorder_;
  Platform::UserInterface* before_;
};

TEST_F(UserInterfaceTest, ABoxIsPassedToTheHandler) {
  EXPECT_EQ(MessageBoxW(nullptr, W("text"), W("caption"), MB_YESNO | MB_ICONQUESTION), IDYES);
  EXPECT_EQ(recorder_.texts, std::vector<WString>{W("caption|text")});
  EXPECT_EQ(recorder_.lastStyle, 0x24u);
}

TEST_F(UserInterfaceTest, AMissingTextOfABoxIsHandedOnAsItIs) {
  EXPECT_EQ(MessageBoxW(nullptr, nullptr, nullptr, MB_OK), IDYES);
  EXPECT_EQ(recorder_.texts, std::vector<WString>{W("|")});
}

TEST_F(UserInterfaceTest, AStartIsPassedToTheHandler) {
  EXPECT_EQ(
      reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, W("open"), W("a.txt"), W("-x"), nullptr, SW_SHOW)),
      42);
  EXPECT_EQ(recorder_.texts, (std::vector<WString>{W("open"), W("a.txt"), W("-x")}));
  EXPECT_EQ(recorder_.lastShow, SW_SHOW);
}

TEST_F(UserInterfaceTest, AFormIsEditedByTheHandler) {
  WString value = W("old");
  Platform::FormRequest form;
  form.dialog = "TestDlg";
  form.title = W("Title");
  form.fields.push_back({"name", [&value] { return value; },
                         [&value](const WString& text) {
                           value = text;
                           return true;
                         }});
  form.fields.push_back({"other", [] { return WString(W("x")); }, [](const WString&) { return false; }});
  EXPECT_EQ(Platform::AskForm(form), IDOK);
  EXPECT_EQ(value, W("new"));
  EXPECT_EQ(recorder_.texts, (std::vector<WString>{W("Title"), W("old"), W("x")}));
  EXPECT_EQ(recorder_.accepted, (std::vector<bool>{true, false}));
}

TEST_F(UserInterfaceTest, OkOfAFormIsCancelWhileItIsDisabled) {
  WString value = W("old");
  Platform::FormRequest form;
  form.fields.push_back({"name", [&value] { return value; },
                         [&value](const WString& text) {
                           value = text;
                           return true;
                         }});
  form.isOkEnabled = [&value] { return value == W("old"); };
  EXPECT_EQ(Platform::AskForm(form), IDCANCEL) << "the handler has filled in another value";
  form.isOkEnabled = [&value] { return value == W("new"); };
  EXPECT_EQ(Platform::AskForm(form), IDOK);
}

TEST_F(UserInterfaceTest, InstallingGivesBackTheHandlerBefore) {
  Recorder other;
  EXPECT_EQ(Platform::InstallUserInterface(&other), &recorder_);
  EXPECT_EQ(Platform::InstallUserInterface(&recorder_), &other);
}

TEST_F(UserInterfaceTest, WithoutAHandlerEachCallFails) {
  Platform::InstallUserInterface(nullptr);
  EXPECT_EQ(MessageBoxW(nullptr, W("text"), W("caption"), MB_OK), 0);
  EXPECT_EQ(GetLastError(), 1459u);
  EXPECT_EQ(reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, nullptr, W("a.txt"), nullptr, nullptr, SW_SHOW)),
            31);
  Platform::FormRequest form;
  EXPECT_EQ(Platform::AskForm(form), IDCANCEL);
  EXPECT_EQ(recorder_.texts, std::vector<WString>{});
}

}  // namespace
