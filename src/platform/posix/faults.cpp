#include "platform/posix/faults.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/posix/fault_gate.h"

namespace Platform::Faults {

namespace {

// What is wanted of one function, and what has been seen of it.
struct Watched {
  int calls = 0;
  std::uint32_t lastFlags = 0;
  int callsToFault = 0;  // 0 for no fault
  DWORD error = ERROR_SUCCESS;
  bool repeat = false;
};

struct State {
  std::mutex mutex;
  std::map<std::string, Watched, std::less<>> watched;
  int writesToShort = 0;  // 0 for no short write
  DWORD shortCount = 0;
};

// Never destroyed: threads and static objects may still call the gate at the end of the process.
State& TheState() {
  static State& state = *std::make_unique<State>().release();
  return state;
}

}  // namespace

std::atomic<bool> armed{false};

void Fail(const char* function, int nth, DWORD error, bool repeat) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  Watched& watched = state.watched[function];
  watched.calls = 0;
  watched.callsToFault = nth;
  watched.error = error;
  watched.repeat = repeat;
  armed.store(true, std::memory_order_relaxed);
}

void WriteShort(int nth, DWORD count) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  state.writesToShort = nth;
  state.shortCount = count;
  armed.store(true, std::memory_order_relaxed);
}

int CallCount(const char* function) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  const auto found = state.watched.find(std::string_view(function));
  return found == state.watched.end() ? 0 : found->second.calls;
}

void Watch(const char* function) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  Watched& watched = state.watched[function];
  watched.calls = 0;
  watched.lastFlags = 0;
  armed.store(true, std::memory_order_relaxed);
}

std::uint32_t LastFlags(const char* function) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  const auto found = state.watched.find(std::string_view(function));
  return found == state.watched.end() ? 0 : found->second.lastFlags;
}

void Clear() {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  armed.store(false, std::memory_order_relaxed);
  state.watched.clear();
  state.writesToShort = 0;
  state.shortCount = 0;
}

bool Fires(const char* function, std::uint32_t flags) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  const auto found = state.watched.find(std::string_view(function));
  if (found == state.watched.end()) return false;
  Watched& watched = found->second;
  ++watched.calls;
  watched.lastFlags = flags;
  if (watched.callsToFault == 0) return false;
  if (--watched.callsToFault > 0) return false;
  if (watched.repeat) watched.callsToFault = 1;
  SetLastError(watched.error);
  return true;
}

std::optional<DWORD> ShortWrite() {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  if (state.writesToShort == 0 || --state.writesToShort > 0) return std::nullopt;
  return state.shortCount;
}

}  // namespace Platform::Faults
