// The form of Create Link as the native build passes it to the handler of dialogs: disabled fields cannot be
// changed, and a disabled button cannot be pressed.
#include "filetools/create_links_dlg.h"

#include <gmock/gmock.h>

#include <utility>

#include "support/dialog_answer.h"
#include "support/fake_host.h"

using testing::Contains;
using testing::ElementsAre;

namespace {

CreateLinksForm OneFile(int kind) {
  CreateLinksForm form;
  form.linkName = W("C:\\links\\a.txt");
  form.targetName = W("C:\\view\\a.txt");
  form.linkKind = kind;
  StartForm(form);
  return form;
}

// Shows the dialog and returns its result.
INT_PTR Show(CreateLinksForm& form, const DialogAnswer::Function& function) {
  FakeHost host;
  int asked = 0;
  const DialogAnswer answer([&](Platform::FormRequest& request) {
    ++asked;
    EXPECT_EQ(request.dialog, "CreateLinksDlg");
    EXPECT_EQ(request.title, W("T012C0064"));
    return function(request);
  });
  const INT_PTR result = ShowCreateLinksDlg(host, form);
  EXPECT_EQ(asked, 1);
  return result;
}

}  // namespace

TEST(CreateLinksDlg, HasTheKindByItsWordAndBothNames) {
  for (const auto& [kind, word] : {std::pair{1, "hard"}, {2, "junction"}, {3, "symbolic"}}) {
    CreateLinksForm form = OneFile(kind);
    Show(form, [word = std::string(word)](Platform::FormRequest& request) {
      EXPECT_THAT(ValuesOf(request), Contains("linkKind=" + word));
      EXPECT_EQ(Get(request, "linkName"), W("C:\\links\\a.txt"));
      EXPECT_EQ(Get(request, "targetName"), W("C:\\view\\a.txt"));
      return IDCANCEL;
    });
  }
  CreateLinksForm form = OneFile(4);
  Show(form, [](Platform::FormRequest& request) {
    EXPECT_THAT(ValuesOf(request), ElementsAre("linkKind=shortcut", "linkName=C:\\links\\a.lnk",
                                               "targetName=C:\\view\\a.txt", "description=", "status="));
    return IDCANCEL;
  });
}

TEST(CreateLinksDlg, OkTakesTheFields) {
  CreateLinksForm form = OneFile(1);
  EXPECT_EQ(Show(form,
                 [](Platform::FormRequest& request) {
                   EXPECT_TRUE(Set(request, "linkKind", W("symbolic")));
                   EXPECT_TRUE(Set(request, "linkName", W("D:\\x")));
                   EXPECT_TRUE(Set(request, "targetName", W("..\\y")));
                   return IDOK;
                 }),
            IDOK);
  EXPECT_EQ(form.linkKind, 3);
  EXPECT_EQ(form.linkName, W("D:\\x"));
  EXPECT_EQ(form.targetName, W("..\\y"));
}

TEST(CreateLinksDlg, TheNameOfAShortcutComesAndGoesWithItsKind) {
  CreateLinksForm form = OneFile(1);
  Show(form, [](Platform::FormRequest& request) {
    Set(request, "linkKind", W("shortcut"));
    EXPECT_EQ(Get(request, "linkName"), W("C:\\links\\a.lnk"));
    Set(request, "linkKind", W("hard"));
    EXPECT_EQ(Get(request, "linkName"), W("C:\\links\\a.txt"));
    return IDCANCEL;
  });
}

TEST(CreateLinksDlg, GreyFieldsTakeNothing) {
  CreateLinksForm form = OneFile(1);
  Show(form, [](Platform::FormRequest& request) {
    EXPECT_FALSE(Set(request, "targetName", W("x")));
    EXPECT_EQ(Get(request, "targetName"), W("C:\\view\\a.txt"));
    return IDCANCEL;
  });
  form.multiple = form.anyFile = true;
  StartForm(form);
  Show(form, [](Platform::FormRequest& request) {
    EXPECT_FALSE(Set(request, "linkName", W("x")));
    EXPECT_FALSE(Set(request, "targetName", W("x")));
    return IDCANCEL;
  });
}

TEST(CreateLinksDlg, TheDescriptionFollowsTheKind) {
  CreateLinksForm form = OneFile(1);
  Show(form, [](Platform::FormRequest& request) {
    const std::pair<const WCHAR*, const WCHAR*> kExpected[] = {{W("hard"), W("T01390064")},
                                                               {W("junction"), W("T013A0064")},
                                                               {W("symbolic"), W("T013B0064")},
                                                               {W("shortcut"), W("")}};
    for (const auto& [kind, description] : kExpected) {
      Set(request, "linkKind", kind);
      EXPECT_EQ(Get(request, "description"), description);
      EXPECT_FALSE(Set(request, "description", W("x")));
    }
    return IDCANCEL;
  });
}

TEST(CreateLinksDlg, TheStatusSaysWhyOkIsDisabled) {
  CreateLinksForm form = OneFile(2);
  Show(form, [](Platform::FormRequest& request) {
    EXPECT_EQ(Get(request, "status"), W("T00CB0065"));
    EXPECT_FALSE(request.isOkEnabled());
    EXPECT_FALSE(Set(request, "status", W("x")));
    Set(request, "linkKind", W("symbolic"));
    EXPECT_EQ(Get(request, "status"), W(""));
    EXPECT_TRUE(request.isOkEnabled());
    return IDCANCEL;
  });
  form.targetIsFolder = true;
  form.linkKind = 1;
  StartForm(form);
  Show(form, [](Platform::FormRequest& request) {
    EXPECT_EQ(Get(request, "status"), W("T00C90065"));
    EXPECT_FALSE(request.isOkEnabled());
    return IDCANCEL;
  });
}

TEST(CreateLinksDlg, OkThatIsDisabledIsNotPressed) {
  CreateLinksForm form = OneFile(2);
  ASSERT_FALSE(form.okEnabled);
  EXPECT_EQ(Show(form, [](Platform::FormRequest&) { return IDOK; }), IDCANCEL);
  EXPECT_EQ(form.linkName, W("C:\\links\\a.txt"));
}

TEST(CreateLinksDlg, AKindWithoutAWordIsRefused) {
  CreateLinksForm form = OneFile(1);
  Show(form, [](Platform::FormRequest& request) {
    for (const WCHAR* word : {W(""), W("1"), W("Hard"), W("hard "), W("softlink")}) {
      EXPECT_FALSE(Set(request, "linkKind", word)) << ToUtf8(word);
    }
    EXPECT_EQ(Get(request, "linkKind"), W("hard"));
    return IDCANCEL;
  });
}

TEST(CreateLinksDlg, WithoutARowItsWordIsEmptyAndOkEndsWithNoKind) {
  CreateLinksForm form = OneFile(7);
  EXPECT_EQ(Show(form,
                 [](Platform::FormRequest& request) {
                   EXPECT_EQ(Get(request, "linkKind"), W(""));
                   return IDOK;
                 }),
            IDOK);
  EXPECT_EQ(form.linkKind, -1);
}
