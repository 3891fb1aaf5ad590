// What the parts of the undrawn window share. Native build only.
#pragma once

#include "multirename/window/undrawn_window.h"

namespace Velmora::SDK {

// Posted to the frame for each action of UndrawnWindow that waits.
constexpr UINT kUndrawnJob = WM_APP + 0x100;

// The line that the user chooses.
int ChooseUndrawnLine(const MenuLines& lines);

// What UndrawnWindow::Current returns from now on.
void SetCurrentUndrawnWindow(std::shared_ptr<UndrawnWindow> window);

}  // namespace Velmora::SDK
