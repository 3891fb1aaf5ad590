#include "multirename/engine/multi_rename_engine.h"

#include "frame/services/pin_module.h"

namespace Velmora::SDK {

MultiRenameEngine::MultiRenameEngine(IHostApp* hostApp) : undoStore(hostApp), host(hostApp), worker(*this) {}

MultiRenameEngine::~MultiRenameEngine() {
  worker.Quit();
  worker.WaitForEnd(INFINITE);
}

void EngineCloser::operator()(MultiRenameEngine* engine) const {
  engine->worker.Quit();
  if (engine->worker.WaitForEnd(timeout)) {
    delete engine;
  } else {
    PinModule();
  }
}

}  // namespace Velmora::SDK
