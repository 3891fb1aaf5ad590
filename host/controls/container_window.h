// The messages that the window of a container passes on. Windows build only.
#pragma once

#include "platform/windows_api.h"

namespace QxHost {

// Posted to the parent of a list, with the list's window: the list must show its present rows.
constexpr UINT kShowRows = WM_APP + 1;
// Posted in the same way: the selection has changed.
constexpr UINT kReportSelection = WM_APP + 2;
// Posted to a container: the first preview has ended.
constexpr UINT kTakePicture = WM_APP + 3;

}  // namespace QxHost
