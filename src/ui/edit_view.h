// What shows of the text of an edit control: tab stops, margin, and how far it is scrolled.
#pragma once

#include "platform/windows_api.h"

namespace Ui {

// Sets a tab stop after each so many characters of a multi-line edit control, counted in the average width of
// its font. With 1, and a font whose characters are equally wide, a tab is as wide as any other character.
void SetTabWidth(HWND edit, int characters);

// Pixels between the edge of an edit control and its text. A new font may change them.
int LeftMarginOf(HWND edit);
void SetLeftMargin(HWND edit, int pixels);

// How many pixels of its text a multi-line edit control has scrolled away to the left, counted up to 65535.
int ScrolledPixels(HWND edit);

// From then on the control's dialog gets Dialog::OnScroll each time ScrolledPixels has changed, whatever the
// reason: the scroll bar, the wheel, the caret, a mark drawn with the mouse, or another text.
void WatchScroll(HWND edit);

}  // namespace Ui
