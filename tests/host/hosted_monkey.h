// A session of a monkey test on MultiRename's window in the reference host: the files, the windows that are
// opened one after the other, and the check that no file is lost. The test performs the actions.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdio>
#include <functional>
#include <thread>

#include "frame/host/command_numbers.h"
#include "host/hosted_files.h"
#include "support/monkey_actions.h"
#include "support/monkey_session.h"

namespace QxHost {

class HostedMonkey {
 public:
  // Adds the files to the host and starts its extensions. A session without a time in the environment is over
  // after `actionsOfShortRun` actions.
  HostedMonkey(HostedFiles& hosted, std::uint32_t actionsOfShortRun)
      : hosted_(hosted), actionsOfShortRun_(actionsOfShortRun) {
    hosted_.scratch.MakeFolder(W("files\\sub"));
    for (int number = 0; number < kFiles; ++number) {
      const char* const kForms[] = {"photo %02d.jpg", "a%d", "n%d.tar.gz", "\xC3\xA9%d & 100 %%.TXT"};
      char name[40];
      std::snprintf(name, sizeof name, kForms[number % 4], number);
      hosted_.Add((number % 3 == 0 ? W("sub\\") : W("")) + FromUtf8(name));
    }
    contents_ = ContentsBelow(Folder());
    hosted_.Start();
  }
  HostedMonkey(const HostedMonkey&) = delete;
  HostedMonkey& operator=(const HostedMonkey&) = delete;

  // Opens windows until `monkey`, which acts in them on another thread, has ended the session and the last
  // window has closed. Checks the files after each window and at the end.
  void Play(const std::function<void()>& monkey) {
    ASSERT_EQ(contents_.size(), static_cast<std::size_t>(kFiles));
    ActionGenerator fate(seed_ + 2);
    int windows = 0;
    std::thread acting(monkey);
    while (!isOver_) {
      EXPECT_EQ(hosted_.extensions->RunWindow(Velmora::SDK::kCommandMultiRename), 1);
      ++windows;
      ExpectNoFileLost("window " + std::to_string(windows));
      // Sometimes the same extension object is used again; its windows then have no worker.
      if (fate.Chance(80)) hosted_.extensions->Renew(Velmora::SDK::kCommandMultiRename);
    }
    hasEnded_ = true;
    acting.join();
    hosted_.extensions->Stop();
    ExpectNoFileLost("the end");
    const std::size_t renames = CountRenamesDone(hosted_.recorded.Out());
    std::printf("%u actions, %d windows, %zu renames, seed %u\n", actions_.load(), windows, renames, seed_);
    EXPECT_GT(windows, 0);
    EXPECT_GT(renames, 0u);
  }

  void ExpectNoFileLost(const std::string& when) const {
    EXPECT_EQ(ContentsBelow(Folder()), contents_) << "seed " << seed_ << ", after " << when;
  }

  // The monkey's side of the session. Call BeginAction before each action; `what` is printed if it hangs.
  void BeginAction(std::string what) {
    watchdog_.Say(std::move(what));
    ++actions_;
  }
  std::uint32_t ActionCount() const { return actions_; }
  // Returns whether the time or the actions are used up.
  bool IsTimeOver() const {
    return seconds_ > 0 ? std::chrono::steady_clock::now() >= end_ : actions_ >= actionsOfShortRun_;
  }
  // Ends the session: after the present window none is opened.
  void End() { isOver_ = true; }
  bool IsOver() const { return isOver_; }
  // Returns whether the last window has closed.
  bool HasEnded() const { return hasEnded_; }

 private:
  static constexpr int kFiles = 24;

  std::filesystem::path Folder() const { return hosted_.scratch.NativePath(W("files")); }

  HostedFiles& hosted_;
  const std::uint32_t actionsOfShortRun_;
  const std::uint32_t seed_ = MonkeySeed();
  const std::uint32_t seconds_ = MonkeySeconds();
  const std::chrono::steady_clock::time_point end_ =
      std::chrono::steady_clock::now() + std::chrono::seconds(seconds_);
  std::vector<std::string> contents_;
  MonkeyWatchdog watchdog_;
  std::atomic<std::uint32_t> actions_{0};
  std::atomic<bool> isOver_{false};
  std::atomic<bool> hasEnded_{false};
};

}  // namespace QxHost
