// Renames by the host: which are done, which are refused, and what is reported.
#include "host/rename/rename_batch.h"

#include <gmock/gmock.h>

#include "host/rename/planned_renames.h"
#include "platform/windows_api.h"
#include "recorded_output.h"
#include "recorded_results.h"
#include "support/scratch_folder.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

namespace QxHost {
namespace {

using namespace Velmora::SDK;

class RenameBatchTest : public testing::Test {
 protected:
  u32 RenameItem(WStringView name, const WCHAR* newName, bool dryRun = false) {
    FileOperation operation(tree_, *reporter_, recorded_.output, dryRun);
    IHostRenameBatch* const batch = operation.CreateRenameBatch();
    batch->AddByItem(tree_.Find(scratch_.Path(name)), newName, nullptr);
    operation.RunBatch(batch, nullptr);
    const u32 result = batch->At(0)->ResultCode();
    operation.ReleaseRenameBatch(batch);
    return result;
  }

  using Pairs = std::vector<std::pair<const WCHAR*, const WCHAR*>>;

  // Runs a batch of items, given by their names in the scratch folder and their new names. Returns the
  // results.
  std::vector<u32> Run(const Pairs& pairs, bool dryRun = false, bool inOrder = false) {
    return RunBoth(pairs, dryRun, inOrder, [&](IHostRenameBatch& batch, const auto& pair) {
      batch.AddByItem(tree_.Find(scratch_.Path(pair.first)), pair.second, nullptr);
    });
  }

  // Like Run, by paths, which need not exist.
  std::vector<u32> RunPaths(const Pairs& pairs, bool dryRun = false, bool inOrder = false) {
    return RunBoth(pairs, dryRun, inOrder, [&](IHostRenameBatch& batch, const auto& pair) {
      batch.AddByPath(scratch_.Path(pair.first).c_str(), pair.second, nullptr);
    });
  }

  template <typename Add>
  std::vector<u32> RunBoth(const Pairs& pairs, bool dryRun, bool inOrder, Add add) {
    FileOperation operation(tree_, *reporter_, recorded_.output, dryRun, inOrder);
    IHostRenameBatch* const batch = operation.CreateRenameBatch();
    for (const auto& pair : pairs) add(*batch, pair);
    RecordedResults callback;
    operation.RunPathBatch(batch, &callback);
    std::vector<u32> results;
    for (u32 index = 0; index < batch->Count(); ++index) results.push_back(batch->At(index)->ResultCode());
    std::vector<u32> called;
    for (const auto& [data, result] : callback.results) called.push_back(result);
    EXPECT_EQ(called, results);
    batch->Release();
    return results;
  }

  ScratchFolder scratch_;
  FileItemTree tree_;
  RecordedOutput recorded_;
  std::unique_ptr<Reporter> reporter_ = MakeJsonReporter(recorded_.output);
};

TEST_F(RenameBatchTest, AFileIsRenamedAndReported) {
  scratch_.Write(W("a.txt"), "content");
  EXPECT_EQ(RenameItem(W("a.txt"), W("b.txt")), 0u);
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("b.txt")));
  EXPECT_EQ(scratch_.Read(W("b.txt")), "content");
  EXPECT_THAT(recorded_.Out(), HasSubstr(R"("to":"b.txt","result":0})"));
}

TEST_F(RenameBatchTest, ANameThatStaysIsIgnored) {
  scratch_.Write(W("a.txt"), "");
  EXPECT_EQ(RenameItem(W("a.txt"), W("a.txt")), 10u);
  EXPECT_EQ(recorded_.problems, "");
}

TEST_F(RenameBatchTest, ANameThatCanBeNoneIsRefusedWithoutHarm) {
  scratch_.Write(W("a.txt"), "");
  scratch_.MakeFolder(W("dir"));
  for (const WCHAR* name : {W(""), W("."), W(".."), W("dir\\b"), W("dir/b"), W("b:c"), W("b*"), W("b\n")}) {
    EXPECT_EQ(RenameItem(W("a.txt"), name), u32{ERROR_INVALID_NAME}) << ToUtf8(name);
  }
  EXPECT_EQ(RenameItem(W("a.txt"), nullptr), u32{ERROR_INVALID_NAME});
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.txt"), W("dir")));
  EXPECT_THAT(recorded_.problems, HasSubstr("cannot rename"));
}

