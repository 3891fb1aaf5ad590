// A window without a face: it receives the messages that other threads post to it (PostMessageW), and the
// thread that made it takes them. For who drives the engine without a window of its own, and for tests.
#pragma once

#include <memory>

#include "platform/text.h"

struct PostedMessage {
  UINT message = 0;
  WPARAM first = 0;
  LPARAM second = 0;
};

class QX_PLATFORM_API MessageWindow {
 public:
  // On the thread that takes the messages.
  MessageWindow();
  MessageWindow(const MessageWindow&) = delete;
  MessageWindow& operator=(const MessageWindow&) = delete;
  // What is posted to its handle from now on goes nowhere.
  ~MessageWindow();

  HWND Handle() const;

  // Takes the next message. False if none comes within the time.
  bool Take(PostedMessage& message, DWORD milliseconds);

 private:
  struct State;
  std::unique_ptr<State> state_;
};
