// Multi Rename, the extension of index 2: renames many files by rules, in a window of its own.
//
// Threads: the host's main thread calls the operations; the window's thread, which is the object's own, calls
// what is private, OnHostEvent and, for commands that were posted to it, OnCommand; the worker of the engine
// calls nothing here. From the start of a window to the end of its thread the three run beside each other:
//   start      command 31000 reads the selection, makes the engine and its worker once, and the thread of the
//              window, and waits until the window is there, has failed, or the time is over
//   close      the window has its worker quit, then has the host send command 20002, which is OnShutdown
//   shutdown   OnShutdown has the window close, waits for its thread, and says that the extension is closed
// All waits of the main thread for the others are bounded. What a thread that outlives them still uses is
// never freed.
//
// The worker ends with the first window and is not started again: a window that is opened again on the same
// object shows its rows, and has no preview and no runs (C-678). Hosts delete the object once it says that it
// is closed.
#pragma once

#include "frame/host/plugin_base.h"
#include "multirename/window/multi_rename_gui_thread.h"

namespace Velmora::SDK {

class QXMultiRename final : public PluginBase, private RenameThreadOwner {
 public:
  QXMultiRename() = default;
  QXMultiRename(const QXMultiRename&) = delete;
  QXMultiRename& operator=(const QXMultiRename&) = delete;
  // Closes the window and waits for its thread, however long that takes.
  ~QXMultiRename();

  s32 OnRegister(IHostApp* hostApp) override;
  s32 OnStart(IHostApp* hostApp) override;
  const char* GetExtensionId() override;
  // False, with nothing done, on any thread but the window's, and without a window with a list.
  bool OnHostEvent(std::intptr_t source, s32 code) override;
  s32 OnCommand(s32 number, std::intptr_t a, std::intptr_t b) override;
  s32 OnShutdown(std::intptr_t unread) override;

  // Has a window close that is still open, and waits for its thread. False if the time ends first.
  bool WaitForWindow(DWORD milliseconds);

  // In milliseconds.
  struct Waits {
    DWORD start = 1000;     // for the window of a new thread to be there
    DWORD shutdown = 5000;  // for the thread to end
  };
  Waits waits;

 private:
  // Command 31000, on the main thread. 1, also if a window is open; 0 if none can be had.
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

  OwnedEngine engine_;                             // made by the first command
  std::unique_ptr<MultiRenameProfiles> profiles_;  // from OnStart on
  std::unique_ptr<RenameContext> context_;         // with the engine
  RenameWindow* mainFrame_ = nullptr;              // of the window's thread
  std::atomic<HWND> frame_{nullptr};               // its windows, for the other threads
  std::atomic<HWND> panel_{nullptr};
  std::atomic<DWORD> guiThreadId_{0};      // 0: there is no thread
  std::atomic<bool> isThreadLeft_{false};  // to its end, which no command will follow
  std::unique_ptr<MultiRenameGUIThread> guiThread_;
};

// Deletes the object after its window's thread has ended, for which it waits as long as `patience` says. An
// object whose thread still runs then, in a box of the host's, is left to it and never freed, and the module
// stays loaded.
struct MultiRenameCloser {
  void operator()(QXMultiRename* extension) const;

  DWORD patience = 4000;  // milliseconds
};

}  // namespace Velmora::SDK
