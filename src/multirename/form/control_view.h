// The operations that the forms of MultiRename need from the windows that show them.
//
// A window works as follows:
//   PanelForm (panel_form.h), FrameForm (frame_form.h) and the dialogs' forms (dialog_form.h) contain all
//   rules. The window creates its controls with the numbers of panel_controls.h and of the forms' headers,
//   implements these views with one call of the system each, and reports what the user does: a press, a
//   change, a click on a row, a key, a posted message. It makes no decisions.
//
//   Operations on a control that the window does not have, or on a missing line or row, have no effect.
//
// Lifetime: the boxes, menus and dialogs of the views run nested message loops. A form and its view must
// outlive each such call: a WM_CLOSE that arrives during one only records that the window is to close, and
// the window and the form are destroyed after the call has returned.
//
// Threads: everything runs on the window's thread. For what runs on others, see rename_worker.h and
// rename_context.h.
#pragma once

#include <span>
#include <vector>

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// Denotes the window itself in place of a control's number; its text is the title.
constexpr int kWindowTitle = 0;

// No line of a list box, or no row of a list.
constexpr int kNoLine = -1;

// A column of a list with headings. The width is in pixels at 96 pixels per inch.
struct TableColumn {
  WString heading;
  int width;
};

// The cells of the rows of such a list.
using TableRows = std::vector<std::vector<WString>>;

// The styles of message boxes are those of MessageBoxW, and so are the buttons that they return, such as
// IDYES.
class ControlView {
 public:
  // Returns the window that owns boxes and notes and receives posted messages.
  virtual HWND Window() = 0;

  // The text of a control; for a combo box, that of its edit field.
  virtual WString GetText(int control) = 0;
  virtual void SetText(int control, const WString& text) = 0;
  // Puts the caret at the end of the text.
  virtual void SelectEnd(int control) = 0;

  virtual bool IsChecked(int control) = 0;
  virtual void SetChecked(int control, bool isChecked) = 0;
  virtual bool IsEnabled(int control) = 0;
  virtual void SetEnabled(int control, bool isEnabled) = 0;
  virtual void GiveFocus(int control) = 0;

  // The lines of a list box or combo box. SetLines selects none and leaves the text of an edit field
  // unchanged.
  virtual void SetLines(int control, const std::vector<WString>& lines) = 0;
  virtual int SelectedLine(int control) = 0;
  virtual void SelectLine(int control, int line) = 0;

  // Lists with columns. SetRows replaces all rows and selects none.
  virtual void SetColumns(int control, std::span<const TableColumn> columns) = 0;
  virtual void SetRows(int control, const TableRows& rows) = 0;
  // Returns the row with the list's selection mark (LVM_GETSELECTIONMARK).
  virtual int MarkedRow(int control) = 0;
  // Selects a row, gives it the focus within the list and scrolls to it.
  virtual void SelectRow(int control, int row) = 0;

  // Shows a message box and returns the button.
  virtual int ShowBox(const WString& title, const WString& text, UINT style) = 0;

 protected:
  ~ControlView() = default;
};

// A control and the id of its text. Some texts are in the table that all modules share.
struct ControlTextRow {
  int control;
  u32 text;
};

}  // namespace Velmora::SDK
