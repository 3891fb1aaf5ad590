// How an edit control displays its text: tab stops, margin, scroll position.
#pragma once

#include "platform/windows_api.h"

namespace Ui {

// Sets tab stops at every multiple of `characters` average character widths in a multi-line edit control
// (EM_SETTABSTOPS). With 1 and a fixed-pitch font, a tab is as wide as any other character.
void SetTabWidth(HWND edit, int characters);

// Get or set the distance between the left edge of an edit control and its text, in pixels. Setting a font
// may change it.
int LeftMarginOf(HWND edit);
void SetLeftMargin(HWND edit, int pixels);

// Returns by how many pixels the text of a multi-line edit control is scrolled to the left, modulo 65536.
int ScrolledPixels(HWND edit);

// Makes the control's dialog call Dialog::OnScroll each time ScrolledPixels has changed, for whatever reason:
// the scroll bar, the wheel, the caret, a selection with the mouse, or a new text.
void WatchScroll(HWND edit);

}  // namespace Ui
