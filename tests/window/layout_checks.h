// What must hold for the layout of every dialog, with any texts. A failed check reports the id of the
// control.
#pragma once

#include <set>

#include "platform/text.h"

// Returns the rectangle of a control in its dialog's client area, in pixels.
RECT AreaOf(HWND dialog, int control);

void ExpectControlsInsideClientArea(HWND dialog);
// Hidden labels, which are names for screen readers, may lie anywhere.
void ExpectNoControlsOverlap(HWND dialog);

// Checks that labels, buttons, rows of combo boxes, hints and the title fit in their own fonts.
void ExpectNoTextCutOff(HWND dialog);

// Like the above, for labels and buttons only: a combo box may cut its row if the open list shows it
// completely.
void ExpectLabelsAndButtonsFit(HWND dialog);

// Checks that access keys are unique and that the access key of each label or group box leads to a field.
void ExpectAccessKeysDiffer(HWND dialog);

// Checks that each edit control and list in the tab order follows a label or group box with a text, which
// screen readers use as its name. The controls in `except` are not checked.
void ExpectFieldsHaveNames(HWND dialog, const std::set<int>& except = {});

// Checks that each button, box and field label has an access key, except for these controls. Not part of
// ExpectLayoutHolds.
void ExpectEachLabelHasAnAccessKey(HWND dialog, const std::set<int>& except);

// All checks above except the last one; the given fields need no name.
void ExpectLayoutHolds(HWND dialog, const std::set<int>& withoutName = {});

// To the pixel, except for rounding if a size is odd.
void ExpectCenteredOver(HWND dialog, HWND owner);
