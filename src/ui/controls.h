// What dialogs do with their controls. A control is named by its window or by its dialog and number; one that
// is not there is passed over. Texts are of any length that the control holds.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "platform/text.h"

namespace Ui {

// Gives the text of a number of the language table. Null counts as the empty text, or leaves the one that the
// dialog's template has. The text is used before the next is asked for.
using TextSource = std::function<const WCHAR*(std::uint32_t id)>;

// The text of a control; for an editable combo box, of its edit field.
WString GetText(HWND control);
void SetText(HWND control, const WString& text);

// Stands for the dialog itself in a table of texts: its title.
constexpr int kTitle = 0;

struct ControlText {
  int control;
  std::uint32_t text;
};
void SetTexts(HWND dialog, std::span<const ControlText> rows, const TextSource& texts);

// The hint in an empty field of an edit control or an editable combo box. Needs version 6 of the common
// controls.
void SetCueBanners(HWND dialog, std::span<const ControlText> rows, const TextSource& texts);

// Rows of a combo box, told apart by their item data. No row is selected after filling.
struct ComboRow {
  int data;
  std::uint32_t text;
};
void FillComboBox(HWND combo, std::span<const ComboRow> rows, const TextSource& texts);

// The strings that an editable combo box offers, in their order; the edit field stays as it is.
void FillHistory(HWND combo, const std::vector<WString>& strings);

// The item data of the selected row; kNoRow when none is.
constexpr int kNoRow = -1;
int SelectedData(HWND combo);
// Selects the first row with this item data, or no row if there is none.
void SelectData(HWND combo, int data);

// The radio buttons of one group, told apart by their data as rows of a combo box are.
struct RadioRow {
  int control;
  int data;
};
// The data of the marked button; kNoRow when none is.
int MarkedRadio(HWND dialog, std::span<const RadioRow> rows);
// Marks the button with this data and no other. Without one the tab key leads to the first.
void MarkRadio(HWND dialog, std::span<const RadioRow> rows, int data);

// How much the user can enter in an edit control, in characters. What the program sets may be longer.
struct TextLimit {
  int control;
  std::size_t characters;
};
void LimitTexts(HWND dialog, std::span<const TextLimit> rows);

// The tab key and the opening of a dialog select all of an edit control's text; this one keeps its selection.
void KeepSelection(HWND edit);

// Sets the text of a control unless it is there already: a field that is being edited keeps its caret.
void UpdateText(HWND control, const WString& text);

// Greys a control out or back. The focus goes on to the next one if it would stay on a grey control, where no
// key could move it.
void EnableControl(HWND dialog, int control, bool enabled);

// Width of the longest line of a text in the control's own font, in pixels.
int TextWidth(HWND control, const WString& text);

}  // namespace Ui
