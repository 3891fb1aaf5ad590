// The form of Sort Lines as the native build passes it to the handler of dialogs.
#include "linesorter/tool/sort_lines_dlg.h"

#include <gmock/gmock.h>

#include "frame/services/message_texts.h"
#include "support/dialog_answer.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;

namespace WQLineSorter {
namespace {

using testing::ElementsAre;

SortLinesForm StartedForm(std::uint32_t bits = 0x100011) {
  SortLinesForm form;
  form.fileCount = 1;
  form.firstName = W("a.txt");
  form.newFileSuffix = W("_s");
  form.options.options = bits;
  StartForm(form);
  return form;
}

// Shows a form, runs the steps, and closes it with OK.
void Show(SortLinesForm& form, const std::function<void(Platform::FormRequest&)>& steps) {
  FakeHost host;
  DialogAnswer answer([&](Platform::FormRequest& request) -> INT_PTR {
    steps(request);
    return IDOK;
  });
  EXPECT_EQ(ShowSortLinesDlg(host, form), IDOK);
}

TEST(SortLinesDlg, IsAskedForByItsClassWithItsTextsAndFields) {
  FakeHost host;
  host.texts = {{kTextSortDlgCaption, W("Sort")},
                {kTextSortDlgHeading, W("Heading")},
                {kTextSortDlgCount, W("%d files")}};
  int asked = 0;
  DialogAnswer answer([&](Platform::FormRequest& request) -> INT_PTR {
    ++asked;
    EXPECT_EQ(request.dialog, "SortLinesDlg");
    EXPECT_EQ(request.title, W("Sort"));
    EXPECT_EQ(request.text, W("Heading\n1 files"));
    EXPECT_THAT(ValuesOf(request),
                ElementsAre("saveAs=new", "targetName=a_s.txt", "keepLinesTop=0", "keepLinesBottom=0",
                            "startPosition=1", "skipLeadingSpace=1", "sortBy=line",
                            "length=", "endCharacter=", "endAtWhitespace=0", "separator=", "item=0",
                            "sortMethod=text", "dateFormat=", "languageAware=0", "ignoreCase=0",
                            "naturalNumbers=0", "reverse=0", "removeDuplicates=0", "removeBlank=0"));
    return IDCANCEL;
  });
  SortLinesForm form = StartedForm();
  EXPECT_EQ(ShowSortLinesDlg(host, form), IDCANCEL);
  EXPECT_EQ(asked, 1);
}

TEST(SortLinesDlg, FieldsGoIntoTheForm) {
  SortLinesForm form = StartedForm();
  Show(form, [](Platform::FormRequest& request) {
    for (const auto& [name, value] :
         std::initializer_list<std::pair<const char*, const WCHAR*>>{{"targetName", W("x.txt")},
                                                                     {"keepLinesTop", W("12")},
                                                                     {"keepLinesBottom", W("3")},
                                                                     {"startPosition", W("5")},
                                                                     {"skipLeadingSpace", W("0")},
                                                                     {"sortBy", W("item")},
                                                                     {"separator", W(";")},
                                                                     {"item", W("2")},
                                                                     {"sortMethod", W("date")},
                                                                     {"dateFormat", W("%Y")},
                                                                     {"ignoreCase", W("1")},
                                                                     {"reverse", W("1")},
                                                                     {"removeBlank", W("1")}}) {
      EXPECT_TRUE(Set(request, name, value)) << name;
      EXPECT_EQ(Get(request, name), value) << name;
    }
  });
  EXPECT_EQ(form.targetName, W("x.txt"));
  EXPECT_EQ(form.keepLinesTop, W("12"));
  EXPECT_EQ(form.keepLinesBottom, W("3"));
  EXPECT_EQ(form.startPosition, W("5"));
  EXPECT_FALSE(form.skipLeadingSpace);
  EXPECT_EQ(form.sortBy, 4);
  EXPECT_EQ(form.separator, W(";"));
  EXPECT_EQ(form.item, W("2"));
  EXPECT_EQ(form.sortMethod, 0x200);
  EXPECT_EQ(form.dateFormat, W("%Y"));
  EXPECT_TRUE(form.ignoreCase && form.reverse && form.removeBlank);
}

TEST(SortLinesDlg, RulesFollowEachField) {
  SortLinesForm form = StartedForm();
  Show(form, [](Platform::FormRequest& request) {
    EXPECT_TRUE(Set(request, "sortBy", W("substring")));
    EXPECT_TRUE(Set(request, "length", W("3")));
    EXPECT_FALSE(Set(request, "endCharacter", W(";")));
    EXPECT_FALSE(Set(request, "endAtWhitespace", W("1")));
    EXPECT_TRUE(Set(request, "length", W("")));
    EXPECT_TRUE(Set(request, "endCharacter", W(";,")));
    EXPECT_EQ(Get(request, "endCharacter"), W(";"));
    EXPECT_TRUE(Set(request, "saveAs", W("keep-backup")));
    EXPECT_EQ(Get(request, "targetName"), W("a.txt"));
    EXPECT_FALSE(Set(request, "targetName", W("b.txt")));
  });
}

TEST(SortLinesDlg, FieldsThatAreGreyTakeNothing) {
  SortLinesForm form = StartedForm(0x20011);
  Show(form, [](Platform::FormRequest& request) {
    for (const auto& [name, value] :
         std::initializer_list<std::pair<const char*, const WCHAR*>>{{"length", W("1")},
                                                                     {"endCharacter", W("x")},
                                                                     {"endAtWhitespace", W("1")},
                                                                     {"separator", W("x")},
                                                                     {"item", W("1")},
                                                                     {"dateFormat", W("%Y")},
                                                                     {"naturalNumbers", W("1")},
                                                                     {"removeDuplicates", W("0")}}) {
      const WString before = Get(request, name);
      EXPECT_FALSE(Set(request, name, value)) << name;
      EXPECT_EQ(Get(request, name), before) << name;
    }
    EXPECT_TRUE(Set(request, "languageAware", W("1")));
    EXPECT_TRUE(Set(request, "naturalNumbers", W("1")));
    EXPECT_FALSE(Set(request, "ignoreCase", W("1")));
  });
}

TEST(SortLinesDlg, FieldsTakeTheirKindOfValueAlone) {
  SortLinesForm form = StartedForm();
  Show(form, [](Platform::FormRequest& request) {
    EXPECT_FALSE(Set(request, "keepLinesTop", W("x")));
    EXPECT_FALSE(Set(request, "keepLinesTop", W("-1")));
    EXPECT_FALSE(Set(request, "keepLinesTop", W("12345678901")));
    EXPECT_TRUE(Set(request, "keepLinesTop", W("1234567890")));
    EXPECT_TRUE(Set(request, "sortBy", W("item")));
    for (const char* number : {"keepLinesBottom", "startPosition", "item"}) {
      EXPECT_FALSE(Set(request, number, W("x"))) << number;
      EXPECT_FALSE(Set(request, number, W("12345678901"))) << number;
      EXPECT_TRUE(Set(request, number, W("1234567890"))) << number;
    }
    EXPECT_FALSE(Set(request, "reverse", W("yes")));
    EXPECT_FALSE(Set(request, "sortBy", W("2")));
    EXPECT_FALSE(Set(request, "saveAs", W("")));
    EXPECT_FALSE(Set(request, "targetName", WString(260, W('x'))));
    EXPECT_TRUE(Set(request, "sortBy", W("substring")));
    EXPECT_FALSE(Set(request, "length", W("1234567890")));
    EXPECT_TRUE(Set(request, "length", W("123456789")));
    EXPECT_TRUE(Set(request, "sortMethod", W("date")));
    EXPECT_FALSE(Set(request, "dateFormat", WString(129, W('x'))));
    EXPECT_TRUE(Set(request, "dateFormat", WString(128, W('x'))));
  });
}

TEST(SortLinesDlg, LimitedFieldsSayWhatTheyTake) {
  SortLinesForm form = StartedForm();
  Show(form, [](Platform::FormRequest& request) {
    for (const auto& [name, takes] : {std::pair{"keepLinesTop", "a number from 0 to 9999999999"},
                                      {"keepLinesBottom", "a number from 0 to 9999999999"},
                                      {"startPosition", "a number from 0 to 9999999999"},
                                      {"item", "a number from 0 to 9999999999"},
                                      {"length", "a number from 0 to 999999999"},
                                      {"targetName", "at most 259 characters"},
                                      {"dateFormat", "at most 128 characters"},
                                      {"endCharacter", "at most 1 character"},
                                      {"separator", ""},
                                      {"reverse", ""}}) {
      EXPECT_EQ(FieldOf(request, name).takes, takes) << name;
    }
    EXPECT_TRUE(Set(request, "targetName", WString(259, W('x'))));
  });
}

TEST(SortLinesDlg, WithoutAUserItIsCancelled) {
  Platform::UserInterface* const before = Platform::InstallUserInterface(nullptr);
  FakeHost host;
  SortLinesForm form = StartedForm();
  EXPECT_EQ(ShowSortLinesDlg(host, form), IDCANCEL);
  Platform::InstallUserInterface(before);
}

}  // namespace
}  // namespace WQLineSorter
