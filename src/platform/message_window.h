// A window without a face: it receives the messages that other threads post to it (PostMessageW), and the
// thread that made it takes them, with Take or in a loop of GetMessageW and DispatchMessageW. For who drives
// the engine without a window of its own, for the native build's windows, and for tests.
//
// It belongs to the thread that made it, and receives nothing any more once that has ended.
#pragma once

#include <functional>
#include <memory>

#include "platform/text.h"

struct PostedMessage {
  UINT message = 0;
  WPARAM first = 0;
  LPARAM second = 0;
};

class QX_PLATFORM_API MessageWindow {
 public:
  // Called by DispatchMessageW. It may destroy the window.
  using Handler = std::function<void(const PostedMessage& message)>;

  // On the thread that takes the messages. Without a handler, messages that are dispatched go nowhere.
  explicit MessageWindow(Handler handler = nullptr);
  MessageWindow(const MessageWindow&) = delete;
  MessageWindow& operator=(const MessageWindow&) = delete;
  // What is posted to its handle from now on goes nowhere, and so does what was posted and not taken.
  ~MessageWindow();

  // The messages that a handler gets: WM_CLOSE and those of applications. All others are the system's.
  static constexpr bool IsHandled(UINT message) { return message == WM_CLOSE || message >= WM_APP; }

  HWND Handle() const;

  // Takes the next message. False if none comes within the time.
  bool Take(PostedMessage& message, DWORD milliseconds);

 private:
  struct State;
  std::unique_ptr<State> state_;
};