TEST_F(RenameBatchTest, ATargetThatExistsIsNotReplaced) {
  scratch_.Write(W("a"), "a");
  scratch_.Write(W("b"), "b");
  EXPECT_EQ(RenameItem(W("a"), W("b")), u32{ERROR_ALREADY_EXISTS});
  EXPECT_EQ(scratch_.Read(W("b")), "b");
  EXPECT_EQ(scratch_.Read(W("a")), "a");
}

TEST_F(RenameBatchTest, LetterCaseAloneCanChange) {
  scratch_.Write(W("a.txt"), "x");
  scratch_.MakeFolder(W("dir"));
  EXPECT_EQ(RenameItem(W("a.txt"), W("A.Txt")), 0u);
  EXPECT_EQ(RenameItem(W("dir"), W("DIR")), 0u);
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("A.Txt"), W("DIR")));
}

TEST_F(RenameBatchTest, AFileThatHasGoneFailsWithItsNumber) {
  scratch_.Write(W("a"), "");
  FileItem* const item = tree_.Find(scratch_.Path(W("a")));
  std::filesystem::remove(scratch_.NativePath(W("a")));
  FileOperation operation(tree_, *reporter_, recorded_.output, false);
  IHostRenameBatch* const batch = operation.CreateRenameBatch();
  batch->AddByItem(item, W("b"), nullptr);
  operation.RunBatch(batch, nullptr);
  EXPECT_EQ(batch->At(0)->ResultCode(), u32{ERROR_FILE_NOT_FOUND});
  EXPECT_THAT(recorded_.problems, HasSubstr("(2)"));
  batch->Release();
}

TEST_F(RenameBatchTest, RenamesPredictedAsIndependentAreNotPlannedAgainAndGiveTheSameResults) {
  for (const WCHAR* name : {W("a"), W("b"), W("c"), W("d")}) scratch_.Write(name, ToUtf8(name));
  std::vector<FileItem*> items;
  for (const WCHAR* name : {W("a"), W("b"), W("c"), W("d")}) items.push_back(tree_.Find(scratch_.Path(name)));
  const WCHAR* const newNames[] = {W("x"), W("b"), W("c*"), W("y. ")};
  std::vector<RenameToPredict> toPredict;
  for (std::size_t index = 0; index < items.size(); ++index)
    toPredict.push_back({items[index], newNames[index]});
  FolderListings listings;
  const PredictedRenames predicted = PredictRenames(toPredict, listings);
  EXPECT_THAT(predicted.results, ElementsAre(0u, 10u, ERROR_INVALID_NAME, 0u));

  FileOperation operation(tree_, *reporter_, recorded_.output, false);
  RenameBatch batch;
  for (std::size_t index = 0; index < items.size(); ++index)
    batch.AddByItem(items[index], newNames[index], nullptr);
  // A file that was created in the meantime is not replaced.
  scratch_.Write(W("x"), "later");
  operation.ExpectIndependent();
  operation.RunBatch(&batch, nullptr);
  EXPECT_THAT(operation.LastResults(), ElementsAre(ERROR_ALREADY_EXISTS, 10u, ERROR_INVALID_NAME, 0u));
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a"), W("b"), W("c"), W("x"), W("y")));
  EXPECT_EQ(scratch_.Read(W("x")), "later");
  EXPECT_EQ(items[3]->Name(), W("y"));
}

