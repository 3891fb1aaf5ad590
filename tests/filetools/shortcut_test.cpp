// A new shortcut replaces an existing shortcut, but no other file.
#include "filetools/shortcut.h"

#include <gmock/gmock.h>

#include "support/read_shell_link.h"
#include "support/scratch_folder.h"

using testing::ElementsAre;

namespace {

class Shortcut : public testing::Test {
 protected:
  // Expects that no shortcut is created and that all files are unchanged.
  void ExpectRefused(const WString& link, const WString& target) {
    const std::vector<WString> names = scratch_.Names();
    EXPECT_FALSE(CreateShortcut(link, target, false)) << ToUtf8(link);
    EXPECT_EQ(scratch_.Names(), names) << ToUtf8(link);
    EXPECT_EQ(scratch_.Read(W("Makefile")), "all:\n") << ToUtf8(link);
  }

  const ScratchFolder scratch_;
  const ShellObjects shell_;
  const WString file_ = scratch_.Write(W("Makefile"), "all:\n");
};

}  // namespace

TEST_F(Shortcut, NeverTakesThePlaceOfItsTarget) {
  ExpectRefused(file_, file_);
  ExpectRefused(scratch_.Path(W("no\\..\\Makefile")), file_);
  ExpectRefused(file_, scratch_.Path(W(".\\Makefile")));
}

TEST_F(Shortcut, NeverTakesThePlaceOfAnotherFile) {
  const WString other = scratch_.Write(W("other"), "abc");
  ExpectRefused(file_, other);
  ExpectRefused(file_, scratch_.Path(W("nosuch")));
}

TEST_F(Shortcut, NeverTakesThePlaceOfAFileThatIsEmptyOrBeginsAlmostAsAShortcut) {
  using namespace std::string_literals;
  for (const std::string& content :
       {""s, "["s, "[Shortcut]"s, "[Shortcuts]\n"s, "L"s, "L\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0"s,
        "L\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x45 and more"s}) {
    const WString link = scratch_.Write(W("link.lnk"), content);
    EXPECT_FALSE(CreateShortcut(link, file_, false));
    EXPECT_EQ(scratch_.Read(W("link.lnk")), content);
  }
}

TEST_F(Shortcut, NeverTakesThePlaceOfAFolder) {
  const WString folder = scratch_.MakeFolder(W("folder"));
  ExpectRefused(folder, file_);
}

TEST_F(Shortcut, NeverTakesThePlaceOfASecondNameOfItsTarget) {
  const WString second = scratch_.Path(W("second"));
  ASSERT_TRUE(CreateHardLinkW(second.c_str(), file_.c_str(), nullptr));
  ExpectRefused(second, file_);
}

TEST_F(Shortcut, TakesThePlaceOfAnOlderOne) {
  const WString link = scratch_.Path(W("link.lnk"));
  const WString other = scratch_.Write(W("other"), "abc");
  ASSERT_TRUE(CreateShortcut(link, file_, false));
  EXPECT_TRUE(CreateShortcut(link, other, false));
  EXPECT_EQ(ReadShellLink(link).target, other);
}

TEST_F(Shortcut, ToAShortcutNeverTakesItsPlaceUnderAnyName) {
  const WString link = scratch_.Path(W("link.lnk"));
  ASSERT_TRUE(CreateShortcut(link, file_, false));
  const WString second = scratch_.Path(W("second.lnk"));
  ASSERT_TRUE(CreateHardLinkW(second.c_str(), link.c_str(), nullptr));
  EXPECT_FALSE(CreateShortcut(second, link, false));
  EXPECT_FALSE(CreateShortcut(link, link, false));
  EXPECT_EQ(ReadShellLink(link).target, file_);
}

TEST_F(Shortcut, ToItselfIsRefusedWhereNothingIsYet) {
  const WString link = scratch_.Path(W("link.lnk"));
  EXPECT_FALSE(CreateShortcut(link, link, false));
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("Makefile")));
}
