// The rule panel of MultiRename (MultiRenameSimpleDlg): what its controls do.
//
// Implemented in panel_form.cpp (controls, pairs, tags, undo manager), panel_profiles.cpp (Load / Save) and
// panel_runs.cpp (previews, runs, a new list of files).
//
// The window of the panel creates the controls of panel_controls.h, implements PanelView, calls Open once,
// and reports each press, change, double click and posted message. The form passes the forms of the three
// dialogs (dialog_form.h) to PanelView::RunDialog.
//
// Lifetime: RunDialog, PanelView::ShowMenu, ShowBox and the host's AskText run nested message loops, in which
// the window receives other messages, including WM_CLOSE. The form, the frame's form and both views must
// outlive these calls: a WM_CLOSE during one only records that the window is to close. The window is
// destroyed after the call has returned, by Close of this form and then of the frame's form. Close clears the
// engine's notifyWindow, which the compilations and Undo set.
//
// Threads: everything runs on the window's thread. Meanwhile the worker computes and runs, and posts
// MRM_ROWS_CHANGED and MRM_RUN_FINISHED to the panel's window. Changes of rules first wait until the worker
// is idle; a preview stops at its next row. A run may need this thread for a question of the host, so only
// Close waits for a run; other messages are processed after its MRM_RUN_FINISHED. Reset File List also waits
// for the host's main thread, or until the context reports that the host is closing. The window processes no
// messages during this wait, so the main thread never sends one to it: a new selection arrives as a posted
// MRM_NEW_SELECTION.
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
  // Posts a message to the panel, which passes it to OnMessage.
  virtual void Post(RenameMessage message) = 0;
  // Opens a menu below a control's client rectangle and returns the number of the chosen line.
  virtual int ShowMenu(int control, const MenuLines& lines) = 0;
  // Runs the modal dialog with this number of RenameResource, and returns the result with which its form
  // closed it.
  virtual int RunDialog(int resource, DialogForm& form) = 0;
  // Sets the tool tip of a control; for a combo box, that of its edit field.
  virtual void SetTip(int control, const WString& text) = 0;

 protected:
  ~PanelView() = default;
};

class PanelForm {
 public:
  PanelForm(PanelView& view, FrameForm& frame, RenameContext& context);
  PanelForm(const PanelForm&) = delete;
  PanelForm& operator=(const PanelForm&) = delete;

  // Call it when the controls exist. Tells the frame the panel's window, sets texts, tips and defaults, and
  // posts MRM_UPDATE_PREVIEW.
  void Open();

  // A button or a check box was clicked; the mark of a check box has already changed. Does nothing if the
  // control is disabled.
  void Press(int control);

  // Returns the button that Enter presses while `focused` has the focus (0 for a control outside the panel):
  // Add in the fields of the next pair if there is a text to find, otherwise Start.
  int DefaultButton(int focused) const;

  // The user has changed a text or selected another line. Changes by the form itself may be reported too;
  // they are ignored.
  void Change(int control);

  // A double click anywhere on a list with columns.
  void DoubleClick(int control);

  // Handles a posted message. Returns false if it is not one of the panel's.
  bool OnMessage(UINT message, WPARAM first, LPARAM second);

  // Call it when the window is being destroyed, before FrameForm::Close. Waits until the worker is idle,
  // after a run too, or has ended, and removes the window from the engine, so that nothing is posted to it
  // any more.
  void Close();

  // Handles MRM_NEW_SELECTION, which is posted if command 31000 is run while the window is open. Stops a
  // preview and removes the rows from the list, during a run only after its end; the new rows appear with
  // Reset File List. Does nothing if the list already shows the newest rows.
  void OnNewSelection();

  // Enables the controls, or disables them for a run. While an undo session is loaded, only Undo, its "..."
  // and Close can be used (C-684).
  void EnableControls(bool on);

  bool UndoAvailable() const { return undoAvailable_; }
  bool SessionLoaded() const { return sessionLoaded_; }
  // Returns the session whose entries are in the list, which belongs to the store; null if no session is
  // loaded, or if it was deleted.
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

  // A template box with its button, its history and its default.
  struct TemplateBox {
    int control;
    int tagButton;
    const WCHAR* history;
    const WCHAR* standard;
    std::vector<WString> offered;  // the lines of the box
  };

  // Compiles the rules and, with Live Preview, starts a preview. During a run, does so after the run. Does
  // nothing while a profile is being loaded or the list is being reset.
  void UpdatePreview();
  // Passes the rules of the controls and the rows of the list to the engine. Returns false, with the error in
  // the engine's status, if the rules cannot be compiled.
  bool Compile();
  void StartRun();
  void UndoRun();
  void ResetFileList();
  void OnRunFinished(WPARAM kind, bool nothingToRestore);
  void UpdateStatus();
  void PostUpdate();
  // Starts the run that was set for the worker, with the controls disabled.
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
  bool isWriting_ = false;       // the form itself is changing controls
  bool isRunning_ = false;       // the worker renames or restores; MRM_RUN_FINISHED has not arrived yet
  bool isUpdateDue_ = false;     // MRM_UPDATE_PREVIEW arrived during the run
  bool isSelectionDue_ = false;  // MRM_NEW_SELECTION arrived during the run
};

}  // namespace Velmora::SDK
