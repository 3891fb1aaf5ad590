// The module's table of message loops, by the numbers of their threads. Any thread.
#pragma once

#include <map>
#include <mutex>

#include "multirename/window/message_loop.h"

namespace Velmora::SDK {

class MessageLoops {
 public:
  // That of the module.
  static MessageLoops& Instance();

  // The loop of a thread; null if it runs none. It belongs to the thread.
  MessageLoop* Find(DWORD thread);

 private:
  friend class MessageLoopEntry;

  std::mutex mutex_;
  std::map<DWORD, MessageLoop*> loops_;
};

// The loop of the calling thread is in the table for the time of this.
class MessageLoopEntry {
 public:
  explicit MessageLoopEntry(MessageLoop& loop);
  MessageLoopEntry(const MessageLoopEntry&) = delete;
  MessageLoopEntry& operator=(const MessageLoopEntry&) = delete;
  ~MessageLoopEntry();

 private:
  const DWORD thread_ = GetCurrentThreadId();
};

}  // namespace Velmora::SDK
