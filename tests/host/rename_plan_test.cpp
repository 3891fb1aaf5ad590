// The plan of a rename batch over imaginary files: which renames are refused, and in which order the others
// run.
#include "host/rename/rename_plan.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <set>

#include "host/rename/temporary_name.h"
#include "platform/windows_api.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace QxHost {
namespace {

class MadeUpFiles final : public FileView {
 public:
  DWORD Look(const WString& fullPath) override {
    ++looks;
    if (const auto error = errors.find(fullPath); error != errors.end()) return error->second;
    return Find(fullPath).empty() ? ERROR_FILE_NOT_FOUND : ERROR_SUCCESS;
  }
  bool AreOneFile(const WString& left, const WString& right) override { return Find(left) == Find(right); }
  bool IgnoresCaseInFolderOf(const WString&) override { return ignoresCase; }
  bool ReadNames(const WString&, std::size_t, FolderNames&) override { return false; }

  std::set<WString> paths;
  std::map<WString, DWORD> errors;
  bool ignoresCase = false;
  int looks = 0;

 private:
  // Returns the path in its original case, or an empty string if the file does not exist.
  WString Find(const WString& fullPath) const {
    if (paths.contains(fullPath)) return fullPath;
    if (!ignoresCase) return {};
    const auto found = std::find_if(paths.begin(), paths.end(), [&](const WString& path) {
      return InUpperCase(path) == InUpperCase(fullPath);
    });
    return found == paths.end() ? WString() : *found;
  }
};

class RenamePlanTest : public testing::Test {
 protected:
  // Paths are relative to Z:\.
  void Exist(std::initializer_list<const char*> paths) {
    for (const char* path : paths) files_.paths.insert(W("Z:\\") + FromUtf8(path));
  }

  void Item(const char* path, const char* newName) { Add(path, newName, false); }
  void Path(const char* path, const char* newName) { Add(path, newName, true); }

  // Stores the planned renames as "old path>new name", with a temporary name in the first step of a cycle,
  // and the results.
  void Plan() {
    for (const Texts& texts : texts_) {
      const std::size_t nameAt = texts.path.rfind(W('\\')) + 1;
      wanted_.folders.push_back(texts.path.substr(0, nameAt));
    }
    for (std::uint32_t row = 0; row < texts_.size(); ++row) {
      const Texts& texts = texts_[row];
      wanted_.rows.push_back({.folder = row,
                              .name = WStringView(texts.path).substr(wanted_.folders[row].size()),
                              .newName = texts.newName,
                              .isByPath = texts.isByPath,
                              .refusal = texts.refusal});
    }
    plan_ = PlanRenames(wanted_, files_);
    for (const RenameChain& chain : plan_.chains) {
      const auto begin = plan_.order.begin() + chain.first;
      const auto end = begin + chain.count;
      if (chain.temporaryName != kNoRow) {
        steps_.push_back(Step(*(end - 1), plan_.temporaryNames[chain.temporaryName]));
      }
      for (auto row = begin; row != end; ++row) steps_.push_back(Step(*row, wanted_.rows[*row].newName));
    }
  }

  struct Texts {
    WString path;
    WString newName;
    bool isByPath;
    DWORD refusal = 0;
  };

  void Add(const char* path, const char* newName, bool isByPath) {
    texts_.push_back({W("Z:\\") + FromUtf8(path), FromUtf8(newName), isByPath});
  }

  std::string Step(std::uint32_t row, WStringView newName) const {
    const std::uint32_t folder = plan_.folders[row];
    const std::size_t count = wanted_.folders.size();
    const WString& path = folder < count ? wanted_.folders[folder] : plan_.otherFolders[folder - count];
    return ToUtf8(path.substr(3)) + ToUtf8(wanted_.rows[row].name) + ">" + ToUtf8(newName);
  }

  MadeUpFiles files_;
  std::vector<Texts> texts_;
  WantedRenames wanted_;
  RenamePlan plan_;
  std::vector<std::string> steps_;
};

TEST_F(RenamePlanTest, RenamesThatTouchNoOtherGoInTheOrderOfTheBatch) {
  Exist({"c", "a", "d\\b"});
  Item("c", "1");
  Item("a", "2");
  Item("d\\b", "3");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("c>1", "a>2", "d\\b>3"));
  EXPECT_THAT(plan_.results, ElementsAre(0u, 0u, 0u));
}

