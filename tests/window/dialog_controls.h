// What the tests of all dialogs ask of controls, and do to them as a user does; modal_driver.h opens the
// dialog and has keys, clicks and rows. A control is named by its dialog and its number. What is read comes
// from the control itself and not from the toolkit under test. Texts are of any length.
#pragma once

#include <vector>

#include "platform/text.h"

// Stands for the dialog itself: its title.
constexpr int kTitle = 0;

// Of an editable combo box: that of its edit field.
WString TextOf(HWND dialog, int control);

// The hint in an empty edit control or editable combo box; empty without one.
WString CueBannerOf(HWND dialog, int control);

bool IsEnabled(HWND dialog, int control);
bool IsChecked(HWND dialog, int control);

// Rows of a combo box, in order, and their item data; the selected row, or CB_ERR.
std::vector<WString> RowsOf(HWND dialog, int control);
std::vector<int> RowDataOf(HWND dialog, int control);
int SelectedRow(HWND dialog, int control);

// Gives a control the focus, as the dialog does itself.
void Focus(HWND dialog, int control);

// Types a text in place of what stands in an edit control.
void EnterText(HWND dialog, int control, const WString& text);

// Puts a text in place of what stands in an edit control, as a paste does where the system lets it; the
// dialog's loop has not run then.
void PasteText(HWND dialog, int control, const WString& text);

// Sets the text of a control as another program does; the dialog's loop has not run then.
void SendText(HWND dialog, int control, const WString& text);

// Presses a button without letting the dialog's loop take what waits before it.
void PressAtOnce(HWND dialog, int button);

// The close button in the caption.
void PressCloseButton(HWND dialog);

// Where the tab key leads from the control that has the focus, until it comes back there or to no end. The
// first is the one that has the focus.
std::vector<int> WalkByTab(HWND dialog);

// That the window which was active, or the host's, owns the dialog and can not be used meanwhile.
void ExpectOwnedBy(HWND dialog, HWND owner);
