// What the forms of MultiRename need of the windows that show them.
//
// How a window is made:
//   PanelForm (panel_form.h), FrameForm (frame_form.h) and the dialogs' forms (dialog_form.h) hold every
//   rule. A window makes its controls under the numbers of panel_controls.h and of the forms' headers,
//   implements these views by one call of the system each, and reports what the user does: a press, a change,
//   a click on a row, a key, a posted message. It decides nothing.
//
//   A control that the window does not have is passed over, and so is a line or row that is not there.
//
// Life: the boxes, menus and dialogs of the views run message loops of their own. A form and its view outlive
// each such call: a WM_CLOSE that comes during one only notes that the window closes, and the window and the
// form go after the call has returned.
//
// Threads: all of it on the window's thread. What runs elsewhere is in rename_worker.h and rename_context.h.
#pragma once

#include <span>
#include <vector>

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// Stands in place of a control's number for the window itself: its title.
constexpr int kWindowTitle = 0;

// No line of a list box, or no row of a list.
constexpr int kNoLine = -1;

// A column of a list with headings; its width is in pixels of the screen at 96 to an inch.
struct TableColumn {
  WString heading;
  int width;
};

// The cells of the rows of such a list.
using TableRows = std::vector<std::vector<WString>>;

// The buttons of boxes are IDYES and what MessageBoxW returns else; the styles are its own.
class ControlView {
 public:
  // Owns boxes and notes, and gets posted messages.
  virtual HWND Window() = 0;

  // The text of a control; of a box with an edit field, the field's.
  virtual WString GetText(int control) = 0;
  virtual void SetText(int control, const WString& text) = 0;
  // Puts the caret at the end of the text.
  virtual void SelectEnd(int control) = 0;

  virtual bool IsChecked(int control) = 0;
  virtual void SetChecked(int control, bool isChecked) = 0;
  virtual bool IsEnabled(int control) = 0;
  virtual void SetEnabled(int control, bool isEnabled) = 0;
  virtual void GiveFocus(int control) = 0;

  // The lines of a list box, or those that a box with an edit field offers. Setting them selects none, and
  // leaves the text of an edit field alone.
  virtual void SetLines(int control, const std::vector<WString>& lines) = 0;
  virtual int SelectedLine(int control) = 0;
  virtual void SelectLine(int control, int line) = 0;

  // Lists with columns. Setting the rows replaces all, and none is selected.
  virtual void SetColumns(int control, std::span<const TableColumn> columns) = 0;
  virtual void SetRows(int control, const TableRows& rows) = 0;
  // The row of the list's selection mark.
  virtual int MarkedRow(int control) = 0;
  // Selects a row, gives it the list's focus and brings it into sight.
  virtual void SelectRow(int control, int row) = 0;

  // Shows a message box and returns the button.
  virtual int ShowBox(const WString& title, const WString& text, UINT style) = 0;

 protected:
  ~ControlView() = default;
};

// A control and the id of its text. The texts of some controls are those of the table that all modules share.
struct ControlTextRow {
  int control;
  u32 text;
};

}  // namespace Velmora::SDK
