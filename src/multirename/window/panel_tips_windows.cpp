#include "multirename/window/panel_tips_windows.h"

// Needs windows.h first.
#include <commctrl.h>

#include "multirename/form/panel_controls.h"
#include "multirename/window/control_view_windows.h"
#include "ui/module_instance.h"

namespace Velmora::SDK {

void PanelTips::Create(HWND panel) {
  panel_ = panel;
  // TTS_NOPREFIX shows ampersands in the texts.
  window_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                            CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, panel, nullptr,
                            Ui::ModuleInstance(), nullptr);
  SendMessageW(window_, TTM_SETDELAYTIME, TTDT_INITIAL, kTipDelay);
  SendMessageW(window_, TTM_SETDELAYTIME, TTDT_AUTOPOP, kTipDuration);
  SendMessageW(window_, TTM_SETDELAYTIME, TTDT_RESHOW, kTipDelayBetween);
  SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, -1);
}

void PanelTips::SetTip(int control, const WString& text) {
  const HWND tipped = EditFieldOf(GetDlgItem(panel_, control));
  if (!tipped) return;
  TOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND;
  tool.hwnd = panel_;
  tool.uId = reinterpret_cast<UINT_PTR>(tipped);
  tool.lpszText = const_cast<WCHAR*>(text.c_str());
  SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void PanelTips::Relay(const MSG& message) const {
  if (message.message < WM_MOUSEFIRST || message.message > WM_MOUSELAST) return;
  MSG relayed = message;
  SendMessageW(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

}  // namespace Velmora::SDK
