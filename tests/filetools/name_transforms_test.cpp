// The name transforms by command number.
#include "filetools/name_transforms.h"

#include <gtest/gtest.h>

#include "filetools/transform_check.h"
#include "frame/host/command_numbers.h"

using namespace Velmora::SDK;

namespace {

// The numbers, which users' key assignments store.
constexpr s32 kTransforms[] = {30000, 30001, 30002, 30003, 30004, 30005, 30006, 30007,
                               30008, 30011, 30012, 30030, 30031, 30040, 30041, 30050};

}  // namespace

TEST(NameTransforms, ExistForTheirNumbersAlone) {
  for (const s32 number : kTransforms) EXPECT_NE(FindNameTransform(number), nullptr) << number;
  for (const s32 number : {29999, 30009, 30010, 30013, 30020, 30029, 30032, 30042, 30051, 30060, 0, -1}) {
    EXPECT_EQ(FindNameTransform(number), nullptr) << number;
  }
}

TEST(NameTransforms, UpperCaseTakesTheWholeName) {
  EXPECT_EQ(NewNameOf(kCommandUpperCase, W("Abc.Txt")), Name(W("ABC.TXT")));
  EXPECT_EQ(NewNameOf(kCommandUpperCase, W("stra\u00DFe \u00E4.txt")), Name(W("STRA\u00DFE \u00C4.TXT")));
  EXPECT_EQ(NewNameOf(kCommandUpperCase, W("no dot")), Name(W("NO DOT")));
  EXPECT_EQ(NewNameOf(kCommandUpperCase, W(".profile")), Name(W(".PROFILE")));
  EXPECT_EQ(NewNameOfFolder(kCommandUpperCase, W("My.Folder")), Name(W("MY.FOLDER")));
}

TEST(NameTransforms, NameAlreadyInUpperCaseStays) {
  EXPECT_EQ(NewNameOf(kCommandUpperCase, W("ABC.TXT")), std::nullopt);
  EXPECT_EQ(NewNameOf(kCommandUpperCase, W("123_-.9")), std::nullopt);
}

TEST(NameTransforms, LowerCaseTakesTheWholeName) {
  EXPECT_EQ(NewNameOf(kCommandLowerCase, W("ABC.Txt")), Name(W("abc.txt")));
  EXPECT_EQ(NewNameOfFolder(kCommandLowerCase, W("My.Folder")), Name(W("my.folder")));
  EXPECT_EQ(NewNameOf(kCommandLowerCase, W("abc.txt")), std::nullopt);
}

TEST(NameTransforms, UpperCaseOfTheBaseLeavesTheExtension) {
  EXPECT_EQ(NewNameOf(kCommandUpperCaseBase, W("a.bc.Txt")), Name(W("A.BC.Txt")));
  EXPECT_EQ(NewNameOf(kCommandUpperCaseBase, W("no dot")), Name(W("NO DOT")));
  EXPECT_EQ(NewNameOf(kCommandUpperCaseBase, W("ABC.txt")), std::nullopt);
  EXPECT_EQ(NewNameOf(kCommandUpperCaseBase, W(".profile")), std::nullopt);
  EXPECT_EQ(NewNameOfFolder(kCommandUpperCaseBase, W("my.folder")), Name(W("MY.FOLDER")));
}

TEST(NameTransforms, UpperCaseOfTheExtensionLeavesTheBase) {
  EXPECT_EQ(NewNameOf(kCommandUpperCaseExtension, W("a.bc.Txt")), Name(W("a.bc.TXT")));
  EXPECT_EQ(NewNameOf(kCommandUpperCaseExtension, W(".profile")), Name(W(".PROFILE")));
  EXPECT_EQ(NewNameOf(kCommandUpperCaseExtension, W("no dot")), std::nullopt);
  EXPECT_EQ(NewNameOf(kCommandUpperCaseExtension, W("abc.TXT")), std::nullopt);
  EXPECT_EQ(NewNameOf(kCommandUpperCaseExtension, W("abc.")), std::nullopt);
  EXPECT_EQ(NewNameOfFolder(kCommandUpperCaseExtension, W("my.folder")), std::nullopt);
}

TEST(NameTransforms, LowerCaseOfTheBaseLeavesTheExtension) {
  EXPECT_EQ(NewNameOf(kCommandLowerCaseBase, W("A.BC.Txt")), Name(W("a.bc.Txt")));
  EXPECT_EQ(NewNameOf(kCommandLowerCaseBase, W("abc.TXT")), std::nullopt);
  EXPECT_EQ(NewNameOfFolder(kCommandLowerCaseBase, W("My.Folder")), Name(W("my.folder")));
}

