#include "host/rename/colliding_names.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "host/system/folder_names.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

using Velmora::SDK::MultiRenameUndoEntry;

WStringView WithoutSeparator(WStringView folder) {
  if (folder.ends_with(W('\\'))) folder.remove_suffix(1);
  return folder;
}

// Hashes names together with their folders. Names that differ only in letter case have the same hash.
class PlaceHasher {
 public:
  std::uint64_t Of(const WString& folder, WStringView name) {
    if (!isFolderKnown_ || folder != folder_) {
      isFolderKnown_ = true;
      folder_ = folder;
      folderHash_ = FolderNames::HashOf(WithoutSeparator(folder));
    }
    return Joined(folderHash_, name);
  }

  static std::uint64_t OfPath(WStringView path) {
    const std::size_t nameAt = path.rfind(W('\\')) + 1;
    return Joined(FolderNames::HashOf(WithoutSeparator(path.substr(0, nameAt))), path.substr(nameAt));
  }

 private:
  static std::uint64_t Joined(std::uint64_t folderHash, WStringView name) {
    const std::uint64_t hash = std::rotl(folderHash, 1) ^ FolderNames::HashOf(name);
    return hash != 0 ? hash : 1;
  }

  WString folder_;  // of the last name; the next one is often in the same folder
  bool isFolderKnown_ = false;
  std::uint64_t folderHash_ = 0;
};

class HashSet {
 public:
  explicit HashSet(std::size_t most) : slots_(std::bit_ceil(2 * most + 2), kFree) {}

  // Returns false if the hash was already in the set.
  bool Insert(std::uint64_t hash) {
    std::uint64_t& slot = slots_[SlotOf(hash)];
    const bool isNew = slot == kFree;
    slot = hash;
    return isNew;
  }

  bool Contains(std::uint64_t hash) const { return slots_[SlotOf(hash)] == hash; }

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

struct Places {
  std::uint64_t from;
  std::uint64_t to;
};

std::vector<Places> PlacesOf(std::span<const MultiRenameUndoEntry> entries) {
  std::vector<Places> places;
  places.reserve(entries.size());
  PlaceHasher hasher;
  for (const MultiRenameUndoEntry& entry : entries) {
    places.push_back(
        {hasher.Of(entry.folder, entry.oldName), hasher.Of(entry.folder, NameToMake(entry.newName))});
  }
  return places;
}

// Returns whether one of the renamed files is a folder above another one. `renamed` contains their old names.
bool ContainsFolderOfOthers(std::span<const MultiRenameUndoEntry> entries, const HashSet& renamed) {
  HashSet examinedFolders(entries.size());
  WStringView last;
  for (const MultiRenameUndoEntry& entry : entries) {
    const WString& text = entry.folder;
    if (WStringView(text) == last) continue;
    last = text;
    if (!examinedFolders.Insert(FolderNames::HashOf(text) | 1)) continue;
    for (WStringView folder = WithoutSeparator(text); folder.find(W('\\')) != WStringView::npos;
         folder = folder.substr(0, folder.rfind(W('\\')))) {
      if (renamed.Contains(PlaceHasher::OfPath(folder))) return true;
    }
  }
  return false;
}

}  // namespace

std::vector<bool> FindCollidingNames(std::span<const MultiRenameUndoEntry> entries) {
  const std::vector<Places> places = PlacesOf(entries);
  HashSet from(entries.size());
  HashSet fromTwice(entries.size());
  HashSet to(entries.size());
  for (const Places& place : places) {
    if (!from.Insert(place.from)) fromTwice.Insert(place.from);
  }
  for (const Places& place : places) {
    // A file whose name changes only in letter case conflicts with none, unless another file has that name.
    if (place.from != place.to || fromTwice.Contains(place.from)) to.Insert(place.to);
  }
  if (ContainsFolderOfOthers(entries, from)) return std::vector<bool>(entries.size(), true);
  const auto collides = [&](const Places& place) {
    return to.Contains(place.from) || (place.from != place.to && from.Contains(place.to));
  };
  if (std::ranges::none_of(places, collides)) return {};
  std::vector<bool> colliding;
  colliding.reserve(places.size());
  for (const Places& place : places) colliding.push_back(collides(place));
  return colliding;
}

}  // namespace QxHost
