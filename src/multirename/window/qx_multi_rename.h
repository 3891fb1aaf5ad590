// Multi Rename, the extension with index 2: renames many files by rules, in its own window.
//
// Threads: the host's main thread calls the public operations. The window's thread, which this object owns,
// calls the private ones, OnHostEvent and, for commands that were posted to it, OnCommand. The engine's
// worker calls nothing here. The three run concurrently from the start of a window to the end of its thread:
//   start      Command 31000 reads the selection, creates the engine with its worker unless it exists, and
//              starts the window's thread. It waits until the window is open or has failed, or a timeout.
//   close      The window requests its worker to quit, and the host to run command 20002 (OnShutdown).
//   shutdown   OnShutdown closes the window, waits for its thread, and reports that the extension is closed.
// All waits of the main thread for the others are bounded. If a thread outlives them, everything that it uses
// is never freed.
//
// The worker ends with the first window and is not restarted: a window that is opened again on the same
// object shows its rows, but has no preview and no runs (C-678). Hosts delete the object when it reports that
// it is closed.
#pragma once

#include "frame/host/plugin_base.h"
#include "multirename/window/multi_rename_gui_thread.h"

namespace Velmora::SDK {

class QXMultiRename final : public PluginBase, private RenameThreadOwner {
 public:
  QXMultiRename() = default;
  QXMultiRename(const QXMultiRename&) = delete;
  QXMultiRename& operator=(const QXMultiRename&) = delete;
  // Closes the window and waits for its thread without a time limit.
  ~QXMultiRename();

  s32 OnRegister(IHostApp* hostApp) override;
  s32 OnStart(IHostApp* hostApp) override;
  const char* GetExtensionId() override;
  // Does nothing and returns false on any thread but the window's, and without a window with a list.
  bool OnHostEvent(std::intptr_t source, s32 code) override;
  s32 OnCommand(s32 number, std::intptr_t a, std::intptr_t b) override;
  s32 OnShutdown(std::intptr_t unread) override;

  // Closes an open window and waits for its thread. Returns false if it has not ended after that time.
  bool WaitForWindow(DWORD milliseconds);

  // In milliseconds.
  struct Waits {
    DWORD start = 1000;     // for the window of a new thread to open
    DWORD shutdown = 5000;  // for the thread to end
  };
  Waits waits;

 private:
  // Command 31000, on the main thread. Returns 1, even if a window is open; 0 if none can be opened.
  s32 StartOrRefresh();
  s32 StartThread();
  // Command 32000, on the main thread.
  s32 ReadSelectionAgain(HANDLE done);
  void ShowSelection(SharedItems rows);
  void MakeEngine();
  void AskToClose();
  bool IsOnWindowThread() const { return GetCurrentThreadId() == guiThreadId_; }

  RenameContext& Context() override { return *context_; }
  void OnThreadBegin() override { guiThreadId_ = GetCurrentThreadId(); }
  void OnThreadEnd() override { guiThreadId_ = 0; }
  void OnWindowMade(RenameWindow* window) override;
  void OnLateFailure() override;
  void OnThreadCommand(s32 number, std::intptr_t a, std::intptr_t b) override { OnCommand(number, a, b); }
  void OnWindowClosed() override;

  OwnedEngine engine_;                             // created by the first command
  std::unique_ptr<MultiRenameProfiles> profiles_;  // created by OnStart
  std::unique_ptr<RenameContext> context_;         // created with the engine
  RenameWindow* mainFrame_ = nullptr;              // used by the window's thread
  std::atomic<HWND> frame_{nullptr};               // the window's handles, for the other threads
  std::atomic<HWND> panel_{nullptr};
  std::atomic<DWORD> guiThreadId_{0};         // 0 if there is no thread
  std::atomic<bool> isThreadRunning_{false};  // the thread did not end in time
  std::unique_ptr<MultiRenameGUIThread> guiThread_;
};

// Deletes the object after its window's thread has ended, for which it waits at most `timeout`. If the
// thread is still running then, in a box of the host, the object is never freed and the module stays loaded.
struct MultiRenameCloser {
  void operator()(QXMultiRename* extension) const;

  DWORD timeout = 4000;  // milliseconds
};

}  // namespace Velmora::SDK
