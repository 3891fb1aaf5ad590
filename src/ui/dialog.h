// A modal dialog: a template of the module's resources and the few things that its class must answer.
//
// How a dialog is added to a tool:
//   1. The form, name_form.h: a struct with the fields, their defaults and what enables what; portable.
//   2. name_dlg.h: one function ShowNameDlg(host, form) that answers IDOK or IDCANCEL. name_dlg_posix.cpp
//      hands the form's fields to Platform::AskForm, each by its member's name.
//   3. A number QX_DIALOG_NAME in ui/resource_ids.h, the controls' numbers in name_dlg_ids.h, the template in
//      name_dlg.rc, with the words that show where the host has none; frame/QXUtils.rc includes the last two.
//   4. name_dlg_windows.cpp: tables of Ui::ControlText (control, text), Ui::ComboRow (item data, text),
//      Ui::Field (control, member) and Ui::EnableRule (control, condition), and a class from Ui::Dialog:
//      OnInit sets texts, fills lists, loads the fields; OnChange reads the fields into a copy of the form
//      and applies the rules; OnOk reads the fields and closes with IDOK.
//   5. tests/window/name_dlg_test.cpp drives it by messages and holds it against the layout checks.
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

  // Shows the dialog in the middle of its owner (of the screen without one) and runs it until Close. A dialog
  // that is higher than the work area of its monitor scrolls, see scroll_area.h. Returns what Close was
  // given, and IDCANCEL where the window cannot be made. An exception of a handler ends the dialog and leaves
  // from here, as none may pass through the system's window code.
  INT_PTR ShowModal(HWND owner);

 protected:
  // A number of ui/resource_ids.h.
  explicit Dialog(int resource) : resource_(resource) {}

  // Null but while the dialog is shown.
  HWND Window() const { return window_; }
  HWND Control(int number) const { return GetDlgItem(window_, number); }

  // Ends the dialog; `result` is above 0.
  void Close(INT_PTR result) { EndDialog(window_, result); }

  // The controls are there and not yet visible.
  virtual void OnInit() = 0;
  // The control that has the focus at first; asked after OnInit. 0 is the first of the tab order.
  virtual int FirstField() const { return 0; }
  // After OnInit, and each time the user or the program has changed a text, a mark or a selection; once for
  // several changes in a row. The controls have their new state, a combo box's edit field too.
  virtual void OnChange() {}
  // A button other than OK and Cancel was pressed. Check boxes and radio buttons come here as well.
  virtual void OnButton(int /*control*/) {}
  // The text of an edit control that WatchScroll watches (edit_view.h) has been scrolled to the left or the
  // right.
  virtual void OnScroll(int /*control*/) {}
  // The dialog has come to a monitor of another scale, in pixels of an inch. The system gives the controls
  // their new places after this.
  virtual void OnScale(int /*pixelsOfAnInch*/) {}
  // A read-only edit control, a disabled one or a label is about to be drawn: sets colours in `dc` and
  // answers the brush of the background, which stays the class's. Null leaves the control as the system draws
  // it.
  virtual HBRUSH OnColorStatic(int /*control*/, HDC /*dc*/) { return nullptr; }
  // Any message but WM_INITDIALOG, before it is heeded here. True if it is done.
  virtual bool OnMessage(UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/) { return false; }
  // Gives the window its place, when the controls have theirs: in the middle of its owner.
  virtual void OnPlace();
  // The OK button or Enter.
  virtual void OnOk() { Close(IDOK); }
  // The Cancel button, Escape, or the window's close button.
  virtual void OnCancel() { Close(IDCANCEL); }

 private:
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  // Returns what the dialog procedure returns.
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
