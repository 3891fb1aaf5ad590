// The tool tips of the rule panel, shown by one control. Windows build only.
#pragma once

#include "platform/text.h"

namespace Velmora::SDK {

class PanelTips {
 public:
  PanelTips() = default;
  PanelTips(const PanelTips&) = delete;
  PanelTips& operator=(const PanelTips&) = delete;

  // Creates the control, which is destroyed with the panel.
  void Create(HWND panel);
  HWND Window() const { return window_; }

  // Sets the tool tip of a control; for a combo box, that of its edit field.
  void SetTip(int control, const WString& text);

  // Passes a mouse message of the panel or of its controls to the tool tips.
  void Relay(const MSG& message) const;

 private:
  HWND panel_ = nullptr;
  HWND window_ = nullptr;
};

}  // namespace Velmora::SDK
