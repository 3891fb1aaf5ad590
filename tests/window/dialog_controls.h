// Reads and operates the controls of any dialog, as a user does. modal_driver.h opens the dialog and provides
// keys, clicks and rows. A control is identified by its dialog and its id. Values are read from the control
// itself, not through the toolkit under test. Texts may have any length.
#pragma once

#include <vector>

#include "platform/text.h"

// Denotes the dialog itself, whose text is its title.
constexpr int kTitle = 0;

// For an editable combo box, returns the text of its edit field.
WString TextOf(HWND dialog, int control);

// Returns the hint of an empty edit control or editable combo box; empty if it has no hint.
WString CueBannerOf(HWND dialog, int control);

bool IsEnabled(HWND dialog, int control);
bool IsChecked(HWND dialog, int control);

// Return the rows of a combo box, in order; their item data; and the selected row, or CB_ERR.
std::vector<WString> RowsOf(HWND dialog, int control);
std::vector<int> RowDataOf(HWND dialog, int control);
int SelectedRow(HWND dialog, int control);

// Moves the focus to a control, as the dialog itself does.
void Focus(HWND dialog, int control);

// Replaces the text of an edit control by typing.
void EnterText(HWND dialog, int control, const WString& text);

// Replaces the text of an edit control by a paste, where the control accepts it, without running the dialog's
// message loop.
void PasteText(HWND dialog, int control, const WString& text);

// Sets the text of a control as another program does, without running the dialog's message loop.
void SendText(HWND dialog, int control, const WString& text);

// Presses a button without first running the dialog's message loop for waiting messages.
void PressAtOnce(HWND dialog, int button);

// Presses the close button in the title bar.
void PressCloseButton(HWND dialog);

// Returns the controls that the tab key visits, starting with the one that has the focus, until it returns
// there or a limit is reached.
std::vector<int> WalkByTab(HWND dialog);

// Expects that this window owns the dialog and is disabled.
void ExpectOwnedBy(HWND dialog, HWND owner);