TEST_F(RenamePlanTest, AChainRunsFromItsFreeEnd) {
  Exist({"1", "2", "3"});
  Item("2", "3");
  Item("1", "2");
  Item("3", "4");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("3>4", "2>3", "1>2"));
  EXPECT_THAT(plan_.results, ElementsAre(0u, 0u, 0u));
}

TEST_F(RenamePlanTest, ACycleGoesThroughOneTemporaryName) {
  Exist({"a", "b", "c"});
  Item("a", "b");
  Item("b", "c");
  Item("c", "a");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("a>a.qxhost-tmp", "c>a", "b>c", "a>b"));
  EXPECT_THAT(plan_.results, ElementsAre(0u, 0u, 0u));
}

TEST_F(RenamePlanTest, ATemporaryNameIsOneThatNoFileHasOrIsToHave) {
  Exist({"a", "b", "a.QXHOST-TMP2", "a.qxhost-tmp", "x"});
  files_.ignoresCase = true;
  Item("a", "b");
  Item("b", "a");
  Item("x", "a.qxhost-tmp3");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("a>a.qxhost-tmp4", "b>a", "a>b", "x>a.qxhost-tmp3"));
}

TEST_F(RenamePlanTest, ANameThatAFileKeepsIsRefusedAndSoIsWhatWaitsForIt) {
  Exist({"a", "b", "c", "x"});
  Item("a", "b");
  Item("b", "c");
  Item("c", "x");
  Plan();
  EXPECT_THAT(steps_, IsEmpty());
  EXPECT_THAT(plan_.results, ElementsAre(ERROR_ALREADY_EXISTS, ERROR_ALREADY_EXISTS, ERROR_ALREADY_EXISTS));
}

TEST_F(RenamePlanTest, OfTwoRenamesToOneNameTheFirstGetsIt) {
  Exist({"a", "b", "c"});
  Item("a", "x");
  Item("b", "x");
  Item("c", "b");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("a>x"));
  EXPECT_THAT(plan_.results, ElementsAre(0u, ERROR_ALREADY_EXISTS, ERROR_ALREADY_EXISTS));
}

TEST_F(RenamePlanTest, TheFirstOfTwoRenamesBreaksACycleThatTheSecondIsIn) {
  Exist({"a", "b", "c"});
  Item("a", "b");
  Item("b", "c");
  Item("c", "b");
  Plan();
  EXPECT_THAT(plan_.results, ElementsAre(ERROR_ALREADY_EXISTS, ERROR_ALREADY_EXISTS, ERROR_ALREADY_EXISTS));
}

TEST_F(RenamePlanTest, OfTwoRenamesOfOneFileTheFirstCounts) {
  Exist({"a", "b", "y"});
  Item("a", "x");
  Item("a", "z");
  Item("a", "x");
  Item("b", "y");
  Item("b", "q");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("a>x"));
  EXPECT_THAT(plan_.results,
              ElementsAre(0u, ERROR_FILE_NOT_FOUND, 10u, ERROR_ALREADY_EXISTS, ERROR_ALREADY_EXISTS));
}

TEST_F(RenamePlanTest, WhatIsDecidedAlreadyTakesNoPartAndKeepsItsName) {
  Exist({"a", "b"});
  Item("a", "*");
  Item("b", "a");
  texts_.front().refusal = ERROR_INVALID_NAME;
  Plan();
  EXPECT_THAT(plan_.results, ElementsAre(ERROR_INVALID_NAME, ERROR_ALREADY_EXISTS));
}

TEST_F(RenamePlanTest, AFileThatHasGoneTakesNoName) {
  Exist({"b"});
  Item("a", "x");
  Item("b", "x");
  Plan();
  EXPECT_THAT(plan_.results, ElementsAre(ERROR_FILE_NOT_FOUND, 0u));
}

TEST_F(RenamePlanTest, ANameThatTheSystemRefusesHasItsNumber) {
  Exist({"a", "b"});
  files_.errors[W("Z:\\long")] = ERROR_FILENAME_EXCED_RANGE;
  Item("a", "long");
  Item("b", "a");
  Plan();
  EXPECT_THAT(plan_.results, ElementsAre(ERROR_FILENAME_EXCED_RANGE, ERROR_ALREADY_EXISTS));
}

