#include "multirename/window/message_loop.h"

#include <algorithm>
#include <iterator>

namespace Velmora::SDK {

namespace {

constexpr UINT kSystemTimer = 280;  // blinks carets

// Messages that are repeated without any change. They do not start the idle handlers.
constexpr UINT kMessagesWithoutIdle[] = {WM_PAINT, WM_NCMOUSEMOVE, kSystemTimer, WM_MOUSEMOVE};

bool TriggersIdle(UINT message) {
  return std::ranges::find(kMessagesWithoutIdle, message) == std::end(kMessagesWithoutIdle);
}

bool IsWaiting() {
  MSG message;
  return PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) != FALSE;
}

// Calls `call` for each object of the list as it is now, except those that are removed meanwhile, until a
// call returns true.
template <typename Object, typename Iterator, typename Call>
bool AnyOf(const std::vector<Object*>& list, Iterator begin, Iterator end, Call call) {
  for (Object* const object : std::vector<Object*>(begin, end)) {
    if (std::ranges::find(list, object) != list.end() && call(*object)) return true;
  }
  return false;
}

}  // namespace

int MessageLoop::Run() {
  constexpr BOOL kFailed = -1;
  bool isIdleDue = true;
  for (;;) {
    if (isIdleDue) RunIdleHandlers();
    MSG message;
    const BOOL result = GetMessageW(&message, nullptr, 0, 0);
    isIdleDue = false;
    if (result == kFailed) continue;
    if (result == FALSE) return static_cast<int>(message.wParam);
    if (!Filter(message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    isIdleDue = TriggersIdle(message.message);
  }
}

bool MessageLoop::Filter(MSG& message) {
  return AnyOf(filters_, filters_.rbegin(), filters_.rend(),
               [&message](MessageFilter& filter) { return filter.FilterMessage(message); });
}

void MessageLoop::RunIdleHandlers() {
  for (int count = 0; !IsWaiting(); ++count) {
    bool wantsMore = false;
    AnyOf(idleHandlers_, idleHandlers_.begin(), idleHandlers_.end(), [&](IdleHandler& handler) {
      wantsMore = handler.OnIdle(count) || wantsMore;
      return false;
    });
    if (!wantsMore) return;
  }
}

}  // namespace Velmora::SDK
