#include "host/item_finder.h"

#include <algorithm>

#include "host/error_text.h"
#include "host/failures.h"
#include "host/paths.h"

namespace QxHost {
namespace {

constexpr std::size_t kFewestOfListing = 4;
constexpr std::size_t kMostNamesOfListing = 1000;  // beside those that are looked for
constexpr std::size_t kMostNamesForEach = 16;

std::size_t NameBegin(std::string_view text) { return text.find_last_of("/\\") + 1; }  // npos + 1 is 0

// How many of the texts, from the first on, are names in the folder of the first.
std::size_t CountInFolder(std::span<const std::string_view> texts, std::string_view prefix) {
  std::size_t count = 1;
  while (count < texts.size() && texts[count].starts_with(prefix) && NameBegin(texts[count]) == prefix.size())
    ++count;
  return count;
}

// True for a name that is itself in every kind of path.
bool IsNameInAnyPath(WStringView name) {
  if (name.empty() || name.back() == W('.') || name.back() == W(' ')) return false;
  return std::ranges::none_of(name, [](WCHAR unit) {
    return unit < W(' ') || (unit >= 0xD800 && unit <= 0xDFFF) ||
           WStringView(W("<>\"|?*:")).find(unit) != WStringView::npos;
  });
}

}  // namespace

FileItem* ItemFinder::Find(std::string_view text) {
  const std::optional<WString> fullPath = FullPathOf(PathFromUtf8(text));
  if (!fullPath) throw BadCall(option_ + ": \"" + std::string(text) + "\" is no path");
  FileItem* const item = items_.Find(*fullPath);
  if (!item) {
    const DWORD error = GetLastError();
    throw BadCall(option_ + ": " + std::string(text) + ": " + ErrorText(error));
  }
  return item;
}

bool ItemFinder::ReadFolder(std::string_view prefix, std::size_t count) {
  if (prefix.empty() || prefix.starts_with("\\\\") || prefix.starts_with("//")) return false;
  std::optional<WString> folder = FullPathOf(PathFromUtf8(prefix));
  if (!folder || folder->size() < 3 || (*folder)[1] != W(':')) return false;
  folder_ = &items_.Follow(*folder);
  if (!folder->ends_with(W('\\'))) *folder += W('\\');
  return ReadFolderNames(*folder, kMostNamesForEach * count + kMostNamesOfListing, names_);
}

FileItem* ItemFinder::FindListed(std::string_view name) {
  wideName_ = PathFromUtf8(name);
  if (!IsNameInAnyPath(wideName_)) return nullptr;
  const std::uint32_t index = names_.Find(wideName_);
  if (index == FolderNames::kNone) return nullptr;
  const FolderNames::Kind kind = names_.At(index).kind;
  if (kind == FolderNames::Kind::kOther) return nullptr;
  return &items_.Listed(*folder_, wideName_, kind == FolderNames::Kind::kFolder);
}

std::vector<FileItem*> ItemFinder::FindAll(std::span<const std::string_view> texts) {
  std::vector<FileItem*> found;
  found.reserve(texts.size());
  while (!texts.empty()) {
    const std::string_view prefix = texts.front().substr(0, NameBegin(texts.front()));
    const std::size_t count = CountInFolder(texts, prefix);
    const bool isListed = count >= kFewestOfListing && ReadFolder(prefix, count);
    for (const std::string_view text : texts.first(count)) {
      FileItem* const item = isListed ? FindListed(text.substr(prefix.size())) : nullptr;
      found.push_back(item ? item : Find(text));
    }
    texts = texts.subspan(count);
  }
  return found;
}

}  // namespace QxHost
