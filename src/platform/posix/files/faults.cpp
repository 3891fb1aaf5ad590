#include "platform/posix/files/faults.h"

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

#include "platform/posix/files/fault_gate.h"

namespace Platform::Faults {

namespace {

// The faults set for one function, and the record of its calls.
struct Watched {
  int calls = 0;
  std::vector<std::u16string> paths;
  Arguments last;        // its path is in `paths`
  int callsToFault = 0;  // 0 for no fault
  DWORD error = ERROR_SUCCESS;
  bool repeat = false;
  int callsToAction = 0;  // 0 for no action
  std::function<void()> action;
  std::optional<Injection> injection;
};

struct State {
  std::mutex mutex;
  std::map<std::string, Watched, std::less<>> watched;
  int writesToShort = 0;  // 0 for no short write
  DWORD shortCount = 0;
  int searchesToNoName = 0;  // 0 for none
  std::u16string universalName;
};

// Returns the state, which is never destroyed: threads and static objects may call Windows functions at the
// end of the process.
State& TheState() {
  static State& state = *std::make_unique<State>().release();
  return state;
}

// Clears the record of the calls.
void StartOver(Watched& watched) {
  watched.calls = 0;
  watched.paths.clear();
  watched.last = {};
}

// Returns a copy of the state of `function`; an empty one if no test has named it.
Watched WatchedOf(std::string_view function) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  const auto found = state.watched.find(function);
  return found == state.watched.end() ? Watched() : found->second;
}

}  // namespace

std::atomic<bool> armed{false};

void Fail(const char* function, int nth, DWORD error, bool repeat) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  Watched& watched = state.watched[function];
  StartOver(watched);
  watched.callsToFault = nth;
  watched.error = error;
  watched.repeat = repeat;
  armed.store(true, std::memory_order_relaxed);
}

void Before(const char* function, int nth, std::function<void()> action) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  Watched& watched = state.watched[function];
  StartOver(watched);
  watched.callsToAction = nth;
  watched.action = std::move(action);
  armed.store(true, std::memory_order_relaxed);
}

void Give(const char* function, std::vector<BYTE> bytes, DWORD result) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  Watched& watched = state.watched[function];
  StartOver(watched);
  watched.injection = {std::move(bytes), result};
  armed.store(true, std::memory_order_relaxed);
}

void WriteShort(int nth, DWORD count) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  state.writesToShort = nth;
  state.shortCount = count;
  armed.store(true, std::memory_order_relaxed);
}

void ReturnNoName(int nth) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  state.searchesToNoName = nth;
  armed.store(true, std::memory_order_relaxed);
}

void NameNetwork(std::u16string name) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  state.universalName = std::move(name);
}

int CallCount(const char* function) { return WatchedOf(function).calls; }

void Watch(const char* function) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  StartOver(state.watched[function]);
  armed.store(true, std::memory_order_relaxed);
}

std::uint32_t LastFlags(const char* function) { return WatchedOf(function).last.flags; }

std::vector<std::u16string> Paths(const char* function) { return WatchedOf(function).paths; }

FINDEX_INFO_LEVELS LastInfoLevel() { return WatchedOf("FindFirstFileExW").last.level; }

MessageSource LastMessageSource() {
  const Arguments last = WatchedOf("FormatMessageW").last;
  return {last.source, last.language};
}

void Clear() {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  armed.store(false, std::memory_order_relaxed);
  state.watched.clear();
  state.writesToShort = 0;
  state.shortCount = 0;
  state.searchesToNoName = 0;
  state.universalName.clear();
}

namespace {

// Counts the call and returns whether it must fail. Stores in `action` the action to run before it, if any.
bool Count(const char* function, const Arguments& arguments, std::function<void()>& action) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  const auto found = state.watched.find(std::string_view(function));
  if (found == state.watched.end()) return false;
  Watched& watched = found->second;
  ++watched.calls;
  if (watched.callsToAction > 0 && --watched.callsToAction == 0) action = std::move(watched.action);
  watched.last = arguments;
  watched.last.path = nullptr;
  watched.paths.emplace_back(arguments.path ? arguments.path : u"");
  if (watched.callsToFault == 0) return false;
  if (--watched.callsToFault > 0) return false;
  if (watched.repeat) watched.callsToFault = 1;
  SetLastError(watched.error);
  return true;
}

}  // namespace

bool Fires(const char* function, const Arguments& arguments) {
  std::function<void()> action;
  const bool fails = Count(function, arguments, action);
  if (action) action();
  return fails;
}

std::optional<Injection> InjectedResultOf(const char* function) { return WatchedOf(function).injection; }

std::optional<DWORD> ShortWrite() {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  if (state.writesToShort == 0 || --state.writesToShort > 0) return std::nullopt;
  return state.shortCount;
}

std::u16string UniversalName() {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  return state.universalName;
}

bool ReturnsNoName() {
  if (!armed.load(std::memory_order_relaxed)) return false;
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  return state.searchesToNoName > 0 && --state.searchesToNoName == 0;
}

}  // namespace Platform::Faults
