// Many independent renames, which two threads do in blocks.
#include "host/rename/independent_renames.h"

#include <gmock/gmock.h>

#include <map>

#include "host/rename/interruption.h"
#include "host/rename/rename_batch.h"
#include "platform/posix/files/faults.h"
#include "recorded_output.h"
#include "recorded_results.h"
#include "support/scratch_folder.h"

using testing::Each;

namespace QxHost {
namespace {

namespace Faults = Platform::Faults;
using namespace Velmora::SDK;

class IndependentRenames : public testing::Test {
 protected:
  ~IndependentRenames() override {
    Faults::Clear();
    // Clears the flag of the last watch, which the runs of other tests would read.
    const InterruptionWatch forget;
  }

  static WString NameOf(char kind, int number) {
    const std::string name = kind + std::to_string(number);
    return WString(name.begin(), name.end());
  }

  // Makes the files a0, a1, ... in that many folders: `run` in one, the next `run` in the next, and so on.
  void Make(int count, int folders, int run) {
    for (int folder = 0; folder < folders; ++folder) scratch_.MakeFolder(NameOf('f', folder));
    for (int number = 0; number < count; ++number) {
      folders_.push_back(NameOf('f', number / run % folders) + W("\\"));
      const std::string content = std::to_string(number);
      scratch_.Write(folders_.back() + NameOf('a', number), content);
      items_.push_back(tree_.Find(scratch_.Path(folders_.back() + NameOf('a', number))));
      batch_.AddByItem(items_.back(), NameOf('b', number).c_str(), items_.back());
    }
  }

  // The results of the callback, by row. They come in the order of the batch.
  std::vector<u32> Run(bool isDryRun = false) {
    FileOperation operation(tree_, *reporter_, recorded_.output, isDryRun);
    operation.ExpectIndependent();
    RecordedResults callback;
    operation.RunBatch(&batch_, &callback);
    std::vector<u32> results;
    for (const auto& [item, result] : callback.results) {
      EXPECT_EQ(item, items_[results.size()]) << "row " << results.size();
      results.push_back(result);
    }
    EXPECT_EQ(results.size(), items_.size());
    EXPECT_EQ(operation.LastResults(), results);
    return results;
  }

  // The content of the file of the row under its name of that kind; "none" if no such file exists.
  std::string ContentOf(char kind, std::size_t row) const {
    const WString path = folders_[row] + NameOf(kind, static_cast<int>(row));
    return scratch_.Exists(path) ? scratch_.Read(path) : "none";
  }

  // Expects each file and each item under the name that its result says.
  void ExpectNamesOf(const std::vector<u32>& results) const {
    for (std::size_t row = 0; row < results.size() && !HasFailure(); ++row) {
      const bool isRenamed = results[row] == 0;
      EXPECT_EQ(ContentOf(isRenamed ? 'b' : 'a', row), std::to_string(row));
      EXPECT_EQ(ContentOf(isRenamed ? 'a' : 'b', row), "none");
      EXPECT_EQ(items_[row]->Name(), NameOf(isRenamed ? 'b' : 'a', static_cast<int>(row)));
    }
  }

  ScratchFolder scratch_;
  FileItemTree tree_;
  RecordedOutput recorded_;
  const std::unique_ptr<Reporter> reporter_ = MakeJsonReporter(recorded_.output);
  std::vector<WString> folders_;  // by row, with a backslash at the end
  std::vector<FileItem*> items_;
  RenameBatch batch_;
};

// The count is larger than a block.
TEST_F(IndependentRenames, ManyInAFewFoldersAreReportedInTheirOrder) {
  Make(8500, 20, 7);
  const std::vector<u32> results = Run();
  EXPECT_THAT(results, Each(0u));
  ExpectNamesOf(results);
}

TEST_F(IndependentRenames, ManyInOneFolderAreReportedInTheirOrder) {
  Make(1500, 1, 1);
  const std::vector<u32> results = Run();
  EXPECT_THAT(results, Each(0u));
  ExpectNamesOf(results);
}

TEST_F(IndependentRenames, ADryRunRenamesNone) {
  Make(1500, 5, 3);
  EXPECT_THAT(Run(true), Each(0u));
  ExpectNamesOf(std::vector<u32>(1500, ERROR_CANCELLED));
}

TEST_F(IndependentRenames, OneThatFailsDoesNotStopTheOthersAndReplacesNothing) {
  Make(1500, 15, 1);
  for (std::size_t row = 3; row < 1500; row += 10) {
    scratch_.Write(folders_[row] + NameOf('b', static_cast<int>(row)), "later");
  }
  const std::vector<u32> results = Run();
  for (std::size_t row = 0; row < 1500; ++row) {
    const bool isTaken = row % 10 == 3;
    ASSERT_EQ(results[row], isTaken ? DWORD{ERROR_ALREADY_EXISTS} : 0u) << row;
    ASSERT_EQ(ContentOf('b', row), isTaken ? "later" : std::to_string(row));
    ASSERT_EQ(ContentOf('a', row), isTaken ? std::to_string(row) : "none");
  }
}

TEST_F(IndependentRenames, AfterAnInterruptionTheResultsSayWhatWasDone) {
  Make(3000, 30, 10);
  const InterruptionWatch watch;
  Faults::Before("MoveFileW", 700, Interrupt);
  const std::vector<u32> results = Run();
  const auto done = std::ranges::count(results, 0u);
  // Both threads may be within a rename.
  EXPECT_GE(done, 700);
  EXPECT_LE(done, 701);
  EXPECT_EQ(std::ranges::count(results, DWORD{ERROR_CANCELLED}), 3000 - done);
  ExpectNamesOf(results);
}

}  // namespace
}  // namespace QxHost
