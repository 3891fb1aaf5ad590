// How the rule panel uses the worker: previews, runs, and a new list of files.

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

// Makes the host's main thread read the selection, and waits for it. Returns false if the host is closing;
// the event is then not closed, as the main thread may still set it.
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

// A change during a preview stops it, so that of many changes only the last one is previewed completely. A
// change during a run is previewed after it. The rows of an undo session show what was renamed, and no rule
// changes them.
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
  // Without Live Preview, or if the preview was just stopped, the names do not match the rules.
  if (!view_.IsChecked(kLivePreviewBox) || engine_.worker.WasPreviewCut()) {
    engine_.worker.WantPreview();
    engine_.worker.Wake();
    if (!engine_.worker.WaitUntilIdle()) return;
  }
  // After a preview that failed in the host, some rows have names of older rules. A row that failed in an
  // earlier run prevents the run too (C-675).
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

// Restores all rows, even those whose rename failed (C-673), with the names that the list shows now. After a
// change of a rule these are not the names on the disk (C-688).
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

// MRM_RUN_FINISHED enables the controls again; a worker that has ended does not post it.
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
  } else if (!nothingToRestore && engine_.undoStore.Contains(loadedSession_)) {
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

// Empties the list; the new rows appear after a reset (C-677). The message may arrive late, when a reset or
// the first FillList already shows the new rows.
void PanelForm::OnNewSelection() {
  if (isRunning_) {
    isSelectionDue_ = true;
    return;
  }
  if (frame_.List().Items() == context_.rows.Get()) return;
  if (engine_.worker.StopCurrent()) frame_.List().Empty();
}

// The worker reads notifyWindow, so it must be idle or have ended when that changes.
void PanelForm::Close() {
  if (engine_.worker.StopCurrent()) engine_.notifyWindow = nullptr;
}

void PanelForm::PostUpdate() { view_.Post(MRM_UPDATE_PREVIEW); }

void PanelForm::UpdateStatus() {
  frame_.OnHostEvent(reinterpret_cast<std::intptr_t>(view_.Window()), kEventStatusChanged);
}

}  // namespace Velmora::SDK
