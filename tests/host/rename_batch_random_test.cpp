// Random batches of renames and their reversal, compared with a reference model.
#include <gtest/gtest.h>

#include "random_batches.h"
#include "support/random_cases.h"

namespace QxHost {
namespace {

constexpr int kRandomBatches = RandomCases(10000);
constexpr int kBatchesOfATree = 50;

std::string TextOf(const PlainTree& before, const std::vector<PlainRename>& batch) {
  std::string text = "tree:";
  for (const auto& [path, content] : before) text += " " + ToUtf8(path) + (content == "/" ? "/" : "");
  text += "\nbatch:";
  for (const PlainRename& rename : batch) text += " " + ToUtf8(rename.path) + ">" + ToUtf8(rename.newName);
  return text;
}

TEST(RenameBatchRandomTest, BatchesGiveWhatAllRenamesAtOnceGiveAndComeBack) {
  RandomBatches batches(4711);
  std::size_t doneCount = 0;
  std::size_t refusedCount = 0;
  for (int tree = 0; tree < kRandomBatches / kBatchesOfATree && !testing::Test::HasFailure(); ++tree) {
    const PlainTree before = batches.MakeTree();
    ASSERT_EQ(batches.ReadTree(), before);
    for (int number = 0; number < kBatchesOfATree && !testing::Test::HasFailure(); ++number) {
      const std::vector<PlainRename> batch = batches.MakeBatch(before);
      SCOPED_TRACE(TextOf(before, batch));
      const PlainOutcome expected = batches.Model(before, batch);
      EXPECT_EQ(batches.RunItems(batch, true), expected.results) << "dry run";
      EXPECT_EQ(batches.RunItems(batch, false), expected.results);
      EXPECT_EQ(batches.ReadTree(), expected.tree);
      const std::vector<PlainRename> back = RandomBatches::Back(batch, expected.results);
      const std::vector<u32> allDone(back.size(), 0);
      EXPECT_EQ(batches.RunPaths(back, true), allDone) << "dry run, back";
      EXPECT_EQ(batches.RunPaths(back, false), allDone) << "back";
      EXPECT_EQ(batches.ReadTree(), before);
      doneCount += back.size();
      refusedCount += static_cast<std::size_t>(
          std::count(expected.results.begin(), expected.results.end(), u32{ERROR_ALREADY_EXISTS}));
    }
  }
  EXPECT_GT(doneCount, static_cast<std::size_t>(kRandomBatches));
  EXPECT_GT(refusedCount, static_cast<std::size_t>(kRandomBatches / 4));
}

}  // namespace
}  // namespace QxHost
