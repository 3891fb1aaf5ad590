#include "frame/services/selected_paths.h"

#include <array>

#include "frame/services/selected_items.h"

namespace Velmora::SDK {

namespace {

constexpr u32 kPathChars = 2048;

}  // namespace

std::vector<WString> SelectedPaths(IHostApp& host) {
  std::vector<WString> paths;
  ForEachSelectedItem(host, kModeContent, [&paths](IHostFileItem& item) {
    std::array<WCHAR, kPathChars + 1> path = {};  // terminated even if the host fills all of its buffer
    item.GetFullPath(path.data(), kPathChars);
    paths.emplace_back(path.data());
  });
  return paths;
}

}  // namespace Velmora::SDK
