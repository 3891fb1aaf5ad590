// The rule panel of MultiRename (MultiRenameSimpleDlg): what its controls do.
//
// The window of the panel makes the controls of panel_controls.h, implements PanelView, calls Open once, and
// reports each press, change and double click and each of its posted messages. The forms of the three dialogs
// (dialog_form.h) are handed to PanelView::RunDialog.
//
// Life: RunDialog, PanelView::ShowMenu, ShowBox and the host's AskText run message loops of their own, in
// which the window gets other messages, WM_CLOSE too. The form, the frame's form and both views outlive each
// of these calls: a WM_CLOSE during one only notes that the window closes, and the window is destroyed after
// the call has returned, by Close of this form and then of the frame's. Close is what clears the engine's
// notifyWindow, which the compilations and Undo set.
//
// Threads: all of it on the window's thread. The worker computes and runs meanwhile: it posts
// MRM_ROWS_CHANGED and MRM_RUN_FINISHED to the panel's window. What changes rules first waits until the
// worker is idle: a preview stops at its next row. A run, which may ask something that needs this thread, is
// waited for by Close alone: what comes meanwhile is done once its MRM_RUN_FINISHED has come. Reset File List
// also waits for the host's main thread, or until the context says that the host is closing. It takes no
// messages meanwhile, so the main thread never sends one to this window: a new selection reaches the form as
// a posted MRM_NEW_SELECTION.
#pragma once

#include <string>
#include <vector>

#include "multirename/form/control_view.h"
#include "multirename/form/dialog_form.h"
#include "multirename/form/frame_form.h"
#include "multirename/form/panel_rules.h"
#include "multirename/form/profile_box.h"
#include "multirename/form/tag_dialog_form.h"
#include "multirename/rules/rename_context.h"

namespace Velmora::SDK {

class PanelView : public ControlView {
 public:
  // Posts a message to the panel; it comes back by OnMessage.
  virtual void Post(RenameMessage message) = 0;
  // Opens a menu below a control's client rectangle and returns the line's number.
  virtual int ShowMenu(int control, const MenuLines& lines) = 0;
  // Runs a modal dialog, a number of RenameResource, and returns what its form closed it with.
  virtual int RunDialog(int resource, DialogForm& form) = 0;
  // The tool tip of a control; for a box with an edit field, of its field.
  virtual void SetTip(int control, const WString& text) = 0;

 protected:
  ~PanelView() = default;
};

class PanelForm {
 public:
  // The panel tells the frame its window, and is known to the host's events by it.
  PanelForm(PanelView& view, FrameForm& frame, RenameContext& context);
  PanelForm(const PanelForm&) = delete;
  PanelForm& operator=(const PanelForm&) = delete;

  // The controls are there: gives them texts, tips and defaults, and posts MRM_UPDATE_PREVIEW.
  void Open();

  // A button or a check box was clicked; a check box has its new mark. Nothing happens if it is disabled.
  void Press(int control);

  // The button that Enter presses while a control has the focus, 0 for one outside the panel: Start, but in
  // the fields of the next pair Add, once there is something to find.
  int DefaultButton(int focused) const;

  // A text was changed or another line was chosen, by the user. What the form itself sets may be reported
  // too; it is passed over.
  void Change(int control);

  // A double click on a list with columns, wherever on it.
  void DoubleClick(int control);

  // A posted message. False for another one.
  bool OnMessage(UINT message, WPARAM first, LPARAM second);

  // The window is being destroyed: waits until the worker is idle or has ended, a run too, and takes the
  // window from the engine, so that nothing is posted to it any more. FrameForm::Close comes after this.
  void Close();

  // MRM_NEW_SELECTION: a new command 31000 came while the window is open. Stops a preview, or lets a run end,
  // and then takes the rows out of the list; the new ones appear with Reset File List. Does nothing if the
  // list shows the newest rows already.
  void OnNewSelection();

  // Enables the controls after a run, or disables them for one. With a loaded undo session only Undo, its
  // "..." and Close can be used (C-684).
  void EnableControls(bool on);

  bool UndoAvailable() const { return undoAvailable_; }
  bool SessionLoaded() const { return sessionLoaded_; }
  // The session whose entries are in the list, one of the store's; null if no session is
  // loaded, or it was deleted.
  const MultiRenameUndo* LoadedSession() const { return loadedSession_; }
  const WString& ProfileName() const { return profileName_; }
  const std::vector<PropertyName>& PropertyNames() const { return propertyNames_; }

 private:
  using PressHandler = void (PanelForm::*)();
  struct PressRow {
    int control;
    PressHandler handler;
  };
  static const PressRow kPressRows[];

  // A template box with what belongs to it.
  struct TemplateBox {
    int control;
    int tagButton;
    const WCHAR* history;
    const WCHAR* standard;
    std::vector<WString> offered;  // the lines of the box
  };

  // Compiles the rules, and previews if that is live; after the run, if there is one. Does nothing while a
  // profile or a reset writes.
  void UpdatePreview();
  // The rules of the controls and the rows of the list, to the engine. False, with the error in the status
  // bar, if they cannot be compiled.
  bool Compile();
  void StartRun();
  void UndoRun();
  void ResetFileList();
  void OnRunFinished(WPARAM kind, bool nothingToRestore);
  void UpdateStatus();
  void PostUpdate();
  // Wakes the worker for the run that it is to do, with the controls disabled.
  void BeginRun();

  void AddPair();
  void OpenPairDialog();
  void OpenNameTags() { OpenTagMenu(templates_[0]); }
  void OpenExtensionTags() { OpenTagMenu(templates_[1]); }
  void OpenTagMenu(const TemplateBox& box);

  void ChooseProfile();
  void LoadProfile(const MultiRenameProfile& profile);
  void SaveProfile();
  void DeleteProfile();
  bool Confirms(const WString& question);

  void OpenUndoManager();
  void LoadUndoSession(MultiRenameUndo& session);
  void CloseWindow() { frame_.PostClose(); }

  PanelView& view_;
  FrameForm& frame_;
  RenameContext& context_;
  IHostApp& host_;
  MultiRenameEngine& engine_;
  PanelRules rules_;
  ProfileBox profileBox_;
  TemplateBox templates_[2];
  WString profileName_;
  std::vector<PropertyName> propertyNames_;
  MultiRenameUndo* loadedSession_ = nullptr;
  bool loadingGuard_ = false;
  bool undoAvailable_ = false;
  bool sessionLoaded_ = false;
  bool isWriting_ = false;       // the form itself changes controls
  bool isRunning_ = false;       // the worker renames or restores, and its MRM_RUN_FINISHED is to come;
  bool isUpdateDue_ = false;     // MRM_UPDATE_PREVIEW came meanwhile,
  bool isSelectionDue_ = false;  // or MRM_NEW_SELECTION
};

}  // namespace Velmora::SDK
