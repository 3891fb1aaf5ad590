// The dialog of all earlier runs: shows what each run renamed, deletes them, and selects one to undo
// (MultiRenameUndoManagerDlg).
#pragma once

#include "frame/host/host_app.h"
#include "multirename/form/dialog_form.h"
#include "multirename/saved/multi_rename_undo_store.h"

namespace Velmora::SDK {

enum UndoManagerControl : int {
  kUndoSessions = 1053,  // lists with columns and full-row selection
  kUndoFiles = 1052,
  kUndoSessionsLabel = 1056,
  kUndoDateLabel = 1055,
  kUndoDate = 1049,  // read-only
  kUndoCount = 1054,
  kUndoFilesLabel = 1057,
  kUndoDelete = 1046,
  kUndoDeleteAll = 1047,
  kUndoLoad = kDialogOk,
  kUndoClose = kDialogCancel,
};

class UndoManagerForm final : public DialogForm {
 public:
  // The store must be loaded. `loaded` is the session that the window shows; null if it shows none.
  UndoManagerForm(IHostApp& host, MultiRenameUndoStore& store, const MultiRenameUndo* loaded)
      : host_(host), store_(store), loaded_(loaded) {}

  void Open(DialogView& view) override;
  void Press(int control) override;
  // Chooses the clicked session. A selection by keyboard chooses none (C-682).
  void ClickRow(int control, int row) override;

  // Returns the chosen session, which belongs to the store; null if none was chosen or it has been deleted.
  MultiRenameUndo* Chosen() const { return chosen_; }

 private:
  void FillSessions();
  void Show(MultiRenameUndo& session);
  void Delete();
  void DeleteAll();
  bool Confirms(TextId title, TextId question);
  // Resets the chosen session if the store no longer has it.
  void DropDeleted();

  IHostApp& host_;
  MultiRenameUndoStore& store_;
  const MultiRenameUndo* loaded_;
  DialogView* view_ = nullptr;
  std::vector<MultiRenameUndo*> rows_;  // the sessions in the order of the list
  MultiRenameUndo* chosen_ = nullptr;
};

}  // namespace Velmora::SDK