TEST(NameTransforms, LowerCaseOfTheExtensionLeavesTheBase) {
  EXPECT_EQ(NewNameOf(kCommandLowerCaseExtension, W("A.BC.Txt")), Name(W("A.BC.txt")));
  EXPECT_EQ(NewNameOf(kCommandLowerCaseExtension, W("ABC.txt")), std::nullopt);
  EXPECT_EQ(NewNameOf(kCommandLowerCaseExtension, W("ABC")), std::nullopt);
  EXPECT_EQ(NewNameOfFolder(kCommandLowerCaseExtension, W("My.Folder")), std::nullopt);
}

TEST(NameTransforms, TitleCaseOfTheBaseWithTheExtensionInLowerCase) {
  EXPECT_EQ(NewNameOf(kCommandTitleCase, W("hello-wORLD.TXT")), Name(W("Hello-World.txt")));
  EXPECT_EQ(NewNameOf(kCommandTitleCase, W("a--b.Txt")), Name(W("A--b.txt")));
  EXPECT_EQ(NewNameOf(kCommandTitleCase, W("one.two.THREE")), Name(W("One.Two.three")));
  EXPECT_EQ(NewNameOf(kCommandTitleCase, W("no dot")), Name(W("No Dot")));
  EXPECT_EQ(NewNameOf(kCommandTitleCase, W(".PROFILE")), Name(W(".profile")));
  EXPECT_EQ(NewNameOfFolder(kCommandTitleCase, W("my.FOLDER")), Name(W("My.Folder")));
  EXPECT_EQ(NewNameOf(kCommandTitleCase, W("_abc.txt")), std::nullopt);
  EXPECT_EQ(NewNameOf(kCommandTitleCase, W("Hello World.txt")), std::nullopt);
}

TEST(NameTransforms, TidyNameTurnsUnderscoresAndDotsToBlanksInTitleCase) {
  EXPECT_EQ(NewNameOf(kCommandTidyName, W("my_file.name.TXT")), Name(W("My File Name.txt")));
  EXPECT_EQ(NewNameOf(kCommandTidyName, W("MY__FILE.txt")), Name(W("My  file.txt")));
  EXPECT_EQ(NewNameOf(kCommandTidyName, W("a.T_X")), Name(W("A.t x")));
  EXPECT_EQ(NewNameOf(kCommandTidyName, W("a-b.txt")), Name(W("A-B.txt")));
  EXPECT_EQ(NewNameOf(kCommandTidyName, W("My File Name.txt")), std::nullopt);
  EXPECT_EQ(NewNameOf(kCommandTidyName, W(".profile")), std::nullopt);
}

TEST(NameTransforms, TidyNameAlwaysHasItsDot) {
  EXPECT_EQ(NewNameOf(kCommandTidyName, W("my_file")), Name(W("My File.")));
  EXPECT_EQ(NewNameOf(kCommandTidyName, W("My File")), Name(W("My File.")));
  EXPECT_EQ(NewNameOf(kCommandTidyName, W("My File.")), std::nullopt);
  EXPECT_EQ(NewNameOfFolder(kCommandTidyName, W("my_folder.d")), Name(W("My Folder D.")));
}

TEST(SwapTransforms, EachPairSwapsItsOwnCharacters) {
  EXPECT_EQ(NewNameOf(kCommandUnderscoresToBlanks, W("a_b c.d-e_f.t_x")), Name(W("a b c.d-e f.t_x")));
  EXPECT_EQ(NewNameOf(kCommandUnderscoresToDots, W("a_b c.d-e_f.t_x")), Name(W("a.b c.d-e.f.t_x")));
  EXPECT_EQ(NewNameOf(kCommandBlanksToUnderscores, W("a_b c.d-e f.t x")), Name(W("a_b_c.d-e_f.t x")));
  EXPECT_EQ(NewNameOf(kCommandBlanksToDots, W("a_b c.d-e f.t x")), Name(W("a_b.c.d-e.f.t x")));
  EXPECT_EQ(NewNameOf(kCommandDotsToUnderscores, W("a_b c.d-e.f.tx")), Name(W("a_b c_d-e_f.tx")));
  EXPECT_EQ(NewNameOf(kCommandDotsToBlanks, W("a_b c.d-e.f.tx")), Name(W("a_b c d-e f.tx")));
  EXPECT_EQ(NewNameOf(kCommandHyphensToBlanks, W("a_b c.d-e-f.t-x")), Name(W("a_b c.d e f.t-x")));
  EXPECT_EQ(NewNameOf(kCommandBlanksToHyphens, W("a_b c.d-e f.t x")), Name(W("a_b-c.d-e-f.t x")));
}

