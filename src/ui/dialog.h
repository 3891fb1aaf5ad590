// The base class of modal dialogs, whose templates are resources of the module.
//
// How a dialog is added to a tool:
//   1. The form, name_form.h: a struct with the fields, their defaults and what enables what; portable.
//   2. name_dlg.h: one function ShowNameDlg(host, form) that returns IDOK or IDCANCEL. name_dlg_posix.cpp
//      passes the form's fields, each under its member's name, to Platform::AskForm.
//   3. A number QX_DIALOG_NAME in ui/resource_ids.h, the controls' numbers in name_dlg_ids.h, the template in
//      name_dlg.rc, with default texts for hosts that have none; frame/QXUtils.rc includes the last two.
//   4. name_dlg_windows.cpp: tables of Ui::ControlText (control, text), Ui::ComboRow (item data, text),
//      Ui::Field (control, member) and Ui::EnableRule (control, condition), and a subclass of Ui::Dialog:
//      OnInit sets texts, fills lists, loads the fields; OnChange reads the fields into a copy of the form
//      and applies the rules; OnOk reads the fields and closes with IDOK.
//   5. tests/window/name_dlg_test.cpp drives it by messages and runs the layout checks.
#pragma once

#include <exception>

#include "platform/windows_api.h"
#include "ui/controls.h"
#include "ui/scroll_area.h"

namespace Ui {

class Dialog {
 public:
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;
  virtual ~Dialog() = default;

  // Shows the dialog, centred over its owner or, without one, on the screen, and runs it until Close. A
  // dialog that is higher than the work area of its monitor scrolls (scroll_area.h). Returns the argument of
  // Close, or IDCANCEL if the window cannot be created. If a handler throws, the dialog ends and this
  // function rethrows the exception, because exceptions must not propagate through the system's window code.
  INT_PTR ShowModal(HWND owner);

 protected:
  // `resource` is the number of the template in ui/resource_ids.h.
  explicit Dialog(int resource) : resource_(resource) {}

  // Returns the window; null while the dialog is not shown.
  HWND Window() const { return window_; }
  HWND Control(int number) const { return GetDlgItem(window_, number); }

  // Ends the dialog; `result` is above 0.
  void Close(INT_PTR result) { EndDialog(window_, result); }

  // Called when the controls exist and are not yet visible.
  virtual void OnInit() = 0;
  // Returns the control that gets the focus when the dialog opens; 0 is the first of the tab order. Called
  // after OnInit.
  virtual int FirstField() const { return 0; }
  // Called after OnInit, and after the user or the program has changed a text, a check mark or a selection;
  // once for several changes in a row. The controls, including the edit fields of combo boxes, have their new
  // state.
  virtual void OnChange() {}
  // Called when a button other than OK and Cancel is pressed; also for check boxes and radio buttons.
  virtual void OnButton(int /*control*/) {}
  // Called when the text of an edit control watched by WatchScroll (edit_view.h) has scrolled horizontally.
  virtual void OnScroll(int /*control*/) {}
  // Called when the dialog has moved to a monitor with another resolution, given in pixels per inch, before
  // the system moves the controls.
  virtual void OnScale(int /*pixelsOfAnInch*/) {}
  // Called before a read-only or disabled edit control or a label is drawn (WM_CTLCOLORSTATIC). May set
  // colours in `dc` and return the brush of the background, which the subclass owns; null for the system's
  // colours.
  virtual HBRUSH OnColorStatic(int /*control*/, HDC /*dc*/) { return nullptr; }
  // Called for every message except WM_INITDIALOG before Dialog handles it. Returns true if the message needs
  // no further handling.
  virtual bool OnMessage(UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/) { return false; }
  // Positions the window after the controls have been placed: by default, centres it over its owner.
  virtual void OnPlace();
  // Called for the OK button and the Enter key.
  virtual void OnOk() { Close(IDOK); }
  // Called for the Cancel button, the Escape key and the window's close button.
  virtual void OnCancel() { Close(IDCANCEL); }

 private:
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  // Handles a message and returns the result of the dialog procedure.
  INT_PTR Handle(UINT message, WPARAM wParam, LPARAM lParam);
  BOOL Start();
  void HandleCommand(int control, int notification);

  int resource_;
  HWND window_ = nullptr;
  ScrollArea scrollArea_;
  bool changePending_ = false;
  std::exception_ptr failure_;
};

}  // namespace Ui