TEST_F(RenameBatchTest, TheBatchAfterAnIndependentOneIsPlannedAgain) {
  scratch_.Write(W("a"), "a");
  FileOperation operation(tree_, *reporter_, recorded_.output, false);
  RenameBatch first;
  first.AddByItem(tree_.Find(scratch_.Path(W("a"))), W("1"), nullptr);
  operation.ExpectIndependent();
  operation.RunBatch(&first, nullptr);
  scratch_.Write(W("2"), "2");
  RenameBatch chain;
  chain.AddByItem(tree_.Find(scratch_.Path(W("1"))), W("2"), nullptr);
  chain.AddByItem(tree_.Find(scratch_.Path(W("2"))), W("3"), nullptr);
  operation.RunBatch(&chain, nullptr);
  EXPECT_THAT(operation.LastResults(), ElementsAre(0u, 0u));
  EXPECT_EQ(scratch_.Read(W("2")), "a");
  EXPECT_EQ(scratch_.Read(W("3")), "2");
}

TEST_F(RenameBatchTest, DotsAndBlanksAtTheEndOfANewNameAreLeftOut) {
  scratch_.Write(W("a"), "");
  EXPECT_EQ(RenameItem(W("a"), W("b. .")), 0u);
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("b")));
  EXPECT_EQ(tree_.Find(scratch_.Path(W("b")))->Name(), W("b"));
  EXPECT_THAT(recorded_.Out(), HasSubstr(R"("to":"b","result":0})"));
  EXPECT_EQ(RenameItem(W("b"), W("b.")), 10u);
  EXPECT_EQ(RenameItem(W("b"), W(" . ")), u32{ERROR_INVALID_NAME});
}

TEST_F(RenameBatchTest, TheNamesOfABatchMoveUpByOneInOneRun) {
  for (const char* name : {"img1", "img2", "img3"}) scratch_.Write(FromUtf8(name), name);
  const auto run = [&](bool dryRun) {
    return Run({{W("img1"), W("img2")}, {W("img2"), W("img3")}, {W("img3"), W("img4")}}, dryRun);
  };
  EXPECT_THAT(run(true), ElementsAre(0u, 0u, 0u));
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("img1"), W("img2"), W("img3")));
  EXPECT_THAT(run(false), ElementsAre(0u, 0u, 0u));
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("img2"), W("img3"), W("img4")));
  EXPECT_EQ(scratch_.Read(W("img2")), "img1");
  EXPECT_EQ(scratch_.Read(W("img3")), "img2");
  EXPECT_EQ(scratch_.Read(W("img4")), "img3");
  // The reverse renames, by path.
  EXPECT_THAT(RunPaths({{W("img2"), W("img1")}, {W("img3"), W("img2")}, {W("img4"), W("img3")}}),
              ElementsAre(0u, 0u, 0u));
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("img1"), W("img2"), W("img3")));
  EXPECT_EQ(scratch_.Read(W("img3")), "img3");
}

TEST_F(RenameBatchTest, InOrderTheSameBatchIsTriedAsItComes) {
  const Pairs pairs = {{W("img1"), W("img2")}, {W("img2"), W("img3")}, {W("img3"), W("img4")}};
  for (const char* name : {"img1", "img2", "img3"}) scratch_.Write(FromUtf8(name), name);
  EXPECT_THAT(Run(pairs, true, true), ElementsAre(ERROR_ALREADY_EXISTS, ERROR_ALREADY_EXISTS, 0u));
  EXPECT_THAT(Run(pairs, false, true), ElementsAre(ERROR_ALREADY_EXISTS, ERROR_ALREADY_EXISTS, 0u));
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("img1"), W("img2"), W("img4")));
}

TEST_F(RenameBatchTest, TwoFilesSwapTheirNames) {
  scratch_.Write(W("a"), "a");
  scratch_.Write(W("b"), "b");
  EXPECT_THAT(Run({{W("a"), W("b")}, {W("b"), W("a")}}), ElementsAre(0u, 0u));
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a"), W("b")));
  EXPECT_EQ(scratch_.Read(W("a")), "b");
  EXPECT_EQ(scratch_.Read(W("b")), "a");
  EXPECT_EQ(recorded_.problems, "");
}

