// Gives the controls of the rule panel their share of a window that is wider than the panel needs. Windows
// build only.
#pragma once

#include <vector>

#include "platform/windows_api.h"

namespace Velmora::SDK {

class PanelStretch {
 public:
  PanelStretch() = default;
  PanelStretch(const PanelStretch&) = delete;
  PanelStretch& operator=(const PanelStretch&) = delete;

  // The panel has its controls at the places of the resource.
  void Attach(HWND panel, int pixelsOfAnInch);

  // The monitor has another scale.
  void SetScale(int pixelsOfAnInch);

  // Gives the controls their places in a panel of this width; one that is narrower than the resource has them
  // at its places.
  void Apply(int width) const;

  // What the controls need, in pixels of the panel.
  int Width() const { return width_; }
  int Height() const { return height_; }

 private:
  struct Place {
    int control;
    RECT area;    // for a box with a list, with the open list
    int moved;    // eighths of what the panel has more than it needs
    int widened;  // the same
  };

  HWND panel_ = nullptr;
  int scale_ = 0;
  int width_ = 0;
  int height_ = 0;
  std::vector<Place> places_;
};

}  // namespace Velmora::SDK
