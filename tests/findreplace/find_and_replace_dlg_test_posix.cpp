// The forms of find and replace as the native build passes them to the handler of dialogs.
#include <gmock/gmock.h>

#include "findreplace/tool/confirm_replace_dlg.h"
#include "findreplace/tool/find_and_replace_dlg.h"
#include "frame/services/message_texts.h"
#include "support/dialog_answer.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;

namespace QXFindAndReplace {
namespace {

using testing::ElementsAre;

FindAndReplaceForm StartedForm(std::uint32_t flags) {
  FindAndReplaceForm form;
  form.fileCount = 1;
  form.startName = W("a.txt");
  form.suffix = W("_x");
  form.options.flags = flags;
  form.options.find = W("old");
  StartForm(form);
  return form;
}

TEST(FindAndReplaceDlg, IsAskedForByItsClassWithItsTextsAndFields) {
  FakeHost host;
  host.texts = {{kTextFindDlgCaption, W("Find")},
                {kTextFindDlgHeading, W("Heading")},
                {kTextFindDlgCount, W("%d files")}};
  int asked = 0;
  DialogAnswer answer([&](Platform::FormRequest& request) -> INT_PTR {
    ++asked;
    EXPECT_EQ(request.dialog, "FindAndReplaceDlg");
    EXPECT_EQ(request.title, W("Find"));
    EXPECT_EQ(request.text, W("Heading\n1 files"));
    EXPECT_THAT(ValuesOf(request), ElementsAre("saveMode=keep-backup", "targetName=a.txt", "find=old",
                                               "findMode=One", "replace=", "regExp=0", "wildcard=0",
                                               "ignoreCase=1", "forceUtf8=0", "silent=0", "replaceAll=0"));
    return IDCANCEL;
  });
  FindAndReplaceForm form = StartedForm(0x20000101);
  EXPECT_EQ(ShowFindAndReplaceDlg(host, form), IDCANCEL);
  EXPECT_EQ(asked, 1);
}

TEST(FindAndReplaceDlg, FieldsGoIntoTheFormAndRulesFollow) {
  FakeHost host;
  FindAndReplaceForm form = StartedForm(0x20000101);
  DialogAnswer answer([](Platform::FormRequest& request) -> INT_PTR {
    EXPECT_FALSE(Set(request, "targetName", W("b.txt")));
    EXPECT_TRUE(Set(request, "saveMode", W("new")));
    EXPECT_EQ(Get(request, "targetName"), W("a_x.txt"));
    EXPECT_TRUE(Set(request, "targetName", W("b.txt")));
    EXPECT_TRUE(Set(request, "find", W("a\nb")));
    EXPECT_TRUE(Set(request, "replace", W("c")));
    EXPECT_TRUE(Set(request, "findMode", W("ManySame")));
    for (const char* box : {"wildcard", "forceUtf8", "silent"}) EXPECT_TRUE(Set(request, box, W("1"))) << box;
    EXPECT_TRUE(Set(request, "ignoreCase", W("0")));
    return IDOK;
  });
  EXPECT_EQ(ShowFindAndReplaceDlg(host, form), IDOK);
  EXPECT_EQ(ReadOptions(form).flags, 0x10003804u);
  EXPECT_EQ(ReadOptions(form).find, W("a\nb"));
  EXPECT_EQ(ReadOptions(form).replace, W("c"));
  EXPECT_EQ(ReadTargetName(form), W("b.txt"));
}

TEST(FindAndReplaceDlg, TextsAreCutToWhatTheOptionsHold) {
  FakeHost host;
  FindAndReplaceForm form = StartedForm(0x20000101);
  DialogAnswer answer([](Platform::FormRequest& request) -> INT_PTR {
    EXPECT_TRUE(Set(request, "saveMode", W("new")));
    for (const char* name : {"targetName", "find", "replace"}) {
      EXPECT_TRUE(Set(request, name, WString(1023, W('x')) + W('y'))) << name;
      EXPECT_EQ(Get(request, name), WString(1023, W('x'))) << name;
      EXPECT_EQ(FieldOf(request, name).takes, "at most 1023 characters") << name;
    }
    return IDOK;
  });
  EXPECT_EQ(ShowFindAndReplaceDlg(host, form), IDOK);
  EXPECT_EQ(ReadOptions(form).find, WString(1023, W('x')));
}

TEST(FindAndReplaceDlg, GreyAndHiddenFieldsAndWrongWordsAreRefused) {
  FakeHost host;
  FindAndReplaceForm form = StartedForm(0x20000101);
  DialogAnswer answer([](Platform::FormRequest& request) -> INT_PTR {
    for (const auto& [name, value] :
         std::initializer_list<std::pair<const char*, const WCHAR*>>{{"regExp", W("1")},
                                                                     {"replaceAll", W("1")},
                                                                     {"findMode", W("one")},
                                                                     {"saveMode", W("")},
                                                                     {"silent", W("yes")}}) {
      const WString before = Get(request, name);
      EXPECT_FALSE(Set(request, name, value)) << name;
      EXPECT_EQ(Get(request, name), before) << name;
    }
    return IDOK;
  });
  EXPECT_EQ(ShowFindAndReplaceDlg(host, form), IDOK);
  EXPECT_EQ(ReadOptions(form).flags, 0x20000101u);
}

ConfirmReplaceForm Question(WQDR::TextFormat format) {
  ConfirmReplaceForm form;
  form.format = format;
  form.path = W("Z:\\a.txt");
  form.range = {{1, 2}, {3, 4}};
  form.context = W("\u00C3\u00BC");
  form.replacement = W("ue");
  return form;
}

TEST(ConfirmReplaceDlg, IsAskedForByItsClassWithItsTextsAndFields) {
  FakeHost host;
  host.texts = {{kTextConfirmCaption, W("Replace?")},
                {kTextConfirmFile, W("In ")},
                {kTextConfirmRange, W("%d:%d-%d:%d")}};
  int asked = 0;
  DialogAnswer answer([&](Platform::FormRequest& request) -> INT_PTR {
    ++asked;
    EXPECT_EQ(request.dialog, "ConfirmReplaceDlg");
    EXPECT_EQ(request.title, W("Replace?"));
    EXPECT_EQ(request.text, W("In Z:\\a.txt\n1:2-3:4"));
    EXPECT_THAT(ValuesOf(request),
                ElementsAre("result=replace", "rawShown=1", "context=\u00C3\u00BC", "replacement=ue"));
    EXPECT_FALSE(Set(request, "context", W("x")));
    EXPECT_FALSE(Set(request, "replacement", W("x")));
    EXPECT_FALSE(Set(request, "rawShown", W("0")));
    return IDOK;
  });
  ConfirmReplaceForm form = Question(WQDR::TextFormat::Ansi);
  ShowConfirmReplaceDlg(host, form);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(form.result, ConfirmResult::Replace);
}

TEST(ConfirmReplaceDlg, EachWordGivesItsAnswer) {
  const std::pair<const WCHAR*, int> words[] = {
      {W("replace"), 0}, {W("all"), 1}, {W("next"), 3}, {W("cancel"), 5}};
  for (const auto& row : words) {
    FakeHost host;
    DialogAnswer answer([&](Platform::FormRequest& request) -> INT_PTR {
      EXPECT_TRUE(Set(request, "result", row.first));
      EXPECT_FALSE(Set(request, "result", W("skip")));
      return IDOK;
    });
    ConfirmReplaceForm form = Question(WQDR::TextFormat::Ansi);
    ShowConfirmReplaceDlg(host, form);
    EXPECT_EQ(static_cast<int>(form.result), row.second);
  }
}

TEST(ConfirmReplaceDlg, WithoutOkOrAUserItIsCancelled) {
  FakeHost host;
  ConfirmReplaceForm form = Question(WQDR::TextFormat::Ansi);
  {
    DialogAnswer answer([](Platform::FormRequest& request) -> INT_PTR {
      Set(request, "result", W("all"));
      return IDCANCEL;
    });
    ShowConfirmReplaceDlg(host, form);
    EXPECT_EQ(form.result, ConfirmResult::Cancel);
  }
  Platform::UserInterface* const before = Platform::InstallUserInterface(nullptr);
  form.result = ConfirmResult::Replace;
  ShowConfirmReplaceDlg(host, form);
  EXPECT_EQ(form.result, ConfirmResult::Cancel);
  Platform::InstallUserInterface(before);
}

TEST(ConfirmReplaceDlg, TextsOfAUtf8FileAreShownInBothViews) {
  FakeHost host;
  DialogAnswer answer([](Platform::FormRequest& request) -> INT_PTR {
    EXPECT_EQ(Get(request, "context"), W("\u00C3\u00BC"));
    EXPECT_TRUE(Set(request, "rawShown", W("0")));
    EXPECT_EQ(Get(request, "context"), W("\u00FC"));
    EXPECT_TRUE(Set(request, "rawShown", W("1")));
    EXPECT_EQ(Get(request, "context"), W("\u00C3\u00BC"));
    return IDOK;
  });
  ConfirmReplaceForm form = Question(WQDR::TextFormat::Utf8);
  ShowConfirmReplaceDlg(host, form);
}

}  // namespace
}  // namespace QXFindAndReplace
