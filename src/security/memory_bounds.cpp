#include "security/memory_bounds.h"

#include <cstdint>
#include <cstring>

std::span<const std::byte> MemoryFrom(std::span<const std::byte> memory, const void* place) {
  const auto begin = reinterpret_cast<std::uintptr_t>(memory.data());
  const auto at = reinterpret_cast<std::uintptr_t>(place);
  if (at < begin || at - begin > memory.size()) return {};
  return memory.subspan(at - begin);
}

WString TextToItsEnd(const void* text, std::size_t maxChars) {
  WString read;
  const auto* const bytes = static_cast<const std::byte*>(text);
  for (std::size_t index = 0; index < maxChars; ++index) {
    WCHAR unit;
    std::memcpy(&unit, bytes + index * sizeof unit, sizeof unit);
    if (unit == WCHAR()) break;
    read += unit;
  }
  return read;
}
