// The form of Replace X with Y as the native build passes it to the handler of dialogs.
#include "filetools/replace_dlg.h"

#include <gmock/gmock.h>

#include "frame/host/command_numbers.h"
#include "frame/qx_utils.h"
#include "frame/services/message_texts.h"
#include "platform/posix/user_interface.h"
#include "support/dialog_answer.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;
using testing::ElementsAre;

namespace {

// Passes each dialog to a function and answers every message box with OK.
class DialogAndBoxAnswer final : public DialogAnswer {
 public:
  using DialogAnswer::DialogAnswer;

  int MessageBox(const WCHAR* text, const WCHAR* caption, UINT style) override {
    boxText = ViewOf(text);
    boxCaption = ViewOf(caption);
    boxStyle = style;
    ++boxes;
    return IDOK;
  }

  WString boxText;
  WString boxCaption;
  UINT boxStyle = 0;
  int boxes = 0;
};

}  // namespace

TEST(ReplaceDlg, IsAskedForByItsClassAndTitleWithThreeFields) {
  FakeHost host;
  host.texts[kTextReplaceTitle] = W("Replace X with Y");
  int asked = 0;
  DialogAndBoxAnswer answer([&](Platform::FormRequest& form) -> INT_PTR {
    ++asked;
    EXPECT_EQ(form.dialog, "CReplaceDlg");
    EXPECT_EQ(form.title, W("Replace X with Y"));
    std::vector<std::string> names;
    for (const Platform::FormField& field : form.fields) names.push_back(field.name);
    EXPECT_THAT(names, ElementsAre("find", "replace", "part"));
    EXPECT_EQ(Get(form, "find"), W(""));
    EXPECT_EQ(Get(form, "replace"), W(""));
    EXPECT_EQ(Get(form, "part"), W("1"));
    return IDCANCEL;
  });
  ReplaceForm form;
  EXPECT_EQ(ShowReplaceDlg(host, form), IDCANCEL);
  EXPECT_EQ(asked, 1);
}

TEST(ReplaceDlg, OkBringsTheFieldsIntoTheForm) {
  FakeHost host;
  DialogAndBoxAnswer answer([](Platform::FormRequest& form) -> INT_PTR {
    EXPECT_TRUE(Set(form, "find", W("abc")));
    EXPECT_TRUE(Set(form, "replace", W("")));
    EXPECT_TRUE(Set(form, "replace", W("x y")));
    EXPECT_TRUE(Set(form, "part", W("2")));
    EXPECT_EQ(Get(form, "find"), W("abc"));
    EXPECT_EQ(Get(form, "part"), W("2"));
    return IDOK;
  });
  ReplaceForm form;
  EXPECT_EQ(ShowReplaceDlg(host, form), IDOK);
  EXPECT_EQ(form.find, W("abc"));
  EXPECT_EQ(form.replace, W("x y"));
  EXPECT_EQ(form.part, 2);
}

TEST(ReplaceDlg, CancelBringsBothTextsIntoTheForm) {
  FakeHost host;
  DialogAndBoxAnswer answer([](Platform::FormRequest& form) -> INT_PTR {
    Set(form, "find", W("abc"));
    Set(form, "replace", W("def"));
    return IDCANCEL;
  });
  ReplaceForm form;
  EXPECT_EQ(ShowReplaceDlg(host, form), IDCANCEL);
  EXPECT_EQ(form.find, W("abc"));
  EXPECT_EQ(form.replace, W("def"));
}

TEST(ReplaceDlg, PartTakesItsFourValuesAlone) {
  FakeHost host;
  DialogAndBoxAnswer answer([](Platform::FormRequest& form) -> INT_PTR {
    for (const WCHAR* value : {W("1"), W("2"), W("3"), W("-1")}) {
      EXPECT_TRUE(Set(form, "part", value)) << ToUtf8(value);
      EXPECT_EQ(Get(form, "part"), value);
    }
    for (const WCHAR* value : {W(""), W("0"), W("4"), W("-2"), W("1 "), W(" 1"), W("01"), W("+1"), W("1x"),
                               W("one"), W("99999999999999999999")}) {
      EXPECT_FALSE(Set(form, "part", value)) << ToUtf8(value);
      EXPECT_EQ(Get(form, "part"), W("-1")) << "a refused value must change nothing";
    }
    return IDOK;
  });
  ReplaceForm form;
  EXPECT_EQ(ShowReplaceDlg(host, form), IDOK);
  EXPECT_EQ(form.part, -1);
}

TEST(ReplaceDlg, WithoutAUserItIsCancelled) {
  Platform::UserInterface* const before = Platform::InstallUserInterface(nullptr);
  FakeHost host;
  ReplaceForm form;
  EXPECT_EQ(ShowReplaceDlg(host, form), IDCANCEL);
  Platform::InstallUserInterface(before);
}

TEST(ReplaceDlg, CommandNumberLeadsFromTheDialogToTheRenames) {
  FakeHost host;
  host.texts[kTextRenameQuestion] = W("%d");
  host.SelectFiles({W("a.txt"), W("b.log")});
  DialogAndBoxAnswer answer([](Platform::FormRequest& form) -> INT_PTR {
    Set(form, "find", W(".txt"));
    Set(form, "replace", W(".bak"));
    Set(form, "part", W("2"));
    return IDOK;
  });
  CQXUtils extension;
  extension.OnStart(&host);
  EXPECT_EQ(extension.OnCommand(kCommandReplaceXWithY, 0, 0), 1);
  EXPECT_THAT(host.fileOperation.RunRenames(), ElementsAre(QueuedRename{W("a.txt"), W("a.bak")}));
  EXPECT_EQ(answer.boxText, W("1"));
  EXPECT_EQ(answer.boxCaption, W("T000A0063"));
  EXPECT_EQ(answer.boxStyle, 33u);
  EXPECT_EQ(answer.boxes, 1);
  ExpectAllReleased(host);
}
