#include "host/rename/rename_circles.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>
#include <unordered_map>

#include "host/rename/move_item.h"
#include "host/system/folder_names.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

using Velmora::SDK::MultiRenameUndoEntry;

class CircleWalk {
 public:
  explicit CircleWalk(std::span<const MultiRenameUndoEntry> entries) : entries_(entries) {
    for (std::size_t index = 0; index < entries_.size(); ++index) {
      const MultiRenameUndoEntry& entry = entries_[index];
      byOldPath_.emplace(PathKey(PathInFolder(entry.folder, entry.oldName)), index);
    }
  }

  std::vector<std::size_t> Find() const {
    constexpr std::size_t kUnseen = 0;
    std::vector<std::size_t> seenIn(entries_.size(), kUnseen);
    std::vector<std::size_t> found;
    for (std::size_t start = 0; start < entries_.size(); ++start) {
      std::optional<std::size_t> at = start;
      while (at && seenIn[*at] == kUnseen) {
        seenIn[*at] = start + 1;
        at = Next(*at);
      }
      // It has come back to a rename of this very walk, from which the circle goes on.
      if (!at || seenIn[*at] != start + 1) continue;
      std::size_t member = *at;
      do {
        found.push_back(member);
        member = *Next(member);
      } while (member != *at);
    }
    return found;
  }

 private:
  // The rename of the file that has the new name of this one.
  std::optional<std::size_t> Next(std::size_t index) const {
    const MultiRenameUndoEntry& entry = entries_[index];
    const auto found = byOldPath_.find(PathKey(PathInFolder(entry.folder, NameToMake(entry.newName))));
    return found == byOldPath_.end() ? std::nullopt : std::optional(found->second);
  }

  std::span<const MultiRenameUndoEntry> entries_;
  std::unordered_map<WString, std::size_t> byOldPath_;
};

// Hashes of names in their folders, equal for those that differ in letter case alone.
class PlaceHasher {
 public:
  std::uint64_t Of(const WString& folder, WStringView name) {
    if (!isFolderKnown_ || folder != folder_) {
      isFolderKnown_ = true;
      folder_ = folder;
      folderHash_ = FolderNames::HashOf(
          folder.ends_with(W('\\')) ? WStringView(folder).substr(0, folder.size() - 1) : WStringView(folder));
    }
    const std::uint64_t hash = std::rotl(folderHash_, 1) ^ FolderNames::HashOf(name);
    return hash != 0 ? hash : 1;
  }

 private:
  WString folder_;  // of the last name: the next one is often in it as well
  bool isFolderKnown_ = false;
  std::uint64_t folderHash_ = 0;
};

class HashSet {
 public:
  explicit HashSet(std::size_t count) : slots_(std::bit_ceil(2 * count + 1), kFree) {}
  void Insert(std::uint64_t hash) { slots_[SlotOf(hash)] = hash; }
  bool Holds(std::uint64_t hash) const { return slots_[SlotOf(hash)] == hash; }

 private:
  static constexpr std::uint64_t kFree = 0;

  std::size_t SlotOf(std::uint64_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = (hash >> 32) & mask;
    while (slots_[slot] != kFree && slots_[slot] != hash) slot = (slot + 1) & mask;
    return slot;
  }

  std::vector<std::uint64_t> slots_;
};

// Whether any new name may be an old one. Without that, as most runs are, there is no circle.
bool MayNamesMeet(std::span<const MultiRenameUndoEntry> entries) {
  PlaceHasher hasher;
  HashSet oldPlaces(entries.size());
  for (const MultiRenameUndoEntry& entry : entries) oldPlaces.Insert(hasher.Of(entry.folder, entry.oldName));
  return std::ranges::any_of(entries, [&](const MultiRenameUndoEntry& entry) {
    return oldPlaces.Holds(hasher.Of(entry.folder, NameToMake(entry.newName)));
  });
}

}  // namespace

WString PathInFolder(const WString& folder, WStringView name) {
  WString path = folder;
  if (!path.ends_with(W('\\'))) path += W('\\');
  return path += name;
}

std::vector<std::size_t> FindRenameCircles(std::span<const MultiRenameUndoEntry> entries) {
  return MayNamesMeet(entries) ? FindRenameCirclesByWalk(entries) : std::vector<std::size_t>();
}

std::vector<std::size_t> FindRenameCirclesByWalk(std::span<const MultiRenameUndoEntry> entries) {
  return CircleWalk(entries).Find();
}

}  // namespace QxHost
