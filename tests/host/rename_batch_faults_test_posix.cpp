// A batch whose renames fail at any step: no file is lost, and each file that was not renamed has its old
// name.
#include <gmock/gmock.h>

#include "platform/posix/files/faults.h"
#include "random_batches.h"

using testing::HasSubstr;

namespace QxHost {
namespace {

using Platform::Faults::Fail;

constexpr int kFaultyBatches = 100;

std::vector<std::string> ContentsOf(const PlainTree& tree) {
  std::vector<std::string> contents;
  for (const auto& [path, content] : tree) contents.push_back(content);
  std::sort(contents.begin(), contents.end());
  return contents;
}

// Returns the number of MoveFileW calls of a batch.
int MovesOf(RandomBatches& batches, const std::vector<PlainRename>& batch) {
  const Platform::Faults::Scope scope;
  Platform::Faults::Watch("MoveFileW");
  batches.RunItems(batch, false);
  return Platform::Faults::CallCount("MoveFileW");
}

// Returns the tree in which exactly the files with result 0 have their new names.
PlainTree TreeOf(RandomBatches& batches, const PlainTree& before, std::vector<PlainRename> batch,
                 const std::vector<u32>& results) {
  std::vector<PlainRename> done;
  for (std::size_t row = 0; row < batch.size(); ++row) {
    if (results[row] == 0) done.push_back(batch[row]);
  }
  return batches.Model(before, done).tree;
}

TEST(RenameBatchFaultTest, AStepThatFailsLeavesItsFileAndThoseThatWaitWhereTheyWere) {
  RandomBatches batches(815);
  for (int number = 0; number < kFaultyBatches && !testing::Test::HasFailure(); ++number) {
    const PlainTree before = batches.MakeTree();
    const std::vector<PlainRename> batch = batches.MakeBatch(before);
    const int moves = MovesOf(batches, batch);
    for (int step = 1; step <= moves; ++step) {
      batches.WriteTree(before);
      const Platform::Faults::Scope scope;
      Fail("MoveFileW", step, ERROR_ACCESS_DENIED);
      const std::vector<u32> results = batches.RunItems(batch, false);
      EXPECT_THAT(results, testing::Contains(u32{ERROR_ACCESS_DENIED}));
      EXPECT_EQ(batches.ReadTree(), TreeOf(batches, before, batch, results));
    }
  }
}

TEST(RenameBatchFaultTest, ARunThatIsKilledAtAnyStepLosesNoContent) {
  RandomBatches batches(816);
  for (int number = 0; number < kFaultyBatches && !testing::Test::HasFailure(); ++number) {
    const PlainTree before = batches.MakeTree();
    const std::vector<PlainRename> batch = batches.MakeBatch(before);
    const int moves = MovesOf(batches, batch);
    for (int step = 1; step <= moves; ++step) {
      batches.WriteTree(before);
      const Platform::Faults::Scope scope;
      Fail("MoveFileW", step, ERROR_ACCESS_DENIED, true);
      batches.RunItems(batch, false);
      EXPECT_EQ(ContentsOf(batches.ReadTree()), ContentsOf(before));
    }
  }
}

TEST(RenameBatchFaultTest, ARestoreThatFailsAtAnyStepLosesNoContent) {
  RandomBatches batches(817);
  for (int number = 0; number < kFaultyBatches && !testing::Test::HasFailure(); ++number) {
    const PlainTree before = batches.MakeTree();
    const std::vector<PlainRename> batch = batches.MakeBatch(before);
    const std::vector<u32> done = batches.RunItems(batch, false);
    const PlainTree after = batches.ReadTree();
    const std::vector<PlainRename> back = RandomBatches::Back(batch, done);
    for (int step = 1; step <= static_cast<int>(back.size()); ++step) {
      for (const bool isKilled : {false, true}) {
        batches.WriteTree(after);
        const Platform::Faults::Scope scope;
        Fail("MoveFileW", step, ERROR_SHARING_VIOLATION, isKilled);
        batches.RunPaths(back, false);
        EXPECT_EQ(ContentsOf(batches.ReadTree()), ContentsOf(before));
      }
    }
  }
}

class CycleFaultTest : public testing::Test {
 protected:
  CycleFaultTest() {
    for (const WCHAR* name : {W("a"), W("b"), W("c")}) scratch_.Write(name, ToUtf8(name));
  }

