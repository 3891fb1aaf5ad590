// What every monkey test needs, whichever window it drives: the length and seed of the session, a watchdog
// against hangs, and a check of the files at the end.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

// The seed of the session, from QX_MONKEY_SEED, and its length in seconds, from QX_MONKEY_SECONDS; 0 for a
// short session.
std::uint32_t MonkeySeed();
std::uint32_t MonkeySeconds();

// Returns the contents of all files below a folder, sorted. They do not depend on the names.
std::vector<std::string> ContentsBelow(const std::filesystem::path& folder);

// Returns how many renames the host has reported as done.
std::size_t CountRenamesDone(std::string_view events);

// Ends the process and prints the last action if the next one does not come in time.
class MonkeyWatchdog {
 public:
  MonkeyWatchdog() : thread_([this] { Watch(); }) {}
  MonkeyWatchdog(const MonkeyWatchdog&) = delete;
  MonkeyWatchdog& operator=(const MonkeyWatchdog&) = delete;
  ~MonkeyWatchdog();

  void Say(std::string what);

 private:
  void Watch();

  std::mutex mutex_;  // guards the members below
  std::condition_variable changed_;
  std::string what_;
  int count_ = 0;
  bool isOver_ = false;
  std::thread thread_;
};
