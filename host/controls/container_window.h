// The messages that the window of a container hands on. Windows build only.
#pragma once

#include "platform/windows_api.h"

namespace QxHost {

// Posted to the parent of a list, with the list's window: the list shows the rows that it has by now.
constexpr UINT kShowRows = WM_APP + 1;
// The same: other rows are selected.
constexpr UINT kReportSelection = WM_APP + 2;
// Posted to a container: the first preview has ended.
constexpr UINT kTakePicture = WM_APP + 3;

}  // namespace QxHost
