// The thread that does all work on the rows: the preview, the rename run and the restore run.
//
// To start a job, the window's thread waits until the worker is idle (StopCurrent), writes the rules, calls
// one of the Want functions, and calls Wake. The worker does the job, posts its messages to the engine's
// notifyWindow and becomes idle again. A preview that is stopped ends at its next row; a run always
// completes. The worker's thread makes the host calls of a run.
#pragma once

#include <atomic>
#include <mutex>

#include "frame/host/host_files.h"
#include "multirename/engine/run_status.h"

namespace Velmora::SDK {

class MultiRenameEngine;
class MultiRenameUndo;

// Messages of MultiRename's window. The worker posts MRM_ROWS_CHANGED and MRM_RUN_FINISHED.
enum RenameMessage : UINT {
  MRM_UPDATE_PREVIEW = 33268,  // from the panel to itself: compile the rules and start a preview
  MRM_ROWS_CHANGED = 33768,    // all rows were computed: repaint the list
  MRM_RUN_FINISHED = 33868,    // a job has ended, except a preview that was stopped; wParam is a FinishedRun,
                               // lParam is 1 if there was nothing to restore
  MRM_CONFIRM_CLOSE = 33968,   // from the frame to itself: Esc was pressed
  MRM_NEW_SELECTION = 34068    // from the extension to the panel: the selection was read again
};

enum FinishedRun : WPARAM { kPreviewFinished = 1, kRenameFinished = 2, kRestoreFinished = 3 };

class RenameWorker {
 public:
  explicit RenameWorker(MultiRenameEngine& owner) : engine_(owner) {}
  RenameWorker(const RenameWorker&) = delete;
  RenameWorker& operator=(const RenameWorker&) = delete;
  // The thread must have ended.
  ~RenameWorker();

  // Creates the events and the thread. Does nothing if the thread exists or has ended: a worker that has quit
  // is not started again (C-678). Returns false if the thread cannot be created.
  bool Start();

  // Set the next job, which replaces any other that is pending. A wake-up starts one job.
  void WantPreview();
  void WantRename(bool writeUndoFile);
  void WantRestore();

  // Stops the current preview or waits for the end of a run, and then wakes the idle worker. Does nothing
  // without a thread.
  void Wake();

  // Stops the current preview, or waits for the end of a run, until the worker is idle or its thread has
  // ended. Returns false if waiting fails; nothing may be changed then.
  bool StopCurrent();

  // Waits likewise without stopping anything.
  bool WaitUntilIdle();

  // Requests the thread to end; a run completes first. Does not wait.
  void Quit();

  // Waits for the end of the thread. Returns false if it has not ended after that time.
  bool WaitForEnd(DWORD milliseconds);

  // Returns whether there is a thread that has not ended.
  bool IsRunning() const { return HasThread(); }

  // Returns whether the last preview was stopped or failed, so that some rows still have names of older
  // rules. Valid while the worker is idle.
  bool WasPreviewCut() const { return previewCut_; }

  // Returns whether the current job was requested to stop and has not ended yet.
  bool IsStopping() const { return abort_; }

 private:
  static DWORD ThreadMain(LPVOID worker);
  void Loop();
  // Signals that the worker is idle and waits until it is woken.
  void WaitForWork();
  bool HasThread() const;
  bool WaitIdle(bool stops);
  void Preview();
  void Rename();
  void Restore();
  void Post(RenameMessage message, WPARAM first = 0, LPARAM second = 0) const;

  std::atomic<bool> wantPreview_{true};
  std::atomic<bool> wantRename_{true};  // a want is set before the first wake-up
  std::atomic<bool> wantRestore_{false};
  std::atomic<bool> saveUndo_{true};
  HANDLE thread_ = nullptr;
  HANDLE wakeEvent_ = nullptr;
  HANDLE idleEvent_ = nullptr;
  MultiRenameEngine& engine_;
  std::atomic<bool> abort_{false};
  std::atomic<bool> quit_{false};
  std::atomic<bool> previewCut_{false};
  // True from Start or Wake until the worker is idle again. Protected by mutex_ together with idleEvent_ and
  // abort_, so that a worker that has been woken but has not begun does not appear idle.
  bool working_ = false;
  mutable std::mutex mutex_;
};

// Counts the results that the host reports during one run.
class CRenameResultCallback final : public IRenameResultCallback {
 public:
  explicit CRenameResultCallback(RunStatus& status) : status_(status) {}

  // May be called on any thread. Ignores a null item.
  void OnRenameResult(void* item, u32 resultCode) override {
    if (item) status_.CountResult(resultCode);
  }

 private:
  RunStatus& status_;
};

// Rename all rows, and undo the renames of a session, through the host. Both count the results in the
// engine's status. RunRenames stores the results in the rows' states, writes the undo file if requested, and
// adds the session to the undo store if that has been loaded. RunRestore counts an entry whose new name no
// file can have as a failure, without passing it to the host.
void RunRenames(MultiRenameEngine& engine, bool writeUndoFile);
void RunRestore(MultiRenameEngine& engine, const MultiRenameUndo& session);

}  // namespace Velmora::SDK