TEST_F(RenameBatchTest, NamesThatDifferInCaseAloneAreAsTheFileSystemTakesThem) {
  scratch_.Write(W("a"), "");
  scratch_.Write(W("b"), "");
  const bool ignoresCase = scratch_.Exists(W("A"));
  const u32 second = ignoresCase ? 183u : 0u;
  const Pairs pairs = {{W("a"), W("new")}, {W("b"), W("NEW")}};
  EXPECT_THAT(Run(pairs, true), ElementsAre(0u, second));
  EXPECT_THAT(Run(pairs), ElementsAre(0u, second));
  scratch_.Write(W("c"), "");
  EXPECT_THAT(Run({{W("c"), W("New")}, {W("new"), W("x")}}), ElementsAre(0u, 0u));
}

TEST_F(RenameBatchTest, AChangeOfCaseInAChainIsDone) {
  scratch_.Write(W("a"), "a");
  scratch_.Write(W("b"), "b");
  const Pairs pairs = {{W("a"), W("B")}, {W("b"), W("A")}};
  EXPECT_THAT(Run(pairs, true), ElementsAre(0u, 0u));
  EXPECT_THAT(Run(pairs), ElementsAre(0u, 0u));
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("A"), W("B")));
  EXPECT_EQ(scratch_.Read(W("A")), "b");
  EXPECT_EQ(scratch_.Read(W("B")), "a");
}

TEST_F(RenameBatchTest, ADryRunPredictsANameThatIsTooLong) {
  scratch_.Write(W("a"), "");
  const WString tooLong(256, W('x'));
  const std::vector<u32> dry = Run({{W("a"), tooLong.c_str()}}, true);
  EXPECT_THAT(dry, ElementsAre(ERROR_FILENAME_EXCED_RANGE));
  EXPECT_EQ(Run({{W("a"), tooLong.c_str()}}), dry);
  EXPECT_EQ(Run({{W("a"), tooLong.c_str()}}, false, true), dry);
}

TEST_F(RenameBatchTest, FilesInARenamedFolderGoFirstAndComeBackAfterIt) {
  scratch_.MakeFolder(W("dir\\sub"));
  scratch_.Write(W("dir\\sub\\a"), "a");
  scratch_.Write(W("dir\\b"), "b");
  EXPECT_THAT(Run({{W("dir"), W("dir2")},
                   {W("dir\\sub"), W("sub2")},
                   {W("dir\\sub\\a"), W("a2")},
                   {W("dir\\b"), W("b2")}}),
              ElementsAre(0u, 0u, 0u, 0u));
  EXPECT_THAT(scratch_.Names(W("dir2")), ElementsAre(W("b2"), W("sub2")));
  EXPECT_THAT(scratch_.Names(W("dir2\\sub2")), ElementsAre(W("a2")));
  const Pairs restore = {
      {W("dir2"), W("dir")}, {W("dir\\sub2"), W("sub")}, {W("dir\\sub\\a2"), W("a")}, {W("dir\\b2"), W("b")}};
  EXPECT_THAT(RunPaths(restore, true), ElementsAre(0u, 0u, 0u, 0u));
  EXPECT_THAT(RunPaths(restore), ElementsAre(0u, 0u, 0u, 0u));
  EXPECT_THAT(scratch_.Names(W("dir")), ElementsAre(W("b"), W("sub")));
  EXPECT_EQ(scratch_.Read(W("dir\\sub\\a")), "a");
}

TEST_F(RenameBatchTest, ARestoreBelowAFolderWhoseNameIsTakenIsRefused) {
  scratch_.MakeFolder(W("dir2"));
  scratch_.MakeFolder(W("dir"));
  scratch_.Write(W("dir2\\a2"), "");
  const Pairs restore = {{W("dir\\a2"), W("a")}, {W("dir2"), W("dir")}};
  EXPECT_THAT(RunPaths(restore, true), ElementsAre(ERROR_ALREADY_EXISTS, ERROR_ALREADY_EXISTS));
  EXPECT_THAT(RunPaths(restore), ElementsAre(ERROR_ALREADY_EXISTS, ERROR_ALREADY_EXISTS));
  EXPECT_THAT(scratch_.Names(W("dir2")), ElementsAre(W("a2")));
}

