#include "multirename/window/frame_placement_windows.h"

#include <algorithm>

#include "multirename/window/rename_window.h"
#include "ui/placement.h"

namespace Velmora::SDK {

namespace {

static_assert(sizeof(WINDOWPLACEMENT) == 44);

// Not a ShowWindow command: the window gets the rectangle and remains hidden.
constexpr UINT kPlaceOnly = 128;

// The range of window positions.
constexpr LONG kMinPosition = -32768;
constexpr LONG kMaxPosition = 32767;

bool IsPosition(LONG position) { return position >= kMinPosition && position <= kMaxPosition; }

// Reduces a size that was stored for a larger screen.
void LimitToWorkArea(HWND frame) {
  const RECT work = Ui::WorkAreaOf(frame);
  RECT own = {};
  if (IsRectEmpty(&work) || !GetWindowRect(frame, &own)) return;
  const LONG width = std::min(own.right - own.left, work.right - work.left);
  const LONG height = std::min(own.bottom - own.top, work.bottom - work.top);
  SetWindowPos(frame, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

bool IsSanePlacement(const WINDOWPLACEMENT& placement) {
  const RECT& area = placement.rcNormalPosition;
  return placement.length == sizeof(placement) && IsPosition(area.left) && IsPosition(area.top) &&
         IsPosition(area.right) && IsPosition(area.bottom) && area.left < area.right &&
         area.top < area.bottom;
}

void PlaceFrame(IHostApp& host, HWND frame) {
  WINDOWPLACEMENT stored = {};
  IHostConfig* const config = host.GetConfig();
  if (config && config->GetBlock(1, kPlacementSection, kPlacementKey, &stored, sizeof(stored)) &&
      IsSanePlacement(stored)) {
    stored.showCmd = kPlaceOnly;
    SetWindowPlacement(frame, &stored);
  }
  LimitToWorkArea(frame);
  Ui::CenterOverOwner(frame);
}

void StorePlacement(IHostApp& host, HWND frame) {
  WINDOWPLACEMENT placement = {};
  placement.length = sizeof(placement);
  IHostConfig* const config = host.GetConfig();
  if (config && GetWindowPlacement(frame, &placement))
    config->SetBlock(1, kPlacementSection, kPlacementKey, &placement, sizeof(placement));
}

}  // namespace Velmora::SDK
