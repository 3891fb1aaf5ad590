// Operations on the controls of dialogs. A control is given by its window handle, or by its dialog and
// number; a control that does not exist is ignored. The length of texts is not limited.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "platform/text.h"

namespace Ui {

// Returns the text of an id of the language table. Null means the empty text or, for SetTexts, keeps the text
// of the dialog's template. A text is used before the function is called again.
using TextSource = std::function<const WCHAR*(std::uint32_t id)>;

// Get or set the text of a control; of the edit field for an editable combo box.
WString GetText(HWND control);
void SetText(HWND control, const WString& text);

// The number of the dialog's title in a table of texts.
constexpr int kTitle = 0;

// A control and the id of its text.
struct ControlText {
  int control;
  std::uint32_t text;
};
// Sets the texts of controls, and of the dialog's title for kTitle.
void SetTexts(HWND dialog, std::span<const ControlText> rows, const TextSource& texts);

// Sets the hints that empty edit controls and editable combo boxes show (EM_SETCUEBANNER, CB_SETCUEBANNER).
// Needs version 6 of the common controls.
void SetCueBanners(HWND dialog, std::span<const ControlText> rows, const TextSource& texts);

// One row of a combo box, identified by its item data. After filling, no row is selected.
struct ComboRow {
  int data;
  std::uint32_t text;
};
void FillComboBox(HWND combo, std::span<const ComboRow> rows, const TextSource& texts);

// Sets the strings of the list of an editable combo box, in their order. Does not change the edit field.
void FillHistory(HWND combo, const std::vector<WString>& strings);

// SelectedData returns the item data of the selected row; kNoRow if no row is selected.
constexpr int kNoRow = -1;
int SelectedData(HWND combo);
// Selects the first row with this item data, or no row if not found.
void SelectData(HWND combo, int data);

// One radio button of a group, identified by its data as the rows of a combo box are.
struct RadioRow {
  int control;
  int data;
};
// Returns the data of the checked button; kNoRow if no button is checked.
int MarkedRadio(HWND dialog, std::span<const RadioRow> rows);
// Checks the button with this data and unchecks all others. If no button has it, the first button becomes the
// tab stop of the group.
void MarkRadio(HWND dialog, std::span<const RadioRow> rows, int data);

// The most characters that the user can enter in an edit control (EM_LIMITTEXT). Texts that the program sets
// may be longer.
struct TextLimit {
  int control;
  std::size_t characters;
};
void LimitTexts(HWND dialog, std::span<const TextLimit> rows);

// Makes an edit control keep its selection when it gets the focus by the tab key or when the dialog opens. By
// default the dialog manager then selects all of its text.
void KeepSelection(HWND edit);

// Sets the text of a control if it differs from the present one, so that a field that is being edited keeps
// its caret.
void UpdateText(HWND control, const WString& text);

// Enables or disables a control. If the control to be disabled has the focus, first moves the focus to the
// next control, as the keyboard cannot move it away from a disabled control.
void EnableControl(HWND dialog, int control, bool enabled);

// Returns the width of the longest line of a text in the control's font, in pixels.
int TextWidth(HWND control, const WString& text);

}  // namespace Ui
