// Pictures of windows, for people to look at: screenshots/NAME.png beside the folder of the program.
#pragma once

#include "platform/text.h"

// Paints what is due, and saves the window with its frame. False if it could not be taken or written.
bool SaveScreenshot(HWND window, const WString& name);
