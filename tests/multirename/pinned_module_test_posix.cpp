// An engine that is left to its worker keeps the module loaded, because the worker executes its code.
#include "multirename/window_test.h"
#include "platform/posix/files/faults.h"

namespace Velmora::SDK {
namespace {

int Pins() { return Platform::Faults::CallCount("GetModuleHandleExW"); }

class PinnedModule : public WindowTest {
 protected:
  PinnedModule() { Platform::Faults::Watch("GetModuleHandleExW"); }

  const Platform::Faults::Scope faults_;
};

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
  EXPECT_EQ(Pins(), 1);
  EXPECT_EQ(Platform::Faults::LastFlags("GetModuleHandleExW"), 1u | 4u);  // pinned, by an address
  gate.go.Release();
  ASSERT_TRUE(engine->worker.WaitForEnd(kWaitLimit));
}

TEST_F(PinnedModule, ADeleteThatEndsAllThreadsLeavesTheModuleToTheHost) {
  Open({W("a.t")});
  CloseAll();
  EXPECT_EQ(Pins(), 0);
}

}  // namespace
}  // namespace Velmora::SDK
