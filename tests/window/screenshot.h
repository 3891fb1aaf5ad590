// Screenshots of windows for visual inspection: screenshots/NAME.png, beside the folder of the program.
#pragma once

#include "platform/text.h"

// Paints the window and saves it with its frame. Returns false if it could not be captured or written.
bool SaveScreenshot(HWND window, const WString& name);
