#include "host/output/output.h"

#include <utility>

namespace QxHost {
namespace {

constexpr std::size_t kMaxPendingBytes = 64 * 1024;

}  // namespace

void Output::Line(std::string_view text) {
  const std::lock_guard lock(mutex_);
  pending_ += text;
  pending_ += '\n';
  if (!isHeld_ && pending_.size() >= kMaxPendingBytes) FlushLocked();
}

void Output::Problem(std::string_view text) {
  const std::lock_guard lock(mutex_);
  std::string line = "qxhost: " + std::string(text) + "\n";
  if (isHeld_) {
    held_.push_back({std::exchange(pending_, {}), std::move(line)});
    return;
  }
  FlushLocked();
  standardError_(line);
}

void Output::Prompt(std::string_view text) {
  const std::lock_guard lock(mutex_);
  ReleaseLocked();
  FlushLocked();
  standardError_(text);
}

void Output::Flush() {
  const std::lock_guard lock(mutex_);
  if (!isHeld_) FlushLocked();
}

void Output::Hold() {
  const std::lock_guard lock(mutex_);
  isHeld_ = true;
}

void Output::Release() {
  const std::lock_guard lock(mutex_);
  ReleaseLocked();
}

bool Output::HasFailed() {
  const std::lock_guard lock(mutex_);
  return failed_;
}

void Output::ReleaseLocked() {
  isHeld_ = false;
  std::string rest = std::move(pending_);
  for (Held& held : std::exchange(held_, {})) {
    pending_ = std::move(held.output);
    FlushLocked();
    standardError_(held.problem);
  }
  pending_ = std::move(rest);
}

void Output::FlushLocked() {
  if (!pending_.empty() && !failed_) failed_ = !standardOutput_(pending_);
  pending_.clear();
}

}  // namespace QxHost
