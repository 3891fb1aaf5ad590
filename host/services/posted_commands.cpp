#include "host/services/posted_commands.h"

#include "host/services/wait_for_event.h"

namespace QxHost {

PostedCommands::PostedCommands() : event_(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}

PostedCommands::~PostedCommands() {
  if (event_) CloseHandle(event_);
}

void PostedCommands::Post(const PostedCommand& command) {
  {
    const std::lock_guard lock(mutex_);
    queue_.push_back(command);
  }
  Wake();
}

void PostedCommands::Wake() {
  if (event_) SetEvent(event_);
}

std::optional<PostedCommand> PostedCommands::Take() {
  const std::lock_guard lock(mutex_);
  if (queue_.empty()) return std::nullopt;
  const PostedCommand command = queue_.front();
  queue_.pop_front();
  return command;
}

void PostedCommands::Drop(const HostApp* extension) {
  const std::lock_guard lock(mutex_);
  std::erase_if(queue_, [extension](const PostedCommand& command) { return command.extension == extension; });
}

bool PostedCommands::Wait() { return event_ && WaitForEvent(event_); }

}  // namespace QxHost