TEST_F(RenamePlanTest, TheCurrentFolderAndThoseAboveItStay) {
  Exist({"a", "a\\b", "a\\bb", "c"});
  wanted_.currentFolder = W("Z:\\a\\b");
  Item("a", "x");
  Item("a\\b", "x");
  Item("a\\bb", "y");
  Item("c", "a");
  Plan();
  EXPECT_THAT(plan_.results,
              ElementsAre(ERROR_SHARING_VIOLATION, ERROR_SHARING_VIOLATION, 0u, ERROR_ALREADY_EXISTS));
}

TEST_F(RenamePlanTest, NamesThatDifferInCaseAloneAreTwoWhereTheFileSystemSaysSo) {
  Exist({"a", "A", "b", "c", "d"});
  Item("a", "x");
  Item("b", "A");
  Item("c", "new");
  Item("d", "NEW");
  Plan();
  EXPECT_THAT(plan_.results, ElementsAre(0u, ERROR_ALREADY_EXISTS, 0u, 0u));
}

TEST_F(RenamePlanTest, NamesThatDifferInCaseAloneAreOneWhereTheFileSystemSaysSo) {
  files_.ignoresCase = true;
  Exist({"a", "b", "c", "d"});
  Item("a", "x");
  Item("b", "A");
  Item("c", "new");
  Item("d", "NEW");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("a>x", "b>A", "c>new"));
  EXPECT_THAT(plan_.results, ElementsAre(0u, 0u, 0u, ERROR_ALREADY_EXISTS));
}

TEST_F(RenamePlanTest, ACycleOfNamesThatDifferInCaseIsFound) {
  files_.ignoresCase = true;
  Exist({"a", "b"});
  Item("a", "B");
  Item("b", "A");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("a>a.qxhost-tmp", "b>A", "a>B"));
}

TEST_F(RenamePlanTest, AChangeOfCaseNeedsNoOtherName) {
  files_.ignoresCase = true;
  Exist({"a", "b"});
  Item("b", "a");
  Item("a", "A");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("a>A"));
  EXPECT_THAT(plan_.results, ElementsAre(ERROR_ALREADY_EXISTS, 0u));
}

TEST_F(RenamePlanTest, FilesGoBeforeTheFolderThatTheyAreIn) {
  Exist({"d", "d\\e", "d\\e\\a", "d\\b", "c"});
  Item("d", "D2");
  Item("c", "C2");
  Item("d\\e", "E2");
  Item("d\\e\\a", "A2");
  Item("d\\b", "B2");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("d\\e\\a>A2", "d\\e>E2", "d\\b>B2", "d>D2", "c>C2"));
}

TEST_F(RenamePlanTest, FilesGoBeforeAChainOfFolders) {
  Exist({"1", "1\\a", "2", "2\\b"});
  Item("1", "2");
  Item("2", "3");
  Path("1\\a", "A2");
  Item("2\\b", "B2");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("1\\a>A2", "2\\b>B2", "2>3", "1>2"));
}

TEST_F(RenamePlanTest, AFileThatDoesNotMoveIsNoReasonToRefuseItsFolder) {
  Exist({"d", "d\\a", "d\\b"});
  Item("d", "e");
  Item("d\\a", "b");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("d>e"));
  EXPECT_THAT(plan_.results, ElementsAre(0u, ERROR_ALREADY_EXISTS));
}

TEST_F(RenamePlanTest, PathsBelowTheLaterNameOfAFolderGoAfterIt) {
  Exist({"new", "new\\sub2", "new\\sub2\\a2", "new\\b2"});
  Path("old\\sub\\a2", "a");
  Path("old\\b2", "b");
  Path("old\\sub2", "sub");
  Path("new", "old");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("new>old", "new\\b2>b", "new\\sub2>sub", "new\\sub2\\a2>a"));
  EXPECT_THAT(plan_.results, ElementsAre(0u, 0u, 0u, 0u));
}

TEST_F(RenamePlanTest, AFolderIsSpelledAsItsOwnRenameHasItWhateverNameComesFirst) {
  files_.ignoresCase = true;
  Exist({"B", "a", "a\\d"});
  Path("B", "A");
  Path("a", "c");
  Path("c\\d", "e");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("a>c", "B>A", "a\\d>e"));
}

TEST_F(RenamePlanTest, AllPathsBelowAFolderHaveTheSpellingOfItsRename) {
  files_.ignoresCase = true;
  Exist({"a", "a\\a", "a\\a\\A"});
  Path("A\\d\\A", "b");
  Path("A\\a", "d");
  Path("a", "A");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("a\\a>d", "a\\a\\A>b", "a>A"));
}

