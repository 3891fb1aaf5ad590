// Which renames are decided without examining each name, and that their plan equals the one that examines
// each.
#include "host/rename/flat_renames.h"

#include <gmock/gmock.h>

#include <map>
#include <random>

#include "support/scratch_folder.h"

using testing::ElementsAre;

namespace QxHost {
namespace {

using Kind = FolderNames::Kind;

// A file system with one file for each name in each folder. Listing a folder may succeed or fail.
class ListedFiles final : public FileView {
 public:
  DWORD Look(const WString& fullPath) override {
    const std::size_t nameAt = fullPath.rfind(W('\\')) + 1;
    const auto folder = folders.find(fullPath.substr(0, nameAt));
    if (folder == folders.end()) return ERROR_PATH_NOT_FOUND;
    return folder->second.contains(fullPath.substr(nameAt)) ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
  }
  bool AreOneFile(const WString& left, const WString& right) override { return left == right; }
  bool IgnoresCaseInFolderOf(const WString&) override { return ignoresCase; }
  bool ReadNames(const WString& folder, std::size_t most, FolderNames& names) override {
    names.Clear();
    names.maxNameBytes = maxNameBytes;
    if (isUnreadable || folders[folder].size() > most) return false;
    for (const auto& [name, kind] : folders[folder]) names.Add(name, kind);
    return true;
  }

  std::map<WString, std::map<WString, Kind>> folders;
  bool ignoresCase = false;
  bool isUnreadable = false;
  std::size_t maxNameBytes = 255;
};

class FlatRenamesTest : public testing::Test {
 protected:
  // Renames a file of the folder with this number.
  void Rename(std::uint32_t folder, WStringView name, WStringView newName, DWORD refusal = 0) {
    while (wanted_.folders.size() <= folder) {
      wanted_.folders.push_back(W("Z:\\") + FromUtf8(std::to_string(wanted_.folders.size())) + W("\\"));
    }
    wanted_.rows.push_back({.folder = folder, .name = name, .newName = newName, .refusal = refusal});
    files_.folders[wanted_.folders[folder]].try_emplace(WString(name), Kind::kFile);
  }
  void Exists(std::uint32_t folder, WStringView name, Kind kind = Kind::kFile) {
    files_.folders[wanted_.folders[folder]][WString(name)] = kind;
  }
  std::vector<bool> Decided() { return DecideFlatRenames(wanted_, files_); }

  ListedFiles files_;
  WantedRenames wanted_;
};

TEST_F(FlatRenamesTest, FilesThatGetNewNamesAreDecided) {
  Rename(0, W("a"), W("b"));
  Rename(1, W("a"), W("b"));
  Rename(0, W("c"), W("d"));
  EXPECT_THAT(Decided(), ElementsAre(true, true, true));
}

TEST_F(FlatRenamesTest, ARefusedRenameIsNot) {
  Rename(0, W("a"), W("b"));
  Rename(0, W("c"), W("c"), 10);
  EXPECT_THAT(Decided(), ElementsAre(true, false));
}

TEST_F(FlatRenamesTest, AFolderWithCollidingNamesIsLeftToThePlan) {
  Rename(0, W("a"), W("x"));
  Rename(1, W("a"), W("B"));
  Exists(1, W("b"));
  Rename(2, W("a"), W("b"));
  Rename(2, W("b"), W("c"));
  Rename(3, W("a"), W("c"));
  Rename(3, W("b"), W("C"));
  Rename(4, W("a"), W("b"));
  Rename(4, W("a"), W("c"));
  EXPECT_THAT(Decided(), ElementsAre(true, false, false, false, false, false, false, false));
}

TEST_F(FlatRenamesTest, AChangeOfCaseIsDecidedWhereNamesAreCaseSensitive) {
  Rename(0, W("a"), W("A"));
  EXPECT_THAT(Decided(), ElementsAre(true));
  Exists(0, W("A"));
  EXPECT_THAT(Decided(), ElementsAre(false));
}

TEST_F(FlatRenamesTest, AFolderThatIsBlindToCaseIsLeftToThePlan) {
  Rename(0, W("a"), W("b"));
  files_.ignoresCase = true;
  EXPECT_THAT(Decided(), ElementsAre(false));
}

TEST_F(FlatRenamesTest, NothingIsDecidedWhereMoreThanFilesAreRenamed) {
  for (const Kind kind : {Kind::kFolder, Kind::kOther}) {
    wanted_ = {};
    Rename(0, W("a"), W("b"));
    Rename(1, W("d"), W("e"));
    Exists(1, W("d"), kind);
    EXPECT_THAT(Decided(), ElementsAre(false, false));
  }
}

TEST_F(FlatRenamesTest, NothingIsDecidedWhereAFileIsMissingOrAFolderCannotBeRead) {
  Rename(0, W("a"), W("b"));
  Rename(1, W("d"), W("e"));
  files_.folders[wanted_.folders[1]].clear();
  EXPECT_THAT(Decided(), ElementsAre(false, false));
  Exists(1, W("d"));
  EXPECT_THAT(Decided(), ElementsAre(true, true));
  files_.isUnreadable = true;
  EXPECT_THAT(Decided(), ElementsAre(false, false));
}

TEST_F(FlatRenamesTest, NothingIsDecidedWhereOneFolderMayHaveTwoSpellings) {
  Rename(0, W("a"), W("b"));
  Rename(1, W("a"), W("b"));
  wanted_.folders = {W("Z:\\d\\"), W("Z:\\D\\")};
  for (const WString& folder : wanted_.folders) files_.folders[folder][W("a")] = Kind::kFile;
  EXPECT_THAT(Decided(), ElementsAre(false, false));
}

TEST_F(FlatRenamesTest, ANameThatMayBeTooLongIsLeftToThePlan) {
  Rename(0, W("a"), W("\u00E9\u00E9"));
  files_.maxNameBytes = 4;
  EXPECT_THAT(Decided(), ElementsAre(true));
  files_.maxNameBytes = 3;
  EXPECT_THAT(Decided(), ElementsAre(false));
  wanted_.rows[0].newName = W("\xDC80");
  files_.maxNameBytes = 255;
  EXPECT_THAT(Decided(), ElementsAre(false));
}

// The same files, in folders that cannot be listed.
class ExaminedFiles final : public FileView {
 public:
  DWORD Look(const WString& fullPath) override { return disk_.Look(fullPath); }
  bool AreOneFile(const WString& left, const WString& right) override {
    return disk_.AreOneFile(left, right);
  }
  bool IgnoresCaseInFolderOf(const WString& fullPath) override {
    return disk_.IgnoresCaseInFolderOf(fullPath);
  }
  bool ReadNames(const WString&, std::size_t, FolderNames&) override { return false; }

