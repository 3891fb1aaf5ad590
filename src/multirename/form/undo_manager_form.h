// The dialog of all earlier runs: shows what each renamed, deletes them, and chooses one to be taken back
// (MultiRenameUndoManagerDlg).
#pragma once

#include "frame/host/host_app.h"
#include "multirename/form/dialog_form.h"
#include "multirename/saved/multi_rename_undo_store.h"

namespace Velmora::SDK {

enum UndoManagerControl : int {
  kUndoSessions = 1053,  // lists with columns, the selection over the full row
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
  // The store has been loaded. `loaded` is the session that the window shows; null if it shows none.
  UndoManagerForm(IHostApp& host, MultiRenameUndoStore& store, const MultiRenameUndo* loaded)
      : host_(host), store_(store), loaded_(loaded) {}

  void Open(DialogView& view) override;
  void Press(int control) override;
  // The one way to choose a session: the selection that a key moves chooses none (C-682).
  void ClickRow(int control, int row) override;

  // The session that was chosen, one of the store's; null if none was, or it has been deleted.
  MultiRenameUndo* Chosen() const { return chosen_; }

 private:
  void FillSessions();
  void Show(MultiRenameUndo& session);
  void Delete();
  void DeleteAll();
  bool Confirms(TextId title, TextId question);
  // Forgets a chosen session that the store no longer has.
  void DropDeleted();

  IHostApp& host_;
  MultiRenameUndoStore& store_;
  const MultiRenameUndo* loaded_;
  DialogView* view_ = nullptr;
  std::vector<MultiRenameUndo*> rows_;  // of the list of sessions
  MultiRenameUndo* chosen_ = nullptr;
};

}  // namespace Velmora::SDK
