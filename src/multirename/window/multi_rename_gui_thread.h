// The thread of MultiRename's window: its COM apartment, its message loop, and the window from start to end.
//
// A thread that hangs, as in a box of the host, outlives all bounded waits for it; this object, and all that
// the thread uses, must then be left to it and never be freed.
#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>

#include "multirename/window/rename_window.h"

namespace Velmora::SDK {

// Implemented by the extension object. All calls are on the window's thread.
class RenameThreadOwner : public RenameWindowOwner {
 public:
  // The first thing that the thread does, and the last.
  virtual void OnThreadBegin() = 0;
  virtual void OnThreadEnd() = 0;
  // The window is there and not yet visible; null: it goes again, as it could not be shown.
  virtual void OnWindowMade(RenameWindow* window) = 0;
  // The window could not be had, and nobody waits any more to hear of it.
  virtual void OnLateFailure() = 0;
  // A command that was posted to the thread.
  virtual void OnThreadCommand(s32 number, std::intptr_t a, std::intptr_t b) = 0;

 protected:
  ~RenameThreadOwner() = default;
};

class MultiRenameGUIThread final : private MessageFilter {
 public:
  explicit MultiRenameGUIThread(RenameThreadOwner& owner) : owner_(owner) {}
  MultiRenameGUIThread(const MultiRenameGUIThread&) = delete;
  MultiRenameGUIThread& operator=(const MultiRenameGUIThread&) = delete;
  // The thread has ended, or was never created.
  ~MultiRenameGUIThread();

  // Once. False if the system gives no thread.
  bool Create();

  // What the thread has to say of its window.
  enum class Word { kNone, kOpened, kFailed };
  // Waits for it. kNone if the time ends first: a failure is a late one then.
  Word WaitForWord(DWORD milliseconds);

  // Ends the loop once the messages before this are dealt with. A window that is still being made is closed
  // as soon as it is there.
  void PostQuit();

  // False if the time ends first.
  bool WaitForEnd(DWORD milliseconds) const;

 private:
  static DWORD ThreadMain(LPVOID thread);
  int Run();
  std::unique_ptr<RenameWindow> MakeWindow(MessageLoop& loop);
  void Say(Word word);
  void SayFailed();
  void RunCommand(const MSG& message);
  // Messages of the thread itself.
  bool FilterMessage(MSG& message) override;

  RenameThreadOwner& owner_;
  HANDLE thread_ = nullptr;
  DWORD number_ = 0;
  std::atomic<bool> isQuitWanted_{false};
  bool hasSpoken_ = false;  // of the thread
  std::mutex mutex_;        // guards what follows
  std::condition_variable spoken_;
  Word word_ = Word::kNone;
  bool isAwaited_ = true;
};

}  // namespace Velmora::SDK