TEST_F(RenamePlanTest, PathsBelowAFolderThatIsRefusedAreRefused) {
  Exist({"new", "new\\a2", "old", "new\\c"});
  Path("old\\a2", "a");
  Path("old\\c", "a2");
  Path("new", "old");
  Plan();
  EXPECT_THAT(steps_, IsEmpty());
  EXPECT_THAT(plan_.results, ElementsAre(ERROR_ALREADY_EXISTS, ERROR_ALREADY_EXISTS, ERROR_ALREADY_EXISTS));
}

TEST_F(RenamePlanTest, PathsBelowFoldersThatSwapTheirNamesAreThoseAfterTheSwap) {
  Exist({"x", "x\\2", "x\\3", "y", "y\\2"});
  Path("y\\3", "1");
  Path("y\\2", "0");
  Path("x\\2", "1");
  Path("x", "y");
  Path("y", "x");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("x>x.qxhost-tmp", "y>x", "x>y", "x\\3>1", "x\\2>0", "y\\2>1"));
}

TEST_F(RenamePlanTest, APathThatExistsOnlyAsItIsGoesBeforeItsFolder) {
  Exist({"x", "x\\a", "y"});
  Path("x", "y");
  Path("x\\a", "b");
  Path("y", "x");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("x\\a>b", "x>x.qxhost-tmp", "y>x", "x>y"));
}

TEST_F(RenamePlanTest, AnItemIsWhereItIsWhateverItsFolderIsToBeCalled) {
  Exist({"x", "x\\a", "y", "y\\a"});
  Item("x", "y");
  Item("y", "x");
  Item("x\\a", "b");
  Plan();
  EXPECT_THAT(steps_, ElementsAre("x\\a>b", "x>x.qxhost-tmp", "y>x", "x>y"));
}

TEST_F(RenamePlanTest, EachNameIsLookedForOnce) {
  constexpr int kFiles = 100;
  for (int number = 0; number < kFiles; ++number) {
    const std::string name = std::to_string(number);
    Exist({name.c_str()});
    Item(name.c_str(), std::to_string(number + 1).c_str());
  }
  Plan();
  EXPECT_THAT(plan_.results, testing::Each(0u));
  EXPECT_LE(files_.looks, 2 * kFiles);
}

TEST_F(RenamePlanTest, NoDepthOfFoldersAndNoLengthOfAChainIsTooMuch) {
  std::string path;
  constexpr int kDepth = 500;
  for (int depth = 0; depth < kDepth; ++depth) {
    path += depth == 0 ? "d" : "\\d";
    files_.paths.insert(W("Z:\\") + FromUtf8(path));
    Item(path.c_str(), "e");
  }
  constexpr int kFiles = 50000;
  for (int number = 0; number < kFiles; ++number) {
    files_.paths.insert(W("Z:\\") + FromUtf8(std::to_string(number)));
    Item(std::to_string(number).c_str(), std::to_string((number + 1) % kFiles).c_str());
  }
  Plan();
  ASSERT_EQ(steps_.size(), std::size_t{kDepth + kFiles + 1});
  EXPECT_EQ(steps_[kDepth - 1], "d>e");
  EXPECT_EQ(steps_[kDepth], "0>0.qxhost-tmp");
  EXPECT_EQ(steps_[kDepth + 1], "49999>0");
}

TEST(TemporaryNameTest, ShowsWhatTheFileWas) {
  EXPECT_EQ(ToUtf8(TemporaryName(W("a.txt"), 1)), "a.txt.qxhost-tmp");
  EXPECT_EQ(ToUtf8(TemporaryName(W("a.txt"), 12)), "a.txt.qxhost-tmp12");
}

TEST(TemporaryNameTest, OfALongNameTheEndIsLeftOut) {
  EXPECT_EQ(TemporaryName(WString(244, W('a')), 1), WString(244, W('a')) + W(".qxhost-tmp"));
  EXPECT_EQ(TemporaryName(WString(245, W('a')), 1), WString(244, W('a')) + W(".qxhost-tmp"));
  // Characters of two bytes each, then of four bytes, which are never split.
  EXPECT_EQ(TemporaryName(WString(200, W('\u00E4')), 1), WString(122, W('\u00E4')) + W(".qxhost-tmp"));
  WString emoji;
  for (int count = 0; count < 62; ++count) emoji += W("\U0001F600");
  EXPECT_EQ(TemporaryName(emoji, 1), emoji.substr(0, 122) + W(".qxhost-tmp"));
}

}  // namespace
}  // namespace QxHost
