// A message-only window. Any thread may post messages to it (PostMessageW); the thread that created it
// receives them, with Take or in a loop of GetMessageW and DispatchMessageW. Serves callers that drive the
// engine without a visible window, the native build, and tests.
//
// A window belongs to the thread that created it and receives nothing after that thread has ended.
#pragma once

#include <functional>
#include <memory>

#include "platform/text.h"

// A message, with the arguments of PostMessageW.
struct PostedMessage {
  UINT message = 0;
  WPARAM first = 0;
  LPARAM second = 0;
};

class QX_PLATFORM_API MessageWindow {
 public:
  // Called by DispatchMessageW. It may destroy the window.
  using Handler = std::function<void(const PostedMessage& message)>;

  // Creates the window on the calling thread, which receives its messages. Without a handler, dispatched
  // messages are discarded.
  explicit MessageWindow(Handler handler = nullptr);
  MessageWindow(const MessageWindow&) = delete;
  MessageWindow& operator=(const MessageWindow&) = delete;
  // Destroys the window. Messages still in the queue, and those posted to its handle later, are discarded.
  ~MessageWindow();

  // Returns whether `message` is passed to the handler: WM_CLOSE and the application messages from WM_APP on.
  // The system handles all others.
  static constexpr bool IsHandled(UINT message) { return message == WM_CLOSE || message >= WM_APP; }

  // Returns the handle to which other threads post messages; null if the window could not be created.
  HWND Handle() const;

  // Removes the next message from the queue and stores it in `message`. Returns false if none arrives within
  // `milliseconds`; INFINITE waits without limit. Call it on the thread that created the window.
  bool Take(PostedMessage& message, DWORD milliseconds);

 private:
  struct State;
  std::unique_ptr<State> state_;
};