 private:
  DiskView disk_;
};

TEST(FlatRenamesRandomTest, PlansAreTheSameAsWithALookupOfEachName) {
  std::mt19937 random(815);
  const auto below = [&random](std::size_t bound) { return static_cast<std::size_t>(random() % bound); };
  const WCHAR* const names[] = {W("a"),      W("b"),      W("A"), W("c"), W("ab"),
                                W("\u00E9"), W("\u00C9"), W("x"), W("y"), W("z")};
  int decided = 0;
  for (int tree = 0; tree < 40 && !testing::Test::HasFailure(); ++tree) {
    const ScratchFolder scratch;
    WantedRenames wanted;
    for (const WCHAR* folder : {W("p"), W("q"), W("r")}) {
      scratch.MakeFolder(folder);
      wanted.folders.push_back(scratch.Path(folder) + W("\\"));
      for (int file = 0; file < 4; ++file) scratch.Write(WString(folder) + W("\\") + names[below(7)], "");
    }
    for (int batch = 0; batch < 40 && !testing::Test::HasFailure(); ++batch) {
      wanted.rows.clear();
      std::string shown;
      for (std::uint32_t folder = 0; folder < 3; ++folder) {
        for (const WString& name : scratch.Names(WString(1, W("pqr")[folder]))) {
          if (below(4) == 0) continue;
          static const std::map<WString, WString> kept = [&names] {
            std::map<WString, WString> all;
            for (const WCHAR* each : names) all[each] = each;
            return all;
          }();
          const WString& newName = kept.at(names[below(10)]);
          const WString& oldName = kept.at(name);
          wanted.rows.push_back({.folder = folder,
                                 .name = oldName,
                                 .newName = newName,
                                 .isByPath = below(2) == 0,
                                 .refusal = oldName == newName ? DWORD{10} : DWORD{0}});
          shown += " " + std::to_string(folder) + "\\" + ToUtf8(oldName) + ">" + ToUtf8(newName);
        }
      }
      DiskView disk;
      ExaminedFiles examined;
      const RenamePlan plan = PlanRenames(wanted, disk);
      const RenamePlan expected = PlanRenames(wanted, examined);
      EXPECT_EQ(plan.results, expected.results) << shown;
      EXPECT_EQ(plan.folders, expected.folders) << shown;
      std::vector<std::uint32_t> order = plan.order;
      std::vector<std::uint32_t> expectedOrder = expected.order;
      std::ranges::sort(order);
      std::ranges::sort(expectedOrder);
      EXPECT_EQ(order, expectedOrder) << shown;
      EXPECT_EQ(plan.temporaryNames, expected.temporaryNames) << shown;
      for (const bool isDecided : DecideFlatRenames(wanted, disk)) decided += isDecided;
    }
  }
  // A listing of Windows does not contain short names, so there each name is examined by itself.
  EXPECT_EQ(decided > 1000, sizeof(wchar_t) != sizeof(WCHAR));
}

}  // namespace
}  // namespace QxHost
