#include "support/host_recorder.h"

#include <algorithm>
#include <cstdio>

namespace {

bool BeginsWithAny(const std::string& call, const std::vector<std::string>& beginnings) {
  return std::any_of(beginnings.begin(), beginnings.end(),
                     [&](const std::string& beginning) { return call.rfind(beginning, 0) == 0; });
}

// "list1.GetItem(0)" is a call of "GetItem".
std::string OperationOf(const std::string& call) {
  const std::string upToArguments = call.substr(0, call.find('('));
  const std::size_t dot = upToArguments.find_last_of('.');
  return dot == std::string::npos ? upToArguments : upToArguments.substr(dot + 1);
}

}  // namespace

void HostRecorder::Record(std::string call) {
  const std::lock_guard lock(mutex_);
  Keep(std::move(call));
}

void HostRecorder::Keep(std::string call) {
  for (const auto& text : lent_[std::this_thread::get_id()]) std::fill(text->begin(), text->end(), W('#'));
  calls_.push_back(std::move(call));
}

bool HostRecorder::Allow(std::string call) {
  const std::string operation = OperationOf(call);
  const std::lock_guard lock(mutex_);
  Keep(std::move(call));
  ++refusableCalls_;
  if (refused_.count(operation)) return false;
  return refusableCalls_ != refusedCall_ && !(refuseLater_ && refusableCalls_ > refusedCall_);
}

void HostRecorder::Refuse(const std::string& operation) {
  const std::lock_guard lock(mutex_);
  refused_.insert(operation);
}

void HostRecorder::RefuseCall(int nth, bool repeat) {
  const std::lock_guard lock(mutex_);
  refusedCall_ = nth;
  refuseLater_ = repeat;
}

void HostRecorder::Problem(std::string what) {
  const std::lock_guard lock(mutex_);
  problems_.push_back(std::move(what));
}

void HostRecorder::ClearCalls() {
  const std::lock_guard lock(mutex_);
  calls_.clear();
}

void HostRecorder::Taken(const std::string& object) {
  const std::lock_guard lock(mutex_);
  ++open_[object];
}

void HostRecorder::Released(const std::string& object) {
  const std::lock_guard lock(mutex_);
  int& count = open_[object];
  if (count == 0) {
    problems_.push_back(object + " was given back without being taken");
    return;
  }
  --count;
}

bool HostRecorder::IsTaken(const std::string& object) const {
  const std::lock_guard lock(mutex_);
  const auto found = open_.find(object);
  return found != open_.end() && found->second > 0;
}

std::vector<std::string> HostRecorder::Open() const {
  const std::lock_guard lock(mutex_);
  std::vector<std::string> open;
  for (const auto& [object, count] : open_) {
    if (count != 0) open.push_back(object);
  }
  return open;
}

std::vector<std::string> HostRecorder::CallsOf(const std::vector<std::string>& beginnings) const {
  const std::lock_guard lock(mutex_);
  std::vector<std::string> found;
  for (const std::string& call : calls_) {
    if (BeginsWithAny(call, beginnings)) found.push_back(call);
  }
  return found;
}

std::vector<std::string> HostRecorder::CallsExcept(const std::vector<std::string>& beginnings) const {
  const std::lock_guard lock(mutex_);
  std::vector<std::string> found;
  for (const std::string& call : calls_) {
    if (!BeginsWithAny(call, beginnings)) found.push_back(call);
  }
  return found;
}

int HostRecorder::PositionOf(const std::string& beginning) const {
  const std::lock_guard lock(mutex_);
  for (std::size_t i = 0; i < calls_.size(); ++i) {
    if (calls_[i].rfind(beginning, 0) == 0) return static_cast<int>(i);
  }
  return -1;
}

const WCHAR* HostRecorder::Lend(WStringView text) {
  const std::lock_guard lock(mutex_);
  std::vector<std::unique_ptr<WString>>& lent = lent_[std::this_thread::get_id()];
  lent.push_back(std::make_unique<WString>(text));
  return lent.back()->c_str();
}

std::string Quoted(const WCHAR* text) { return text ? "\"" + ToUtf8(text) + "\"" : "null"; }

std::string Hex(std::uint32_t value) {
  char digits[16];
  std::snprintf(digits, sizeof digits, "0x%08X", value);
  return digits;
}
