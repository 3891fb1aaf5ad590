// The queue of commands that the module posts to the host's main thread: posted from any thread, taken on the
// main thread.
#pragma once

#include <deque>
#include <mutex>
#include <optional>

#include "frame/host/host_types.h"
#include "platform/handles.h"

namespace QxHost {

class HostApp;

struct PostedCommand {
  HostApp* extension;
  Velmora::SDK::u32 number;
  std::intptr_t a;
  std::intptr_t b;
};

class PostedCommands {
 public:
  PostedCommands();
  PostedCommands(const PostedCommands&) = delete;
  PostedCommands& operator=(const PostedCommands&) = delete;
  ~PostedCommands();

  // May be called from any thread.
  void Post(const PostedCommand& command);
  // Ends the current Wait, or the next one. May be called from any thread.
  void Wake();

  // Removes the commands that were posted for this extension.
  void Drop(const HostApp* extension);

  // Removes and returns the next command, in the order of posting; std::nullopt if the queue is empty.
  std::optional<PostedCommand> Take();

  // Waits until there has been a Post or a Wake since the last Wait. On Windows handles the messages of the
  // thread's windows meanwhile. Returns false if waiting fails.
  bool Wait();

 private:
  std::mutex mutex_;  // protects the queue
  std::deque<PostedCommand> queue_;
  HANDLE event_;
};

}  // namespace QxHost
