// What must hold for the layout of every dialog, whatever texts it shows. Each check fails the test with the
// number of the control.
#pragma once

#include <set>

#include "platform/text.h"

// The place of a control in its dialog's client area, in pixels.
RECT AreaOf(HWND dialog, int control);

void ExpectControlsInsideClientArea(HWND dialog);
void ExpectNoControlsOverlap(HWND dialog);

// Labels, buttons, rows of combo boxes, hints and the title, in their own fonts against their room.
void ExpectNoTextCutOff(HWND dialog);

// The same for labels and buttons alone: a closed box may cut its row where the open list shows it whole.
void ExpectLabelsAndButtonsFit(HWND dialog);

// No two controls have the same access key, and that of each label or group box leads to a field.
void ExpectAccessKeysDiffer(HWND dialog);

// Each edit control and each list that the tab key reaches follows a label or a group box with a text, from
// which screen readers take its name; but for these controls.
void ExpectFieldsHaveNames(HWND dialog, const std::set<int>& except = {});

// Each button, box and label of a field has an access key, but for these controls. Not among the checks of
// ExpectLayoutHolds.
void ExpectEachLabelHasAnAccessKey(HWND dialog, const std::set<int>& except);

// All of the above but the last; these fields may be without a name.
void ExpectLayoutHolds(HWND dialog, const std::set<int>& withoutName = {});

// To a pixel, the parity of the sizes aside.
void ExpectCenteredOver(HWND dialog, HWND owner);
