// What each session of a monkey needs, whatever window it plays with: its length and seed, an eye on hangs,
// and the files that must be there at the end.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

std::uint32_t NumberFromEnvironment(const char* name, std::uint32_t standard);

// The contents of all files below a folder, sorted. Whatever the names are now, these stay.
std::vector<std::string> ContentsBelow(const std::filesystem::path& folder);

// How many renames the host has told of that were done.
std::size_t CountRenamesDone(std::string_view events);

// Ends the process with the last action if no other one comes in time.
class MonkeyWatchdog {
 public:
  MonkeyWatchdog() : thread_([this] { Watch(); }) {}
  MonkeyWatchdog(const MonkeyWatchdog&) = delete;
  MonkeyWatchdog& operator=(const MonkeyWatchdog&) = delete;
  ~MonkeyWatchdog();

  void Say(std::string what);

 private:
  void Watch();

  std::mutex mutex_;  // guards what follows
  std::condition_variable changed_;
  std::string what_;
  int count_ = 0;
  bool isOver_ = false;
  std::thread thread_;
};
