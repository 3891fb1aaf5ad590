// The thread of MultiRename's window: its COM apartment, its message loop, and the window from creation to
// destruction.
//
// A thread that hangs, for example in a box of the host, outlives all bounded waits for it. This object and
// everything that the thread uses must then never be freed.
#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>

#include "multirename/window/rename_window.h"

namespace Velmora::SDK {

// Implemented by the extension object. All functions are called on the window's thread.
class RenameThreadOwner : public RenameWindowOwner {
 public:
  // Called when the thread begins, and as its last action.
  virtual void OnThreadBegin() = 0;
  virtual void OnThreadEnd() = 0;
  // The window exists but is not visible yet. Null: the window is destroyed again, as it could not be shown.
  virtual void OnWindowMade(RenameWindow* window) = 0;
  // The window could not be created, and WaitForStart has already returned.
  virtual void OnLateFailure() = 0;
  // A command was posted to the thread.
  virtual void OnThreadCommand(s32 number, std::intptr_t a, std::intptr_t b) = 0;

 protected:
  ~RenameThreadOwner() = default;
};

class MultiRenameGUIThread final : private MessageFilter {
 public:
  explicit MultiRenameGUIThread(RenameThreadOwner& owner) : owner_(owner) {}
  MultiRenameGUIThread(const MultiRenameGUIThread&) = delete;
  MultiRenameGUIThread& operator=(const MultiRenameGUIThread&) = delete;
  // The thread must have ended or never have been created.
  ~MultiRenameGUIThread();

  // Creates the thread. May be called only once. Returns false if the system cannot create it.
  bool Create();

  // The state of the window as the thread reports it.
  enum class StartResult { kNone, kOpened, kFailed };
  // Waits until the thread reports the state and returns it. Returns kNone if the time ends first; a later
  // failure is reported to OnLateFailure.
  StartResult WaitForStart(DWORD milliseconds);

  // Ends the loop after the messages that are already waiting. A window that is still being created is closed
  // as soon as it exists.
  void PostQuit();

  // Waits for the end of the thread. Returns false if it has not ended after that time.
  bool WaitForEnd(DWORD milliseconds) const;

 private:
  static DWORD ThreadMain(LPVOID thread);
  int Run();
  std::unique_ptr<RenameWindow> MakeWindow(MessageLoop& loop);
  void ReportStart(StartResult word);
  void ReportStartFailure();
  void RunCommand(const MSG& message);
  // Handles messages of the thread itself.
  bool FilterMessage(MSG& message) override;

  RenameThreadOwner& owner_;
  HANDLE thread_ = nullptr;
  DWORD number_ = 0;
  std::atomic<bool> isQuitWanted_{false};
  bool isStartReported_ = false;  // used by the thread only
  std::mutex mutex_;              // protects the members below
  std::condition_variable startReported_;
  StartResult startResult_ = StartResult::kNone;
  bool isAwaited_ = true;
};

}  // namespace Velmora::SDK
