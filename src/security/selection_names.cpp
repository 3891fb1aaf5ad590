#include "security/selection_names.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "security/memory_bounds.h"

namespace {

constexpr WStringView kProviderPrefix = W("WinNT://");
constexpr std::size_t kMaxPathChars = 4096;

template <typename T>
T ReadAt(std::span<const std::byte> memory, std::size_t offset) {
  T value;
  std::memcpy(&value, memory.data() + offset, sizeof value);
  return value;
}

// Reads a path. If it is within the memory, it ends at the end of the memory at the latest.
WString ReadSelectedPath(std::span<const std::byte> memory, const WCHAR* text) {
  if (!text) return {};
  const std::span<const std::byte> rest = MemoryFrom(memory, text);
  const std::size_t maxChars = rest.empty() ? kMaxPathChars : rest.size() / sizeof(WCHAR);
  return TextToItsEnd(text, std::min(maxChars, kMaxPathChars));
}

}  // namespace

std::vector<WString> NamesOfSelectionList(std::span<const std::byte> memory) {
  std::vector<WString> names;
  if (memory.size() < kSelectionHeaderBytes) return names;
  const std::size_t count = std::min<std::size_t>(
      ReadAt<std::uint32_t>(memory, 0), (memory.size() - kSelectionHeaderBytes) / kSelectionRecordBytes);
  for (std::size_t index = 0; index < count; ++index) {
    const std::size_t record = kSelectionHeaderBytes + index * kSelectionRecordBytes;
    names.push_back(ReadSelectedPath(memory, ReadAt<const WCHAR*>(memory, record + kSelectionPathOffset)));
  }
  return names;
}

std::optional<WString> AccountOfSelection(const std::vector<WString>& names) {
  if (names.empty() || names.front().empty()) return std::nullopt;
  WString account = names.front();
  for (std::size_t at = account.find(kProviderPrefix); at != WString::npos;
       at = account.find(kProviderPrefix, at)) {
    account.erase(at, kProviderPrefix.size());
  }
  std::replace(account.begin(), account.end(), W('/'), W('\\'));
  return account;
}
