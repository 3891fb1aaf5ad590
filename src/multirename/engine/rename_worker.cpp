#include "multirename/engine/rename_worker.h"

#include "multirename/engine/multi_rename_engine.h"

namespace Velmora::SDK {

namespace {

constexpr DWORD kWaitSlice = 250;  // milliseconds

// Prevents the rules from being compiled while the worker computes or runs.
class BusyMark {
 public:
  explicit BusyMark(std::atomic<bool>& busy) : busy_(busy) { busy_ = true; }
  BusyMark(const BusyMark&) = delete;
  BusyMark& operator=(const BusyMark&) = delete;
  ~BusyMark() { busy_ = false; }

 private:
  std::atomic<bool>& busy_;
};

}  // namespace

RenameWorker::~RenameWorker() {
  for (const HANDLE handle : {thread_, wakeEvent_, idleEvent_}) {
    if (handle) CloseHandle(handle);
  }
}

bool RenameWorker::Start() {
  if (thread_) return true;
  if (!wakeEvent_) wakeEvent_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  if (!idleEvent_) idleEvent_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  if (!wakeEvent_ || !idleEvent_) return false;
  thread_ = CreateThread(nullptr, 0, ThreadMain, this, CREATE_SUSPENDED, nullptr);
  if (!thread_) return false;
  // The worker is not idle until its thread first waits, so that nothing wakes it before.
  working_ = true;
  ResumeThread(thread_);
  return true;
}

void RenameWorker::WantPreview() {
  wantPreview_ = true;
  wantRename_ = false;
  wantRestore_ = false;
}

void RenameWorker::WantRename(bool writeUndoFile) {
  saveUndo_ = writeUndoFile;
  wantRename_ = true;
  wantPreview_ = false;
  wantRestore_ = false;
}

void RenameWorker::WantRestore() {
  wantRestore_ = true;
  wantPreview_ = false;
  wantRename_ = false;
}

bool RenameWorker::HasThread() const { return thread_ && WaitForSingleObject(thread_, 0) == WAIT_TIMEOUT; }

// The event releases one waiting thread; the others notice at the end of their time slice that the worker is
// idle.
bool RenameWorker::WaitIdle(bool stops) {
  for (;;) {
    {
      const std::lock_guard lock(mutex_);
      if (!working_ || !HasThread()) return true;
      if (stops) abort_ = true;
    }
    const DWORD result = WaitForSingleObject(idleEvent_, kWaitSlice);
    if (result != WAIT_OBJECT_0 && result != WAIT_TIMEOUT) return false;
  }
}

bool RenameWorker::StopCurrent() { return WaitIdle(true); }

bool RenameWorker::WaitUntilIdle() { return WaitIdle(false); }

void RenameWorker::Wake() {
  WaitIdle(true);
  const std::lock_guard lock(mutex_);
  if (!HasThread()) return;
  ResetEvent(idleEvent_);
  working_ = true;
  SetEvent(wakeEvent_);
}

void RenameWorker::Quit() {
  const std::lock_guard lock(mutex_);
  quit_ = true;
  abort_ = true;
  if (wakeEvent_) SetEvent(wakeEvent_);
}

bool RenameWorker::WaitForEnd(DWORD milliseconds) {
  return !thread_ || WaitForSingleObject(thread_, milliseconds) == WAIT_OBJECT_0;
}

void RenameWorker::Post(RenameMessage message, WPARAM first, LPARAM second) const {
  if (engine_.notifyWindow) PostMessageW(engine_.notifyWindow, message, first, second);
}

DWORD RenameWorker::ThreadMain(LPVOID worker) {
  static_cast<RenameWorker*>(worker)->Loop();
  return 0;
}

void RenameWorker::WaitForWork() {
  {
    const std::lock_guard lock(mutex_);
    abort_ = false;
    working_ = false;
    SetEvent(idleEvent_);
    if (quit_) return;
  }
  WaitForSingleObject(wakeEvent_, INFINITE);
}

void RenameWorker::Loop() {
  for (;;) {
    WaitForWork();
    if (quit_) break;
    // A run is done even if it was asked to stop before it began: the window waits for its message.
    if (wantPreview_) {
      Preview();
    } else if (wantRename_) {
      Rename();
      wantRename_ = false;
    } else if (wantRestore_) {
      Restore();
      wantRestore_ = false;
    }
  }
  const std::lock_guard lock(mutex_);
  working_ = false;
  SetEvent(idleEvent_);
}

// The thread survives every exception of the host or of an allocation, and notifies the window.
void RenameWorker::Preview() {
  const BusyMark busy(engine_.busy);
  previewCut_ = true;
  try {
    if (!ComputeNames(engine_, abort_)) return;
    previewCut_ = false;
  } catch (...) {
    engine_.currentItem = nullptr;
  }
  Post(MRM_ROWS_CHANGED);
  Post(MRM_RUN_FINISHED, kPreviewFinished);
}

void RenameWorker::Rename() {
  const BusyMark busy(engine_.busy);
  try {
    RunRenames(engine_, saveUndo_);
  } catch (...) {
  }
  Post(MRM_RUN_FINISHED, kRenameFinished);
}

void RenameWorker::Restore() {
  const BusyMark busy(engine_.busy);
  const std::shared_ptr<MultiRenameUndo> session = engine_.restoreSet;
  if (session) {
    try {
      RunRestore(engine_, *session);
    } catch (...) {
    }
  }
  Post(MRM_RUN_FINISHED, kRestoreFinished, session ? 0 : 1);
}

}  // namespace Velmora::SDK
