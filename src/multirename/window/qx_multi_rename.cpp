#include "multirename/window/qx_multi_rename.h"

#include <utility>

#include "frame/host/command_numbers.h"
#include "frame/services/extension_ids.h"
#include "frame/services/pin_module.h"
#include "multirename/form/rename_texts.h"

namespace Velmora::SDK {

namespace {

// Constants of the host, as in menu_tree.cpp.
constexpr u32 kOpenFlags = 0x10000201;
constexpr u32 kOpenDisplayWord = 0x400000;

}  // namespace

QXMultiRename::~QXMultiRename() {
  WaitForWindow(INFINITE);
  // The order matters: the engine's worker may still be in a run, and owns the rows that it uses.
  guiThread_.reset();
  profiles_.reset();
  context_.reset();
  engine_.reset();
}

s32 QXMultiRename::OnRegister(IHostApp* hostApp) {
  if (!hostApp) return 1;
  IHostMenuBuilder* const menus = hostApp->GetMenuBuilder();
  IHostCommandFactory* const commands = hostApp->GetCommandFactory();
  if (!menus || !commands) return 1;
  const MenuHandle menu = menus->CreateRootMenu(kRenameTextMenu, 1, 0);
  if (!menu) return 1;
  menus->AddCommand(menu, nullptr, 1, 0);  // the entry of command 0, which the host accepts (C-686)
  menus->AddCommand(menu,
                    commands->CreateCommand(kCommandMultiRename, kOpenFlags, kRenameTextTitle,
                                            kRenameTextTitle, kOpenDisplayWord, 0),
                    1, 0);
  return 1;
}

s32 QXMultiRename::OnStart(IHostApp* hostApp) {
  host = hostApp;
  if (!host || profiles_) return 1;
  profiles_ = std::make_unique<MultiRenameProfiles>(*host);
  profiles_->Load();
  return 1;
}

const char* QXMultiRename::GetExtensionId() { return multiRenameId; }

bool QXMultiRename::OnHostEvent(std::intptr_t source, s32 code) {
  return IsOnWindowThread() && mainFrame_ && mainFrame_->Form().OnHostEvent(source, code);
}

s32 QXMultiRename::OnCommand(s32 number, std::intptr_t, std::intptr_t b) {
  switch (number) {
    case kCommandMultiRename:
      return StartOrRefresh();
    case kCommandReadSelection:
      return ReadSelectionAgain(reinterpret_cast<HANDLE>(b));
    case kCommandShutdown:
      return OnShutdown(b);
    default:
      return 0;
  }
}

s32 QXMultiRename::StartOrRefresh() {
  if (!host || !profiles_) return 0;
  SharedItems rows = ReadSelection(*host);
  MakeEngine();
  ShowSelection(std::move(rows));
  if (!engine_->worker.Start()) return 0;
  engine_->propertyManager = host->GetPropertyManager();
  if (isThreadRunning_ && guiThread_ && guiThread_->WaitForEnd(0)) guiThread_.reset();
  return guiThread_ ? 1 : StartThread();
}

s32 QXMultiRename::StartThread() {
  context_->hostClosing = false;
  isThreadRunning_ = false;
  guiThread_.reset(new MultiRenameGUIThread(*this));
  if (!guiThread_->Create()) {
    guiThread_.reset();
    return 0;
  }
  if (guiThread_->WaitForStart(waits.start) != MultiRenameGUIThread::StartResult::kFailed) return 1;
  isThreadRunning_ = !guiThread_->WaitForEnd(waits.shutdown);
  if (!isThreadRunning_) guiThread_.reset();
  return 0;
}

s32 QXMultiRename::ReadSelectionAgain(HANDLE done) {
  if (host) {
    SharedItems rows = ReadSelection(*host);
    if (context_) context_->rows.Set(std::move(rows));
  }
  SetEvent(done);
  return 1;
}

// An open window removes the rows that it shows from its list, which owns them; they are destroyed after
// that.
void QXMultiRename::ShowSelection(SharedItems rows) {
  context_->rows.Set(std::move(rows));
  if (const HWND panel = panel_) PostMessageW(panel, MRM_NEW_SELECTION, 0, 0);
}

void QXMultiRename::MakeEngine() {
  if (engine_) return;
  engine_.reset(new MultiRenameEngine(host));
  context_.reset(new RenameContext{*host, *engine_, *profiles_, {}, {1}, {false}});
}

// Does not wait: the worker may be in a rename that needs the main thread.
void QXMultiRename::AskToClose() {
  if (!guiThread_) return;
  context_->hostClosing = true;
  if (const HWND frame = frame_) {
    engine_->worker.Quit();
    PostMessageW(frame, WM_CLOSE, 0, 0);
  }
  guiThread_->PostQuit();
}

s32 QXMultiRename::OnShutdown(std::intptr_t) {
  if (engine_) engine_->propertyManager = nullptr;
  if (IsOnWindowThread()) return 0;
  AskToClose();
  // If the thread does not end in time, its object is not freed now. Delete waits for it again, and a later
  // command frees it.
  isThreadRunning_ = guiThread_ && !guiThread_->WaitForEnd(waits.shutdown);
  if (!isThreadRunning_) guiThread_.reset();
  if (host) host->ExtensionClosed();
  return 0;
}

bool QXMultiRename::WaitForWindow(DWORD milliseconds) {
  AskToClose();
  return !guiThread_ || guiThread_->WaitForEnd(milliseconds);
}

void QXMultiRename::OnWindowMade(RenameWindow* window) {
  mainFrame_ = window;
  frame_ = window ? window->Frame() : nullptr;
  panel_ = window ? window->Panel() : nullptr;
}

// The host calls OnShutdown in response, which frees the thread.
void QXMultiRename::OnLateFailure() {
  if (!context_->hostClosing) host->PostCommand(kCommandShutdown, 0, 0);
}

void QXMultiRename::OnWindowClosed() {
  // Ends the loop, whether or not the host responds to the command below.
  PostQuitMessage(0);
  if (!mainFrame_) return;  // the window was never shown
  OnWindowMade(nullptr);
  engine_->propertyManager = nullptr;
  engine_->worker.Quit();
  if (!context_->hostClosing) host->PostCommand(kCommandShutdown, 0, 0);
}

void MultiRenameCloser::operator()(QXMultiRename* extension) const {
  if (!extension) return;
  if (extension->WaitForWindow(timeout)) {
    delete extension;
  } else {
    PinModule();
  }
}

}  // namespace Velmora::SDK
