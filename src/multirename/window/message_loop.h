// The message loop of MultiRename's window, on the window's thread: filters see each message before it is
// translated, idle handlers run while none is waiting.
//
// The record MSG is the system's (GetMessageW); the native build has its own of the same fields.
#pragma once

#include <vector>

#include "platform/windows_api.h"

namespace Velmora::SDK {

class MessageFilter {
 public:
  // True if the message is dealt with: nobody else gets it.
  virtual bool FilterMessage(MSG& message) = 0;

 protected:
  ~MessageFilter() = default;
};

class IdleHandler {
 public:
  // `count` is how often it was called since the last message. True to be called again before the next one.
  virtual bool OnIdle(int count) = 0;

 protected:
  ~IdleHandler() = default;
};

// Filters and handlers may be added and removed by themselves and by each other while they are called.
class MessageLoop {
 public:
  MessageLoop() = default;
  MessageLoop(const MessageLoop&) = delete;
  MessageLoop& operator=(const MessageLoop&) = delete;

  // The filter that was added last sees a message first.
  void AddFilter(MessageFilter& filter) { filters_.push_back(&filter); }
  void RemoveFilter(MessageFilter& filter) { std::erase(filters_, &filter); }
  void AddIdleHandler(IdleHandler& handler) { idleHandlers_.push_back(&handler); }
  void RemoveIdleHandler(IdleHandler& handler) { std::erase(idleHandlers_, &handler); }

  // Takes the thread's messages until WM_QUIT, and returns its exit code. A failure to get one is passed
  // over.
  int Run();

 private:
  bool Filter(MSG& message);
  void RunIdleHandlers();

  std::vector<MessageFilter*> filters_;
  std::vector<IdleHandler*> idleHandlers_;
};

}  // namespace Velmora::SDK
