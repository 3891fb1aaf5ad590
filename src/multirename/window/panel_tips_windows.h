// The tool tips of the rule panel: one control for all of its tools. Windows build only.
#pragma once

#include "platform/text.h"

namespace Velmora::SDK {

class PanelTips {
 public:
  PanelTips() = default;
  PanelTips(const PanelTips&) = delete;
  PanelTips& operator=(const PanelTips&) = delete;

  // The window is destroyed with its panel.
  void Create(HWND panel);
  HWND Window() const { return window_; }

  // The tip of a control; for a box with an edit field, of its field.
  void SetTip(int control, const WString& text);

  // Shows a message of the panel or of its controls to the tips.
  void Relay(const MSG& message) const;

 private:
  HWND panel_ = nullptr;
  HWND window_ = nullptr;
};

}  // namespace Velmora::SDK
