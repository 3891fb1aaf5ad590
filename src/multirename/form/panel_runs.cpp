// What the rule panel does with the worker: previews, runs, and a new list of files.

#include <algorithm>
#include <optional>
#include <utility>

#include "frame/host/command_numbers.h"
#include "frame/services/language_text.h"
#include "multirename/form/panel_controls.h"
#include "multirename/form/panel_form.h"
#include "multirename/form/panel_writing.h"
#include "multirename/form/template_history.h"

namespace Velmora::SDK {

namespace {

constexpr DWORD kHostWaitSlice = 250;  // milliseconds

// Has the host's main thread read the selection, and waits for it. False if the host is closing: the event is
// left as it is then, since the main thread may still set it.
bool ReadSelectionOnMainThread(RenameContext& context, HANDLE done) {
  context.host.PostCommand(kCommandReadSelection, 0, reinterpret_cast<std::intptr_t>(done));
  for (;;) {
    const DWORD result = WaitForSingleObject(done, kHostWaitSlice);
    if (result == WAIT_OBJECT_0) {
      CloseHandle(done);
      return true;
    }
    if (result != WAIT_TIMEOUT || context.hostClosing) return false;
  }
}

}  // namespace

bool PanelForm::Compile() {
  engine_.notifyWindow = view_.Window();
  RuleInput rules = rules_.ReadRules();
  rules.items = frame_.List().CollectRows(std::move(engine_.spareItems));
  rules.itemsOwner = frame_.List().Items();
  return CompileRules(engine_, std::move(rules));
}

// A change that comes while a preview runs stops it, so that of many changes only the last is previewed to
// its end. One that comes during a run, which goes on to its end, is previewed after that. The rows of an
// undo session are what was renamed, and no rule changes them.
void PanelForm::UpdatePreview() {
  if (loadingGuard_) return;
  if (isRunning_) {
    isUpdateDue_ = true;
    return;
  }
  if (!engine_.worker.StopCurrent()) return;
  const bool isCompiled = Compile();
  UpdateStatus();
  if (!isCompiled || sessionLoaded_ || !view_.IsChecked(kLivePreviewBox)) return;
  engine_.worker.WantPreview();
  engine_.worker.Wake();
}

void PanelForm::StartRun() {
  if (!engine_.worker.StopCurrent()) return;
  undoAvailable_ = false;
  if (!Compile()) return UpdateStatus();
  // Without the preview, or with one that was just stopped, the names are not those of the rules.
  if (!view_.IsChecked(kLivePreviewBox) || engine_.worker.WasPreviewCut()) {
    engine_.worker.WantPreview();
    engine_.worker.Wake();
    if (!engine_.worker.WaitUntilIdle()) return;
  }
  // After a preview that failed in the host, rows have names of other rules. A row that failed in an earlier
  // run blocks too (C-675).
  if (engine_.worker.WasPreviewCut() || std::ranges::any_of(engine_.items, [](const MultiRenameItem* row) {
        return BlocksStart(row->state);
      })) {
    view_.ShowBox(LanguageText(host_, kRenameTextTitle), LanguageText(host_, kRenameTextBlocked),
                  MB_OK | MB_ICONERROR);
    return;
  }
  for (const TemplateBox& box : templates_)
    SaveTemplateHistory(host_, box.history, view_.GetText(box.control), box.standard, box.offered);
  engine_.worker.WantRename(view_.IsChecked(kSaveUndoBox));
  BeginRun();
}

// Takes all rows, those whose rename failed too (C-673), with the names that they show now. After a change of
// a rule these are not the names on the disk (C-688).
void PanelForm::UndoRun() {
  if (!engine_.worker.StopCurrent()) return;
  engine_.notifyWindow = view_.Window();
  auto session = std::make_shared<MultiRenameUndo>();
  session->FromRows(frame_.List().CollectRows(), false);
  engine_.restoreSet = session;
  if (session->entries.empty()) return;
  engine_.worker.WantRestore();
  BeginRun();
}

// The controls come back with MRM_RUN_FINISHED, which a worker that has ended does not post.
void PanelForm::BeginRun() {
  isRunning_ = engine_.worker.IsRunning();
  if (isRunning_) EnableControls(false);
  engine_.worker.Wake();
}

void PanelForm::OnRunFinished(WPARAM kind, bool nothingToRestore) {
  if (kind != kRenameFinished && kind != kRestoreFinished) return;
  isRunning_ = false;
  if (kind == kRenameFinished) {
    undoAvailable_ = true;  // even if all renames failed (C-674)
    frame_.List().Refresh();
  } else if (!nothingToRestore && engine_.undoStore.Holds(loadedSession_)) {
    loadedSession_->haveRestored = true;
    engine_.undoStore.Save(*loadedSession_);
  }
  UpdateStatus();
  EnableControls(true);
  if (std::exchange(isSelectionDue_, false)) OnNewSelection();
  if (std::exchange(isUpdateDue_, false)) PostUpdate();
}

void PanelForm::ResetFileList() {
  if (!engine_.worker.StopCurrent()) return;
  const HANDLE done = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  if (!done) return;
  {
    const PanelWriting loading(loadingGuard_);
    undoAvailable_ = false;
    sessionLoaded_ = false;
    loadedSession_ = nullptr;
    frame_.SetTitle();
    frame_.List().Empty();
    if (ReadSelectionOnMainThread(context_, done)) frame_.FillList();
    EnableControls(true);
  }
  UpdatePreview();
}

// Empties the list; the new rows appear with a reset (C-677). The message may come late: a reset, or the
// first FillList, has then shown the rows that it is about.
void PanelForm::OnNewSelection() {
  if (isRunning_) {
    isSelectionDue_ = true;
    return;
  }
  if (frame_.List().Items() == context_.rows.Get()) return;
  if (engine_.worker.StopCurrent()) frame_.List().Empty();
}

// The worker reads notifyWindow, so it is idle or has ended before that changes.
void PanelForm::Close() {
  if (engine_.worker.StopCurrent()) engine_.notifyWindow = nullptr;
}

void PanelForm::PostUpdate() { view_.Post(MRM_UPDATE_PREVIEW); }

void PanelForm::UpdateStatus() {
  frame_.OnHostEvent(reinterpret_cast<std::intptr_t>(view_.Window()), kEventStatusChanged);
}

}  // namespace Velmora::SDK