  // Renames a to b, b to c and c to a. The steps are: a to a temporary name, c to a, b to c, temporary name
  // to b.
  std::vector<u32> Run(int step, bool repeat = false) {
    const Platform::Faults::Scope scope;
    Fail("MoveFileW", step, ERROR_SHARING_VIOLATION, repeat);
    return RunUnharmed();
  }

  std::vector<u32> RunUnharmed() {
    FileItemTree tree;
    FileOperation operation(tree, *reporter_, recorded_.output, false);
    RenameBatch batch;
    batch.AddByItem(tree.Find(scratch_.Path(W("a"))), W("b"), nullptr);
    batch.AddByItem(tree.Find(scratch_.Path(W("b"))), W("c"), nullptr);
    batch.AddByItem(tree.Find(scratch_.Path(W("c"))), W("a"), nullptr);
    operation.RunBatch(&batch, nullptr);
    return {batch.renames[0].result, batch.renames[1].result, batch.renames[2].result};
  }

  void ExpectOldNames() {
    EXPECT_EQ(scratch_.Names(), (std::vector<WString>{W("a"), W("b"), W("c")}));
    for (const WCHAR* name : {W("a"), W("b"), W("c")}) EXPECT_EQ(scratch_.Read(name), ToUtf8(name));
  }

  ScratchFolder scratch_;
  RecordedOutput recorded_;
  std::unique_ptr<Reporter> reporter_ = MakeJsonReporter(recorded_.output);
};

TEST_F(CycleFaultTest, AStepThatFailsTakesTheWholeCycleBack) {
  EXPECT_EQ(Run(1), (std::vector<u32>{32, 183, 183}));
  ExpectOldNames();
  EXPECT_EQ(Run(2), (std::vector<u32>{183, 183, 32}));
  ExpectOldNames();
  EXPECT_EQ(Run(3), (std::vector<u32>{183, 32, 183}));
  ExpectOldNames();
  EXPECT_EQ(Run(4), (std::vector<u32>{32, 183, 183}));
  ExpectOldNames();
  EXPECT_EQ(recorded_.problems.find("is left as"), std::string::npos);
}

TEST_F(CycleFaultTest, AFileThatCannotGoBackIsNamed) {
  EXPECT_EQ(Run(3, true), (std::vector<u32>{183, 32, 0}));
  EXPECT_EQ(scratch_.Names(), (std::vector<WString>{W("a"), W("a.qxhost-tmp"), W("b")}));
  EXPECT_EQ(scratch_.Read(W("a.qxhost-tmp")), "a");
  EXPECT_EQ(scratch_.Read(W("a")), "c");
  EXPECT_THAT(recorded_.problems, HasSubstr(ToUtf8(scratch_.Path(W("a"))) + " is left as a.qxhost-tmp: "));
}

TEST_F(CycleFaultTest, ATemporaryNameThatIsTakenIsNotReplaced) {
  scratch_.Write(W("a.qxhost-tmp"), "other");
  EXPECT_EQ(RunUnharmed(), (std::vector<u32>{0, 0, 0}));
  EXPECT_EQ(scratch_.Names(), (std::vector<WString>{W("a"), W("a.qxhost-tmp"), W("b"), W("c")}));
  EXPECT_EQ(scratch_.Read(W("a.qxhost-tmp")), "other");
  EXPECT_EQ(scratch_.Read(W("b")), "a");
}

TEST_F(CycleFaultTest, AFileThatCannotBeLookedAtIsNotMoved) {
  for (int look = 1; look <= 9; ++look) {
    const Platform::Faults::Scope scope;
    Fail("GetFileAttributesW", 3 + look, ERROR_ACCESS_DENIED);
    RunUnharmed();
    PlainTree contents;
    for (const WString& name : scratch_.Names()) contents[name] = scratch_.Read(name);
    EXPECT_EQ(ContentsOf(contents), (std::vector<std::string>{"a", "b", "c"}));
  }
}

}  // namespace
}  // namespace QxHost
