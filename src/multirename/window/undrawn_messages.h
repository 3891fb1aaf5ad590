// Declarations that the parts of the undrawn window share. Native build only.
#pragma once

#include "multirename/window/undrawn_window.h"

namespace Velmora::SDK {

// Posted to the frame for each pending action of UndrawnWindow.
constexpr UINT kUndrawnJob = WM_APP + 0x100;

// Returns the line that the user chooses.
int ChooseUndrawnLine(const MenuLines& lines);

// Sets the window that UndrawnWindow::Current returns.
void SetCurrentUndrawnWindow(std::shared_ptr<UndrawnWindow> window);

}  // namespace Velmora::SDK
