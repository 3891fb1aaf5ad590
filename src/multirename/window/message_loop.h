// The message loop of MultiRename's window, on the window's thread. Filters receive each message before it is
// translated; idle handlers run while no message is waiting.
//
// MSG is the system's structure (GetMessageW); the native build has one with the same fields.
#pragma once

#include <vector>

#include "platform/windows_api.h"

namespace Velmora::SDK {

class MessageFilter {
 public:
  // Returns true if the message has been handled and must not be processed further.
  virtual bool FilterMessage(MSG& message) = 0;

 protected:
  ~MessageFilter() = default;
};

class IdleHandler {
 public:
  // `count` is the number of calls since the last message. Returns true to be called again before the next
  // one.
  virtual bool OnIdle(int count) = 0;

 protected:
  ~IdleHandler() = default;
};

// Filters and handlers may add and remove themselves and each other while they are called.
class MessageLoop {
 public:
  MessageLoop() = default;
  MessageLoop(const MessageLoop&) = delete;
  MessageLoop& operator=(const MessageLoop&) = delete;

  // The filter that was added last receives a message first.
  void AddFilter(MessageFilter& filter) { filters_.push_back(&filter); }
  void RemoveFilter(MessageFilter& filter) { std::erase(filters_, &filter); }
  void AddIdleHandler(IdleHandler& handler) { idleHandlers_.push_back(&handler); }
  void RemoveIdleHandler(IdleHandler& handler) { std::erase(idleHandlers_, &handler); }

  // Processes the thread's messages until WM_QUIT, and returns its exit code. Ignores a failure to get a
  // message.
  int Run();

 private:
  bool Filter(MSG& message);
  void RunIdleHandlers();

  std::vector<MessageFilter*> filters_;
  std::vector<IdleHandler*> idleHandlers_;
};

}  // namespace Velmora::SDK
