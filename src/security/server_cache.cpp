#include "security/server_cache.h"

#include <cstring>

#include "security/memory_bounds.h"

ServerCache& ServerCache::Instance() {
  static ServerCache cache;
  return cache;
}

std::optional<WString> ServerCache::Find(WCHAR drive) {
  const std::lock_guard lock(mutex_);
  const auto found = servers_.find(drive);
  return found == servers_.end() ? std::nullopt : std::optional(found->second);
}

void ServerCache::Store(WCHAR drive, const WString& server) {
  const std::lock_guard lock(mutex_);
  servers_[drive] = server;
}

void ServerCache::Clear() {
  const std::lock_guard lock(mutex_);
  servers_.clear();
}

WString UniversalNameIn(std::span<const std::byte> buffer) {
  const void* text = nullptr;
  if (buffer.size() < sizeof text) return {};
  std::memcpy(&text, buffer.data(), sizeof text);
  return TextToItsEnd(text, MemoryFrom(buffer, text).size() / sizeof(WCHAR));
}

std::optional<WString> ServerOfUniversalName(WStringView name) {
  constexpr std::size_t kShortest = 4;
  if (name.size() < kShortest || !name.starts_with(W("\\\\"))) return std::nullopt;
  const std::size_t end = name.find(W('\\'), 2);
  if (end == WStringView::npos) return std::nullopt;
  return WString(name.substr(2, end - 2));
}
