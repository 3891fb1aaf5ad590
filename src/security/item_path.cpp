#include "security/item_path.h"

#include <array>

using Velmora::SDK::u32;

WString SecurityPathOf(Velmora::SDK::IHostFileItem& item) {
  constexpr u32 kPathChars = 4096;
  std::array<WCHAR, kPathChars + 1> buffer;
  buffer.front() = WCHAR();
  buffer.back() = WCHAR();  // a zero stands behind what a host fills whole
  item.GetFullPath(buffer.data(), kPathChars);
  WString path = buffer.data();
  if (path.size() >= kPathChars - 1) path.clear();
  return path;
}
