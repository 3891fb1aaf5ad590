#include "support/monkey_session.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

constexpr auto kMonkeyHang = std::chrono::seconds(120);  // the longest time for one action

std::uint32_t NumberFromEnvironment(const char* name, std::uint32_t standard) {
  const char* const text = std::getenv(name);
  return text ? static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10)) : standard;
}

}  // namespace

std::uint32_t MonkeySeed() { return NumberFromEnvironment("QX_MONKEY_SEED", 12); }
std::uint32_t MonkeySeconds() { return NumberFromEnvironment("QX_MONKEY_SECONDS", 0); }

std::vector<std::string> ContentsBelow(const std::filesystem::path& folder) {
  std::vector<std::string> contents;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    contents.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  std::ranges::sort(contents);
  return contents;
}

std::size_t CountRenamesDone(std::string_view events) {
  constexpr std::string_view kDone = "\"result\":0}";
  std::size_t count = 0;
  for (std::size_t at = events.find(kDone); at != std::string_view::npos; at = events.find(kDone, at + 1))
    ++count;
  return count;
}

MonkeyWatchdog::~MonkeyWatchdog() {
  {
    const std::lock_guard lock(mutex_);
    isOver_ = true;
    changed_.notify_all();
  }
  thread_.join();
}

void MonkeyWatchdog::Say(std::string what) {
  const std::lock_guard lock(mutex_);
  what_ = std::move(what);
  ++count_;
  changed_.notify_all();
}

void MonkeyWatchdog::Watch() {
  std::unique_lock lock(mutex_);
  while (!isOver_) {
    const int before = count_;
    if (changed_.wait_for(lock, kMonkeyHang, [&] { return isOver_ || count_ != before; })) continue;
    std::fprintf(stderr, "the window hangs after action %d: %s\n", count_, what_.c_str());
    std::abort();
  }
}
