#include "multirename/window/undrawn_window.h"

#include <algorithm>
#include <atomic>

#include "multirename/form/panel_controls.h"
#include "multirename/window/undrawn_messages.h"

namespace Velmora::SDK {

namespace {

std::atomic<UndrawnUser*> installedUser{nullptr};

std::mutex currentMutex;
std::shared_ptr<UndrawnWindow> currentWindow;

constexpr int kCheckBoxes[] = {kRegexBox, kReplaceAllBox, kCaseSensitiveBox, kSaveUndoBox, kLivePreviewBox};

}  // namespace

UndrawnUser* InstallUndrawnUser(UndrawnUser* user) { return installedUser.exchange(user); }

int ChooseUndrawnLine(const MenuLines& lines) {
  UndrawnUser* const user = installedUser;
  return user ? user->ChooseLine(lines) : 0;
}

int UndrawnPanel::ShowMenu(int, const MenuLines& lines) { return ChooseUndrawnLine(lines); }

int UndrawnPanel::RunDialog(int resource, DialogForm& form) {
  UndrawnDialog dialog;
  dialog.window = window;
  form.Open(dialog);
  UndrawnUser* const user = installedUser;
  if (user && dialog.result == 0) user->UseDialog(resource, form, dialog);
  if (dialog.result == 0) form.Press(kDialogCancel);
  return dialog.result == 0 ? kDialogCancel : dialog.result;
}

void UndrawnParts::Press(int control) {
  if (!controls[control].isEnabled) return;
  if (std::ranges::find(kCheckBoxes, control) != std::end(kCheckBoxes))
    controls[control].isChecked = !controls[control].isChecked;
  panel.Press(control);
}

void UndrawnParts::Type(int control, const WString& text) {
  if (!controls[control].isEnabled) return;
  controls[control].text = text;
  panel.Change(control);
}

void UndrawnParts::Choose(int control, int line) {
  UndrawnControl& box = controls[control];
  if (!box.isEnabled || line < 0 || static_cast<std::size_t>(line) >= box.lines.size()) return;
  box.selectedLine = line;
  box.text = box.lines[static_cast<std::size_t>(line)];
  panel.Change(control);
}

void UndrawnParts::DoubleClick(int control) {
  if (controls[control].isEnabled) panel.DoubleClick(control);
}

std::shared_ptr<UndrawnWindow> UndrawnWindow::Current() {
  const std::lock_guard lock(currentMutex);
  return currentWindow;
}

void SetCurrentUndrawnWindow(std::shared_ptr<UndrawnWindow> window) {
  const std::lock_guard lock(currentMutex);
  currentWindow = std::move(window);
}

bool UndrawnWindow::Do(Action action) {
  if (GetCurrentThreadId() == thread_) {
    if (parts_) action(*parts_);
    return parts_ != nullptr;
  }
  const std::shared_ptr<Job> job = Add(std::move(action));
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] { return job->isDone || isClosed_; });
  return job->isDone;
}

void UndrawnWindow::Post(Action action) { Add(std::move(action)); }

void UndrawnWindow::WaitForClose() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return isClosed_; });
}

bool UndrawnWindow::TakeMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return false;
    }
    DispatchMessageW(&message);
  }
  return true;
}

std::shared_ptr<UndrawnWindow::Job> UndrawnWindow::Add(Action action) {
  auto job = std::make_shared<Job>(Job{std::move(action)});
  const std::lock_guard lock(mutex_);
  if (isClosed_) return job;
  jobs_.push_back(job);
  PostMessageW(frame_, kUndrawnJob, 0, 0);
  return job;
}

std::shared_ptr<UndrawnWindow::Job> UndrawnWindow::Next() {
  const std::lock_guard lock(mutex_);
  if (jobs_.empty()) return nullptr;
  std::shared_ptr<Job> job = std::move(jobs_.front());
  jobs_.pop_front();
  return job;
}

void UndrawnWindow::SetDone(Job& job) {
  const std::lock_guard lock(mutex_);
  job.isDone = true;
  changed_.notify_all();
}

void UndrawnWindow::SetClosed() {
  const std::lock_guard lock(mutex_);
  parts_ = nullptr;
  isClosed_ = true;
  jobs_.clear();
  changed_.notify_all();
}

}  // namespace Velmora::SDK