TEST(SwapTransforms, FolderIsScannedWholeAndAFileUpToItsLastDot) {
  EXPECT_EQ(NewNameOfFolder(kCommandBlanksToUnderscores, W("a b.c d")), Name(W("a_b.c_d")));
  EXPECT_EQ(NewNameOf(kCommandBlanksToUnderscores, W("a b.c d")), Name(W("a_b.c d")));
  EXPECT_EQ(NewNameOfFolder(kCommandDotsToUnderscores, W("a.b.txt")), Name(W("a_b_txt")));
  EXPECT_EQ(NewNameOf(kCommandDotsToUnderscores, W("a.b.txt")), Name(W("a_b.txt")));
  EXPECT_EQ(NewNameOfFolder(kCommandBlanksToHyphens, W("a b.c d")), Name(W("a-b.c-d")));
}

TEST(SwapTransforms, NameWithOneDotStaysUnderTheDotCommands) {
  EXPECT_EQ(NewNameOf(kCommandDotsToUnderscores, W("a.txt")), std::nullopt);
  EXPECT_EQ(NewNameOf(kCommandDotsToBlanks, W("a.txt")), std::nullopt);
  EXPECT_EQ(NewNameOf(kCommandDotsToUnderscores, W("a.")), std::nullopt);
  EXPECT_EQ(NewNameOf(kCommandDotsToUnderscores, W("a..")), Name(W("a_.")));
}

TEST(SwapTransforms, FileWithoutADotIsScannedWhole) {
  EXPECT_EQ(NewNameOf(kCommandUnderscoresToBlanks, W("a_b")), Name(W("a b")));
  EXPECT_EQ(NewNameOf(kCommandBlanksToDots, W("a b c")), Name(W("a.b.c")));
  EXPECT_EQ(NewNameOf(kCommandHyphensToBlanks, W("-a-")), Name(W(" a ")));
}

TEST(SwapTransforms, NameThatBeginsWithItsOnlyDotIsAllExtension) {
  EXPECT_EQ(NewNameOf(kCommandDotsToUnderscores, W(".a_b")), std::nullopt);
  EXPECT_EQ(NewNameOf(kCommandUnderscoresToBlanks, W(".a_b")), std::nullopt);
  EXPECT_EQ(NewNameOf(kCommandDotsToUnderscores, W(".a.b")), Name(W("_a.b")));
  EXPECT_EQ(NewNameOfFolder(kCommandUnderscoresToBlanks, W(".a_b")), Name(W(".a b")));
}

TEST(SwapTransforms, NameWithoutTheCharacterStays) {
  for (const s32 number :
       {kCommandUnderscoresToBlanks, kCommandUnderscoresToDots, kCommandBlanksToUnderscores,
        kCommandBlanksToDots, kCommandHyphensToBlanks, kCommandBlanksToHyphens}) {
    EXPECT_EQ(NewNameOf(number, W("abc.txt")), std::nullopt) << number;
  }
}

TEST(NameTransforms, EmptyNameGivesNoNewNameButTheDotOfTidying) {
  for (const s32 number : kTransforms) {
    if (number == kCommandTidyName) continue;
    EXPECT_EQ(NewNameOf(number, W("")), std::nullopt) << number;
    EXPECT_EQ(NewNameOfFolder(number, W("")), std::nullopt) << number;
  }
  EXPECT_EQ(NewNameOf(kCommandTidyName, W("")), Name(W(".")));
}

TEST(NameTransforms, LongNamesThatFitAreTransformedWhole) {
  const WString base(2000, W('a'));
  EXPECT_EQ(NewNameOf(kCommandUpperCase, base + W(".b")), WString(2000, W('A')) + W(".B"));
  EXPECT_EQ(NewNameOf(kCommandUpperCaseBase, base + W(".b")), WString(2000, W('A')) + W(".b"));
  EXPECT_EQ(NewNameOf(kCommandTitleCase, base + W(".B")), W("A") + WString(1999, W('a')) + W(".b"));
  EXPECT_EQ(NewNameOf(kCommandBlanksToUnderscores, base + W(" .b")), base + W("_.b"));
}

TEST(NameTransforms, NamesBeyondTheBuffersStayWithinThem) {
  for (const s32 number : kTransforms) {
    for (const std::size_t length : {2047u, 2048u, 2049u, 4095u, 4096u, 4097u, 5000u}) {
      const WString names[] = {WString(length, W('a')), WString(length, W('_')), WString(length, W('.')),
                               WString(length, W(' ')) + W(".x"), W("b.") + WString(length, W('x'))};
      for (const WString& name : names) {
        for (const bool folder : {false, true}) {
          const auto newName = NewNameOf(number, name, folder);
          EXPECT_LE(newName.value_or(W("")).size(), name.size() + 1) << number << ", " << length;
        }
      }
    }
  }
}
