#include "security/item_path.h"

#include <array>

using Velmora::SDK::u32;

namespace {

constexpr u32 kItemPathChars = 4096;

// Whether a path that just fits is the item's own and not the beginning of a longer one: its folder and its
// name must make it up.
bool IsWholePath(Velmora::SDK::IHostFileItem& item, const WString& path) {
  // Not on the stack, which has the path already. A zero follows what a host fills whole.
  WString name(kItemPathChars + 1, WCHAR());
  WString folder(kItemPathChars + 1, WCHAR());
  item.GetName(name.data(), kItemPathChars);
  item.GetFolderPath(folder.data(), kItemPathChars);
  WString whole = folder.c_str();
  if (!whole.ends_with(W('\\'))) whole += W('\\');
  return whole + name.c_str() == path;
}

}  // namespace

std::optional<WString> SecurityPathOf(Velmora::SDK::IHostFileItem& item) {
  std::array<WCHAR, kItemPathChars + 1> buffer;
  buffer.front() = WCHAR();
  buffer.back() = WCHAR();  // a zero follows what a host fills whole
  item.GetFullPath(buffer.data(), kItemPathChars);
  WString path = buffer.data();
  const bool mayBeCut = path.size() >= kItemPathChars - 1;
  if (mayBeCut && (path.size() >= kItemPathChars || !IsWholePath(item, path))) return std::nullopt;
  return path;
}
