// The module's table of message loops by thread number. May be used on any thread.
#pragma once

#include <map>
#include <mutex>

#include "multirename/window/message_loop.h"

namespace Velmora::SDK {

class MessageLoops {
 public:
  // Returns the table of the module.
  static MessageLoops& Instance();

  // Returns the loop of a thread; null if it runs none. The loop belongs to its thread.
  MessageLoop* Find(DWORD thread);

 private:
  friend class MessageLoopEntry;

  std::mutex mutex_;
  std::map<DWORD, MessageLoop*> loops_;
};

// Enters the loop of the calling thread in the table while this object exists.
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