TEST_F(RenameBatchTest, AnItemInARenamedFolderHasItsNewPathAfterTheRun) {
  scratch_.MakeFolder(W("dir"));
  scratch_.Write(W("dir\\a"), "");
  FileItem* const file = tree_.Find(scratch_.Path(W("dir\\a")));
  EXPECT_THAT(Run({{W("dir"), W("other")}}), ElementsAre(0u));
  EXPECT_EQ(file->FullPath(), scratch_.Path(W("other\\a")));
}

TEST_F(RenameBatchTest, InOrderADryRunRefusesATargetThatExistsOrIsTaken) {
  for (const WCHAR* name : {W("a"), W("b"), W("c")}) scratch_.Write(name, "");
  const Pairs pairs = {{W("a"), W("b")},                    // exists
                       {W("b"), W("d")}, {W("c"), W("d")},  // d is taken
                       {W("a"), W("b")},                    // b is free again
                       {W("b"), W("D")},                    // only the case of its new name differs
                       {W("a"), W("a")}};                   // renamed back
  EXPECT_THAT(Run(pairs, true, true),
              ElementsAre(ERROR_ALREADY_EXISTS, 0u, ERROR_ALREADY_EXISTS, 0u, 0u, 0u));
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a"), W("b"), W("c")));
  EXPECT_THAT(Run(pairs, false, true),
              ElementsAre(ERROR_ALREADY_EXISTS, 0u, ERROR_ALREADY_EXISTS, 0u, 0u, 0u));
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("D"), W("a"), W("c")));
}

TEST_F(RenameBatchTest, InOrderADryRunFindsNoFileThatHasGone) {
  scratch_.Write(W("a"), "");
  tree_.Find(scratch_.Path(W("a")));
  std::filesystem::remove(scratch_.NativePath(W("a")));
  EXPECT_THAT(RunPaths({{W("a"), W("b")}}, true, true), ElementsAre(ERROR_FILE_NOT_FOUND));
  EXPECT_THAT(RunPaths({{W("a"), W("b")}}, false, true), ElementsAre(ERROR_FILE_NOT_FOUND));
}

TEST_F(RenameBatchTest, ADryRunReportsAndDoesNothing) {
  scratch_.Write(W("a"), "");
  EXPECT_EQ(RenameItem(W("a"), W("b"), true), 0u);
  EXPECT_EQ(RenameItem(W("a"), W("a"), true), 10u);
  EXPECT_EQ(RenameItem(W("a"), W("?"), true), u32{ERROR_INVALID_NAME});
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a")));
}

TEST_F(RenameBatchTest, EachResultIsReportedWithItsDataAndStoredInTheBatch) {
  scratch_.Write(W("a"), "");
  scratch_.Write(W("b"), "");
  int first = 0;
  int second = 0;
  FileOperation operation(tree_, *reporter_, recorded_.output, false);
  IHostRenameBatch* const batch = operation.CreateRenameBatch();
  batch->AddByItem(tree_.Find(scratch_.Path(W("a"))), W("b"), &first);
  batch->AddByItem(tree_.Find(scratch_.Path(W("b"))), W("c"), &second);
  EXPECT_EQ(batch->Count(), 0u);
  EXPECT_EQ(batch->At(0), nullptr);
  RecordedResults callback;
  operation.RunBatch(batch, &callback);
  EXPECT_THAT(callback.results, ElementsAre(Pair(&first, 0u), Pair(&second, 0u)));
  ASSERT_EQ(batch->Count(), 2u);
  EXPECT_EQ(batch->At(1)->UserData(), &second);
  EXPECT_EQ(batch->At(2), nullptr);
  batch->Release();
}

