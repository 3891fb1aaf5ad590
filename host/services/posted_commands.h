// Commands that the module wants to be given on the host's main thread: posted from any thread, taken there.
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

  // Any thread.
  void Post(const PostedCommand& command);
  // Ends the current Wait, or the next one. Any thread.
  void Wake();

  // Takes out what was posted for this extension.
  void Drop(const HostApp* extension);

  // The next command, in the order in which they were posted.
  std::optional<PostedCommand> Take();

  // Waits for a Post or a Wake since the last Wait; on Windows what is sent and posted to windows of this
  // thread is handled meanwhile. False if the system cannot wait.
  bool Wait();

 private:
  std::mutex mutex_;  // guards the queue
  std::deque<PostedCommand> queue_;
  HANDLE event_;
};

}  // namespace QxHost
