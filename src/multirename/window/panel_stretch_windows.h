// Distributes the space of a window that is wider than the rule panel needs among its controls. Windows build
// only.
#pragma once

#include <vector>

#include "platform/windows_api.h"

namespace Velmora::SDK {

class PanelStretch {
 public:
  PanelStretch() = default;
  PanelStretch(const PanelStretch&) = delete;
  PanelStretch& operator=(const PanelStretch&) = delete;

  // Call it while the controls are at the positions of the resource.
  void Attach(HWND panel, int pixelsOfAnInch);

  // Call it when the scale of the monitor changes.
  void SetScale(int pixelsOfAnInch);

  // Positions the controls in a panel of this width. If it is narrower than in the resource, uses the
  // resource's positions.
  void Apply(int width) const;

  // The size that the controls need, in pixels of the panel.
  int Width() const { return width_; }
  int Height() const { return height_; }

 private:
  struct Place {
    int control;
    RECT area;    // for a combo box, including the open list
    int moved;    // in eighths of the additional width
    int widened;  // likewise
  };

  HWND panel_ = nullptr;
  int scale_ = 0;
  int width_ = 0;
  int height_ = 0;
  std::vector<Place> places_;
};

}  // namespace Velmora::SDK
