#include "host/controls/preview_watch.h"

#include "multirename/engine/rename_worker.h"

namespace QxHost {

thread_local PreviewWatch* PreviewWatch::current_ = nullptr;

PreviewWatch::PreviewWatch(HWND window, UINT message)
    : window_(window),
      message_(message),
      hook_(SetWindowsHookExW(WH_GETMESSAGE, OnTaken, nullptr, GetCurrentThreadId())) {
  current_ = this;
}

PreviewWatch::~PreviewWatch() {
  if (hook_) UnhookWindowsHookEx(hook_);
  current_ = nullptr;
}

// The message will be dispatched next; a message posted here arrives after that.
LRESULT CALLBACK PreviewWatch::OnTaken(int code, WPARAM wParam, LPARAM lParam) {
  const MSG& message = *reinterpret_cast<const MSG*>(lParam);
  if (code == HC_ACTION && wParam == PM_REMOVE && current_ &&
      message.message == Velmora::SDK::MRM_RUN_FINISHED && message.wParam == Velmora::SDK::kPreviewFinished) {
    PostMessageW(current_->window_, current_->message_, 0, 0);
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace QxHost
