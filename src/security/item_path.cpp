#include "security/item_path.h"

#include <array>

using Velmora::SDK::u32;

namespace {

constexpr u32 kItemPathChars = 4096;

// Returns whether a path that fills the buffer is complete and not the beginning of a longer one: it must
// equal the item's folder and name.
bool IsWholePath(Velmora::SDK::IHostFileItem& item, const WString& path) {
  // On the heap, because the path is already on the stack. Terminated even if the host fills all of its
  // buffer.
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
  buffer.back() = WCHAR();  // terminated even if the host fills all of its buffer
  item.GetFullPath(buffer.data(), kItemPathChars);
  WString path = buffer.data();
  const bool mayBeCut = path.size() >= kItemPathChars - 1;
  if (mayBeCut && (path.size() >= kItemPathChars || !IsWholePath(item, path))) return std::nullopt;
  return path;
}
