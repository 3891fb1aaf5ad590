#include "multirename/window/multi_rename_gui_thread.h"

#include <chrono>

#include "multirename/window/message_loops.h"
#include "platform/com_apartment.h"

namespace Velmora::SDK {

namespace {

constexpr UINT kThreadCommand = 32810;  // a message of the host to the thread

}  // namespace

MultiRenameGUIThread::~MultiRenameGUIThread() {
  if (thread_) CloseHandle(thread_);
}

bool MultiRenameGUIThread::Create() {
  // The thread starts when its handle and its number are known.
  thread_ = CreateThread(nullptr, 0, ThreadMain, this, CREATE_SUSPENDED, &number_);
  if (!thread_) return false;
  ResumeThread(thread_);
  return true;
}

MultiRenameGUIThread::StartResult MultiRenameGUIThread::WaitForStart(DWORD milliseconds) {
  std::unique_lock lock(mutex_);
  startReported_.wait_for(lock, std::chrono::milliseconds(milliseconds),
                          [this] { return startResult_ != StartResult::kNone; });
  isAwaited_ = false;
  return startResult_;
}

void MultiRenameGUIThread::ReportStart(StartResult word) {
  bool isLate = false;
  {
    const std::lock_guard lock(mutex_);
    isStartReported_ = true;
    startResult_ = word;
    isLate = !isAwaited_;
    startReported_.notify_all();
  }
  if (isLate && word == StartResult::kFailed) owner_.OnLateFailure();
}

void MultiRenameGUIThread::ReportStartFailure() {
  try {
    if (!isStartReported_) ReportStart(StartResult::kFailed);
  } catch (...) {  // the host threw; it is sent a command after a late failure
  }
}

// The flag is for a thread that has no message queue yet, and for one whose window processes messages while
// it is being created.
void MultiRenameGUIThread::PostQuit() {
  isQuitWanted_ = true;
  PostThreadMessageW(number_, WM_QUIT, 0, 0);
}

bool MultiRenameGUIThread::WaitForEnd(DWORD milliseconds) const {
  return !thread_ || WaitForSingleObject(thread_, milliseconds) == WAIT_OBJECT_0;
}

DWORD MultiRenameGUIThread::ThreadMain(LPVOID thread) {
  auto& self = *static_cast<MultiRenameGUIThread*>(thread);
  SwitchToThread();
  self.owner_.OnThreadBegin();
  int exitCode = 0;
  try {
    exitCode = self.Run();
  } catch (...) {
    // An existing window has been closed. Without one, the main thread may still be waiting for the result.
    self.ReportStartFailure();
  }
  self.owner_.OnThreadEnd();
  return static_cast<DWORD>(exitCode);
}

int MultiRenameGUIThread::Run() {
  MessageLoop loop;
  const MessageLoopEntry entry(loop);
  loop.AddFilter(*this);
  const ComApartment apartment;
  const std::unique_ptr<RenameWindow> window = MakeWindow(loop);
  if (!window) {
    ReportStart(StartResult::kFailed);
    return 0;
  }
  ReportStart(StartResult::kOpened);
  if (isQuitWanted_) PostMessageW(window->Frame(), WM_CLOSE, 0, 0);
  return loop.Run();
}

// If the host or an allocation throws, no window remains.
std::unique_ptr<RenameWindow> MultiRenameGUIThread::MakeWindow(MessageLoop& loop) {
  std::unique_ptr<RenameWindow> window;
  try {
    window = OpenRenameWindow(owner_, loop);
    if (!window) return nullptr;
    // A new selection after this call is posted to the window; FillList shows an earlier one.
    owner_.OnWindowMade(window.get());
    window->Show();
    window->Form().FillList();
    return window;
  } catch (...) {
    owner_.OnWindowMade(nullptr);
    return nullptr;
  }
}

// Ignores a command that fails in the host; the window remains.
void MultiRenameGUIThread::RunCommand(const MSG& message) {
  try {
    owner_.OnThreadCommand(static_cast<s32>(message.wParam), 0, message.lParam);
  } catch (...) {
  }
}

bool MultiRenameGUIThread::FilterMessage(MSG& message) {
  if (message.hwnd) return false;
  if (message.message == kThreadCommand) RunCommand(message);
  return message.message == kThreadCommand || message.message == WM_TIMER;
}

}  // namespace Velmora::SDK
