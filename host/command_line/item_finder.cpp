#include "host/command_line/item_finder.h"

#include <algorithm>

#include "host/output/error_text.h"
#include "host/output/failures.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

constexpr std::size_t kMinListing = 4;
constexpr std::size_t kMaxNamesOfListing = 1000;  // in addition to kMaxNamesForEach
constexpr std::size_t kMaxNamesForEach = 16;

std::size_t NameBegin(std::string_view text) { return text.find_last_of("/\\") + 1; }  // npos + 1 is 0

// Returns how many of the texts, from the first on, are names in the folder of the first.
std::size_t CountInFolder(std::span<const std::string> texts, std::string_view prefix) {
  std::size_t count = 1;
  while (count < texts.size() && texts[count].starts_with(prefix) && NameBegin(texts[count]) == prefix.size())
    ++count;
  return count;
}

// Returns whether a name is valid unchanged in every form of path.
bool IsNameInAnyPath(WStringView name) {
  if (name.empty() || name.back() == W('.') || name.back() == W(' ')) return false;
  return IsPossibleName(name) &&
         std::ranges::none_of(name, [](WCHAR unit) { return unit >= 0xD800 && unit <= 0xDFFF; });
}

// Returns whether the text, which looks like the path of a drive, is the name of a file in the current
// folder.
bool IsNameHere(std::string_view text) {
  const std::optional<WString> path = FullPathOf(PathFromUtf8("./" + std::string(text)));
  return path && GetFileAttributesW(SystemPath(*path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

FileItem* FindItem(FileItemTree& items, const std::string& option, std::string_view text) {
  const std::optional<WString> fullPath = FullPathOf(PathFromUtf8(text));
  if (!fullPath) {
    throw BadCall(option + ": \"" + std::string(text) + "\" is not a path" +
                  (IsNameHere(text) ? "; write ./" + std::string(text) : ""));
  }
  FileItem* const item = items.Find(*fullPath);
  if (!item) {
    const DWORD error = GetLastError();
    throw BadCall(option + ": " + std::string(text) + ": " + ErrorText(error));
  }
  return item;
}

FolderNames* ItemFinder::ReadFolder(std::string_view prefix, std::size_t count) {
  if (prefix.starts_with("\\\\") || prefix.starts_with("//")) return nullptr;
  std::optional<WString> folder = FullPathOf(PathFromUtf8(prefix.empty() ? "." : prefix));
  if (!folder || folder->size() < 3 || (*folder)[1] != W(':')) return nullptr;
  folder_ = &items_.Follow(*folder);
  if (!folder->ends_with(W('\\'))) *folder += W('\\');
  const auto [listing, isNew] = listings_.try_emplace(*folder);
  if (!isNew) return &listing->second;
  Demand& demand = demands_[*folder];
  demand.names += count;
  if (demand.names >= 2 * demand.atFailure) {
    listing->second.Reserve(count);
    const std::size_t most = kMaxNamesForEach * demand.names + kMaxNamesOfListing;
    if (ReadFolderNames(*folder, most, listing->second)) return &listing->second;
    demand.atFailure = demand.names;
  }
  listings_.erase(listing);
  return nullptr;
}

FileItem* ItemFinder::FindListed(FolderNames& names, std::string_view name) {
  const bool isAscii =
      std::ranges::all_of(name, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
  if (isAscii) {
    wideName_.assign(name.begin(), name.end());
  } else {
    wideName_ = PathFromUtf8(name);
  }
  if (!IsNameInAnyPath(wideName_)) return nullptr;
  const std::uint32_t index = names.Find(wideName_);
  if (index == FolderNames::kNone) return nullptr;
  const FolderNames::Kind kind = names.At(index).kind;
  if (kind == FolderNames::Kind::kOther) return nullptr;
  return &items_.Listed(*folder_, wideName_, kind == FolderNames::Kind::kFolder);
}

void ItemFinder::FindAll(std::span<const std::string> texts, std::vector<FileItem*>& found) {
  while (!texts.empty()) {
    const std::string_view first = texts.front();
    const std::string_view prefix = first.substr(0, NameBegin(first));
    const std::size_t count = CountInFolder(texts, prefix);
    FolderNames* const names = count >= kMinListing ? ReadFolder(prefix, count) : nullptr;
    for (const std::string_view text : texts.first(count)) {
      FileItem* const item = names ? FindListed(*names, text.substr(prefix.size())) : nullptr;
      found.push_back(item ? item : FindItem(items_, option_, text));
    }
    texts = texts.subspan(count);
  }
}

}  // namespace QxHost