TEST_F(RenameBatchTest, PathsFollowAFolderThatTheSameBatchRenames) {
  scratch_.MakeFolder(W("dir"));
  scratch_.Write(W("dir\\a"), "");
  FileOperation operation(tree_, *reporter_, recorded_.output, false);
  IHostRenameBatch* const batch = operation.CreateRenameBatch();
  batch->AddByPath(scratch_.Path(W("dir")).c_str(), W("other"), nullptr);
  batch->AddByPath(scratch_.Path(W("dir\\a")).c_str(), W("b"), nullptr);
  RecordedResults callback;
  operation.RunPathBatch(batch, &callback);
  EXPECT_THAT(callback.results, ElementsAre(Pair(nullptr, 0u), Pair(nullptr, 0u)));
  EXPECT_THAT(scratch_.Names(W("other")), ElementsAre(W("b")));
  batch->Release();
}

TEST_F(RenameBatchTest, AFailedRenameIsRememberedAndANameThatStaysIsNone) {
  scratch_.Write(W("a"), "");
  scratch_.Write(W("b"), "");
  const auto fails = [this](const WCHAR* name, const WCHAR* newName, bool dryRun) {
    FileOperation operation(tree_, *reporter_, recorded_.output, dryRun);
    EXPECT_FALSE(operation.HasFailed());
    IHostRenameBatch* const batch = operation.CreateRenameBatch();
    batch->AddByItem(tree_.Find(scratch_.Path(name)), newName, nullptr);
    batch->AddByItem(tree_.Find(scratch_.Path(W("b"))), W("b"), nullptr);
    operation.RunBatch(batch, nullptr);
    batch->Release();
    return operation.HasFailed();
  };
  EXPECT_TRUE(fails(W("a"), W("b"), false));
  EXPECT_TRUE(fails(W("a"), W("b"), true));
  EXPECT_TRUE(fails(W("a"), W("*"), false));
  EXPECT_FALSE(fails(W("a"), W("a"), false));
  EXPECT_FALSE(fails(W("a"), W("a"), true));
  EXPECT_FALSE(fails(W("a"), W("c"), true));
  EXPECT_FALSE(fails(W("a"), W("c"), false));
}

// A dry run, so that nothing is renamed even if a host takes such a path for the current folder.
TEST_F(RenameBatchTest, ADriveAndWhatIsNoFullPathAreNotRenamed) {
  FileOperation operation(tree_, *reporter_, recorded_.output, true);
  IHostRenameBatch* const batch = operation.CreateRenameBatch();
  for (const WCHAR* path : {W("Z:\\"), W("Z:"), W("Z:a"), W("a"), W("."), W(""), W("\\")}) {
    batch->AddByPath(path, W("x"), nullptr);
  }
  batch->AddByPath(nullptr, W("x"), nullptr);
  operation.RunPathBatch(batch, nullptr);
  std::vector<u32> results;
  for (u32 index = 0; index < batch->Count(); ++index) results.push_back(batch->At(index)->ResultCode());
  std::vector<u32> expected(8, ERROR_BAD_PATHNAME);
  expected.front() = ERROR_ACCESS_DENIED;
  EXPECT_EQ(results, expected);
  batch->Release();
}

TEST_F(RenameBatchTest, FilesAreLookedUpByPath) {
  const WString path = scratch_.Write(W("a"), "");
  FileOperation operation(tree_, *reporter_, recorded_.output, false);
  EXPECT_NE(operation.FileExists(path.c_str()), 0);
  EXPECT_EQ(operation.FileExists(scratch_.Path(W("b")).c_str()), 0);
  EXPECT_EQ(operation.FileExists(nullptr), 0);
  ASSERT_NE(operation.GetFileItem(path.c_str(), 1), nullptr);
  EXPECT_EQ(operation.GetFileItem(scratch_.Path(W("b")).c_str(), 1), nullptr);
  EXPECT_EQ(operation.GetFileItem(W(""), 1), nullptr);
}

}  // namespace
}  // namespace QxHost
