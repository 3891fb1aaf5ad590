// What remains of an interrupted run.
#include "host/rename/interruption.h"

#include <gmock/gmock.h>

#include "host/rename/rename_batch.h"
#include "recorded_output.h"
#include "support/scratch_folder.h"

using testing::Each;
using testing::IsEmpty;

namespace QxHost {
namespace {

class InterruptionTest : public testing::Test {
 protected:
  InterruptionTest() {
    for (const WCHAR* name : {W("a"), W("b"), W("c")}) scratch_.Write(name, ToUtf8(name));
  }
  // Clears the flag of the last watch, which the runs of other tests would read.
  ~InterruptionTest() override { const InterruptionWatch forget; }

  std::vector<u32> Run(FileOperation& operation) {
    RenameBatch batch;
    batch.AddByItem(tree_.Find(scratch_.Path(W("a"))), W("b"), nullptr);
    batch.AddByItem(tree_.Find(scratch_.Path(W("b"))), W("d"), nullptr);
    batch.AddByItem(tree_.Find(scratch_.Path(W("c"))), W("e"), nullptr);
    operation.RunBatch(&batch, nullptr);
    return {batch.renames[0].result, batch.renames[1].result, batch.renames[2].result};
  }

  ScratchFolder scratch_;
  FileItemTree tree_;
  RecordedOutput recorded_;
  std::unique_ptr<Reporter> reporter_ = MakeJsonReporter(recorded_.output);
};

TEST_F(InterruptionTest, NothingIsRenamedAfterIt) {
  for (const bool isInOrder : {false, true}) {
    FileOperation operation(tree_, *reporter_, recorded_.output, false, isInOrder);
    const InterruptionWatch watch;
    Interrupt();
    EXPECT_THAT(Run(operation), Each(u32{ERROR_CANCELLED}));
    EXPECT_EQ(scratch_.Names(), (std::vector<WString>{W("a"), W("b"), W("c")}));
    EXPECT_TRUE(operation.HasFailed());
    EXPECT_EQ(operation.Untried(), 3u);
    EXPECT_THAT(recorded_.problems, IsEmpty());
  }
}

TEST_F(InterruptionTest, ANewWatchBeginsWithoutOne) {
  Interrupt();
  const InterruptionWatch watch;
  EXPECT_FALSE(IsInterrupted());
  FileOperation operation(tree_, *reporter_, recorded_.output, false);
  EXPECT_THAT(Run(operation), Each(0u));
  EXPECT_EQ(operation.Untried(), 0u);
}

}  // namespace
}  // namespace QxHost
