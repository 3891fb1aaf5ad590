// The end of an engine whose worker is inside a long call of the host.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "multirename/rename_host.h"
#include "support/semaphore.h"
#include "support/wait_limit.h"

namespace Velmora::SDK {
namespace {

constexpr DWORD kShort = 20;  // milliseconds

class EngineCloserTest : public testing::Test {
 protected:
  // Starts a run that stays inside the host until `go_` is released.
  void BeginRun() {
    host_.renames.atRun = [this] {
      inRun_.Release();
      go_.Acquire();
      isRunOver_ = true;
    };
    rows_ = RowsOf(host_, {W("a")});
    ASSERT_TRUE(CompileRules(*engine_, DefaultRules(rows_)));
    // Only the engine owns its rows now, so they are freed with it.
    watched_ = rows_;
    rows_.reset();
    ASSERT_TRUE(engine_->worker.Start());
    engine_->worker.WantRename(false);
    engine_->worker.Wake();
    inRun_.Acquire();
  }

  // Closes the engine on another thread. Returns whether that finishes while the run is still inside the
  // host; if it does not, releases the run.
  bool ReturnsDuringTheRun(DWORD timeout) {
    std::atomic<bool> isClosed{false};
    std::thread closing([&] {
      EngineCloser{timeout}(engine_);
      isClosed = true;
    });
    constexpr DWORD kPollInterval = 5;
    for (DWORD waited = 0; !isClosed && waited < kWaitLimit; waited += kPollInterval) Sleep(kPollInterval);
    const bool returned = isClosed;
    if (!returned) go_.Release();
    closing.join();
    return returned;
  }

  RenameHost host_;
  Semaphore inRun_;
  Semaphore go_;
  std::atomic<bool> isRunOver_{false};
  SharedItems rows_;
  std::weak_ptr<MultiRenameItems> watched_;
  MultiRenameEngine* engine_ = new MultiRenameEngine(&host_);
};

TEST_F(EngineCloserTest, AWorkerHas3000MillisecondsToEnd) {
  EXPECT_EQ(OwnedEngine(engine_).get_deleter().timeout, 3000u);
}

TEST_F(EngineCloserTest, AnEngineWhoseWorkerStaysInTheHostIsLeftToItAndNotFreed) {
  BeginRun();
  ASSERT_TRUE(ReturnsDuringTheRun(kShort));
  EXPECT_FALSE(isRunOver_);
  ASSERT_FALSE(watched_.expired());
  // The run finishes with everything that it uses, and then the thread ends.
  go_.Release();
  ASSERT_TRUE(engine_->worker.WaitForEnd(kWaitLimit));
  EXPECT_TRUE(isRunOver_);
  EXPECT_EQ(watched_.lock()->front().state, u32{StateRenamed});
  EXPECT_FALSE(engine_->busy);
  delete engine_;
  EXPECT_TRUE(watched_.expired());
}

TEST_F(EngineCloserTest, AnEngineIsWaitedForAndFreedIfItsWorkerEndsInTime) {
  BeginRun();
  std::thread host([this] {
    // The closer asks the worker to stop before it waits.
    while (!engine_->worker.IsStopping()) std::this_thread::yield();
    Sleep(kShort);
    go_.Release();
  });
  EngineCloser{kWaitLimit}(engine_);
  EXPECT_TRUE(watched_.expired());
  EXPECT_TRUE(isRunOver_);
  host.join();
}

TEST_F(EngineCloserTest, AnIdleEngineIsFreedAtOnce) {
  rows_ = RowsOf(host_, {W("a")});
  ASSERT_TRUE(CompileRules(*engine_, DefaultRules(rows_)));
  watched_ = rows_;
  rows_.reset();
  ASSERT_TRUE(engine_->worker.Start());
  engine_->worker.WantPreview();
  engine_->worker.Wake();
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EngineCloser{kWaitLimit}(engine_);
  EXPECT_TRUE(watched_.expired());
}

TEST_F(EngineCloserTest, AnEngineWithoutAThreadIsFreed) {
  rows_ = RowsOf(host_, {W("a")});
  ASSERT_TRUE(CompileRules(*engine_, DefaultRules(rows_)));
  watched_ = rows_;
  rows_.reset();
  EngineCloser{0}(engine_);
  EXPECT_TRUE(watched_.expired());
}

}  // namespace
}  // namespace Velmora::SDK
