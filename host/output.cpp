#include "host/output.h"

namespace QxHost {
namespace {

constexpr std::size_t kMostPendingBytes = 64 * 1024;

}  // namespace

void Output::Line(std::string_view text) {
  const std::lock_guard lock(mutex_);
  pending_ += text;
  pending_ += '\n';
  if (pending_.size() >= kMostPendingBytes) FlushLocked();
}

void Output::Problem(std::string_view text) {
  const std::lock_guard lock(mutex_);
  FlushLocked();
  standardError_("qxhost: " + std::string(text) + "\n");
}

void Output::Prompt(std::string_view text) {
  const std::lock_guard lock(mutex_);
  FlushLocked();
  standardError_(text);
}

void Output::Flush() {
  const std::lock_guard lock(mutex_);
  FlushLocked();
}

bool Output::HasFailed() {
  const std::lock_guard lock(mutex_);
  return failed_;
}

void Output::FlushLocked() {
  if (!pending_.empty() && !failed_) failed_ = !standardOutput_(pending_);
  pending_.clear();
}

}  // namespace QxHost
