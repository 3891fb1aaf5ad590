// The thread that does all work on the rows: the preview, the rename run and the restore run.
//
// The window's thread asks: it waits until the worker is idle (StopCurrent), writes the rules and the wants,
// and calls Wake. The worker then works, posts its messages to the engine's notifyWindow and is idle again. A
// preview is stopped by `abort` at its next row; a run goes to its end. Host calls of a run are made on the
// worker's thread.
#pragma once

#include <atomic>
#include <mutex>

#include "frame/host/host_files.h"
#include "multirename/engine/run_status.h"

namespace Velmora::SDK {

class MultiRenameEngine;
class MultiRenameUndo;

// Messages of MultiRename's window. The worker posts the second and the third.
enum RenameMessage : UINT {
  MRM_UPDATE_PREVIEW = 33268,  // the panel to itself: compile the rules and preview
  MRM_ROWS_CHANGED = 33768,    // rows were computed to the last: repaint the list
  MRM_RUN_FINISHED = 33868,    // a job has ended, other than a preview that was stopped: a FinishedRun, and 1
                               // if there was nothing to restore
  MRM_CONFIRM_CLOSE = 33968,   // the frame to itself: Esc was pressed
  MRM_NEW_SELECTION = 34068    // the extension to the panel: the selection was read again
};

enum FinishedRun : WPARAM { kPreviewFinished = 1, kRenameFinished = 2, kRestoreFinished = 3 };

class RenameWorker {
 public:
  explicit RenameWorker(MultiRenameEngine& owner) : engine_(owner) {}
  RenameWorker(const RenameWorker&) = delete;
  RenameWorker& operator=(const RenameWorker&) = delete;
  // The thread must have ended.
  ~RenameWorker();

  // Makes the events and the thread. Once; later calls do nothing, also after the thread has ended: a worker
  // that has quit is not started again. False if there is no thread.
  bool Start();

  // What the worker does next. Each clears the two others; at most one is done at a wake-up.
  void WantPreview();
  void WantRename(bool writeUndoFile);
  void WantRestore();

  // Stops the current preview, waits until the worker is idle, and wakes it. Does nothing without a thread.
  void Wake();

  // Stops the current preview, or waits for the end of a run, until the worker is idle or its thread has
  // ended. False if the wait fails: then nothing may be changed.
  bool StopCurrent();

  // Waits, without stopping anything, for the same.
  bool WaitUntilIdle();

  // Makes the thread leave at its next look; a run in it goes to its end first. Does not wait.
  void Quit();

  // Waits for the end of the thread. False if the time ends first.
  bool WaitForEnd(DWORD milliseconds);

  // There is a thread that has not ended.
  bool IsRunning() const { return HasThread(); }

  // The last preview was stopped, or failed, before its end: rows have names of older rules. While the worker
  // is idle.
  bool WasPreviewCut() const { return previewCut_; }

  // The current job was asked to stop and has not yet ended.
  bool IsStopping() const { return abort_; }

 private:
  static DWORD ThreadMain(LPVOID worker);
  void Loop();
  // Sleeps until it is woken, and tells those who wait that it does.
  void WaitForWork();
  bool HasThread() const;
  bool WaitIdle(bool stops);
  void Preview();
  void Rename();
  void Restore();
  void Post(RenameMessage message, WPARAM first = 0, LPARAM second = 0) const;

  std::atomic<bool> wantPreview_{true};
  std::atomic<bool> wantRename_{true};  // never acted on: nothing wakes the worker before a want is written
  std::atomic<bool> wantRestore_{false};
  std::atomic<bool> saveUndo_{true};
  HANDLE thread_ = nullptr;
  HANDLE wakeEvent_ = nullptr;
  HANDLE idleEvent_ = nullptr;
  MultiRenameEngine& engine_;
  std::atomic<bool> abort_{false};
  std::atomic<bool> quit_{false};
  std::atomic<bool> previewCut_{false};
  // Set from Start or Wake on until the worker is idle again. Changed, with idleEvent and abort, under the
  // mutex, so that nobody takes a worker for idle that has been woken and not yet begun.
  bool working_ = false;
  mutable std::mutex mutex_;
};

// Counts the results that the host calls back with; for the length of one run.
class CRenameResultCallback final : public IRenameResultCallback {
 public:
  explicit CRenameResultCallback(RunStatus& status) : status_(status) {}

  // Any thread. A null item counts for nothing.
  void OnRenameResult(void* item, u32 resultCode) override {
    if (item) status_.CountResult(resultCode);
  }

 private:
  RunStatus& status_;
};

// The renames of all rows, and those of the restore set back, as the worker does them: through the host, with
// the counts in the engine's status. Of the second, entries whose new name no file can have are failures that
// the host is not asked for. The first leaves its states at the rows, writes the undo file if asked
// to, and hands the session to the store if that was read.
void RunRenames(MultiRenameEngine& engine, bool writeUndoFile);
void RunRestore(MultiRenameEngine& engine, const MultiRenameUndo& session);

}  // namespace Velmora::SDK
