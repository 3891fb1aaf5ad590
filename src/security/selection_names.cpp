#include "security/selection_names.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

constexpr WStringView kProviderPrefix = W("WinNT://");
constexpr std::size_t kMostPathChars = 4096;

template <typename T>
T ReadAt(std::span<const std::byte> memory, std::size_t offset) {
  T value;
  std::memcpy(&value, memory.data() + offset, sizeof value);
  return value;
}

// How many characters may be read from a text: to the end of the memory if it lies there.
std::size_t CharsFrom(std::span<const std::byte> memory, const WCHAR* text) {
  const auto begin = reinterpret_cast<std::uintptr_t>(memory.data());
  const auto at = reinterpret_cast<std::uintptr_t>(text);
  const bool isInside = at >= begin && at - begin < memory.size();
  return isInside ? std::min((memory.size() - (at - begin)) / sizeof(WCHAR), kMostPathChars) : kMostPathChars;
}

WString ReadSelectedPath(std::span<const std::byte> memory, const WCHAR* text) {
  WString path;
  if (!text) return path;
  const std::size_t limit = CharsFrom(memory, text);
  const auto* const bytes = reinterpret_cast<const std::byte*>(text);
  for (std::size_t index = 0; index < limit; ++index) {
    WCHAR unit;
    std::memcpy(&unit, bytes + index * sizeof unit, sizeof unit);
    if (unit == WCHAR()) break;
    path += unit;
  }
  return path;
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
