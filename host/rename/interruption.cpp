#include "host/rename/interruption.h"

#include <atomic>

namespace QxHost {
namespace {

std::atomic<bool> isInterrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free);  // signal handlers set it

}  // namespace

bool IsInterrupted() { return isInterrupted; }

void Interrupt() { isInterrupted = true; }

InterruptionWatch::InterruptionWatch() {
  isInterrupted = false;
  Begin();
}

InterruptionWatch::~InterruptionWatch() { End(); }

}  // namespace QxHost
