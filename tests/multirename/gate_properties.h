// A property manager that blocks the worker in the middle of a preview.
#pragma once

#include <atomic>

#include "frame/host/host_properties.h"
#include "support/semaphore.h"

namespace Velmora::SDK {

// Blocks the worker at its first request for a property, until `gate` is released.
class GateProperties final : public IHostPropertyManager {
 public:
  u32 GetValue(WCHAR*, u32, const WCHAR*, void*, const WCHAR*) override {
    ++requests;
    if (isOpen) return 0;
    entered.Release();
    gate.Acquire();
    return 0;
  }
  void ListProperties(IHostPropertyList*, u32) override {}

  std::atomic<bool> isOpen{false};
  std::atomic<int> requests{0};
  Semaphore entered;
  Semaphore gate;
};

}  // namespace Velmora::SDK
