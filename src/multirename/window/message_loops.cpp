#include "multirename/window/message_loops.h"

#include <memory>

namespace Velmora::SDK {

MessageLoops& MessageLoops::Instance() {
  // Never destroyed: a thread that hangs in the host may remove its entry after the module's static objects
  // were destroyed.
  static MessageLoops& loops = *std::make_unique<MessageLoops>().release();
  return loops;
}

MessageLoop* MessageLoops::Find(DWORD thread) {
  const std::lock_guard lock(mutex_);
  const auto found = loops_.find(thread);
  return found == loops_.end() ? nullptr : found->second;
}

MessageLoopEntry::MessageLoopEntry(MessageLoop& loop) {
  MessageLoops& table = MessageLoops::Instance();
  const std::lock_guard lock(table.mutex_);
  table.loops_[thread_] = &loop;
}

MessageLoopEntry::~MessageLoopEntry() {
  MessageLoops& table = MessageLoops::Instance();
  const std::lock_guard lock(table.mutex_);
  table.loops_.erase(thread_);
}

}  // namespace Velmora::SDK
