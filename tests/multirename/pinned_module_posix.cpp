// An object that is left to a thread keeps the module loaded, whose code the thread runs.
#include "multirename/window_test.h"
#include "platform/posix/files/faults.h"

namespace Velmora::SDK {
namespace {

int Pins() { return Platform::Faults::CallCount("GetModuleHandleExW"); }

class PinnedModule : public WindowTest {
 protected:
  PinnedModule() { Platform::Faults::Watch("GetModuleHandleExW"); }

  static void ExpectPinnedOnce() {
    EXPECT_EQ(Pins(), 1);
    EXPECT_EQ(Platform::Faults::LastFlags("GetModuleHandleExW"), 1u | 4u);  // pinned, by an address
  }

  const Platform::Faults::Scope faults_;
};

TEST_F(PinnedModule, ADeleteThatLeavesTheWindowsThreadInTheHostKeepsTheModuleLoaded) {
  Semaphore inBox;
  Semaphore answer;
  host_.atAskText = [&] {
    inBox.Release();
    answer.Acquire();
  };
  Open({W("a.t")});
  extension_->waits.shutdown = 20;
  window_->Post([](UndrawnParts& parts) { parts.Choose(1045, 1); });
  inBox.Acquire();
  Plugin().OnShutdown(0);
  EXPECT_EQ(Pins(), 0);
  MultiRenameCloser{20}(extension_.get());
  ExpectPinnedOnce();
  answer.Release();
  window_->WaitForClose();
  EXPECT_TRUE(extension_->WaitForWindow(kMissed));
}

TEST_F(PinnedModule, AnEngineThatIsLeftToItsWorkerKeepsTheModuleLoaded) {
  RunGate gate(host_);
  const SharedItems rows = RowsOf(host_, {W("a")});
  auto engine = std::make_unique<MultiRenameEngine>(&host_);
  ASSERT_TRUE(CompileRules(*engine, DefaultRules(rows)));
  ASSERT_TRUE(engine->worker.Start());
  engine->worker.WantRename(false);
  engine->worker.Wake();
  gate.inRun.Acquire();
  EngineCloser{20}(engine.get());
  ExpectPinnedOnce();
  gate.go.Release();
  ASSERT_TRUE(engine->worker.WaitForEnd(kMissed));
}

TEST_F(PinnedModule, ADeleteThatEndsAllThreadsLeavesTheModuleToTheHost) {
  Open({W("a.t")});
  CloseAll();
  EXPECT_EQ(Pins(), 0);
}

}  // namespace
}  // namespace Velmora::SDK
