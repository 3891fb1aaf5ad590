// The files and folders that a rename plan speaks of, as a tree of names. Names of one folder that differ in
// letter case alone are one node if the file system takes them for one name.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <unordered_map>
#include <vector>

#include "host/services/file_view.h"

namespace QxHost {

// A number of a rename in its batch that no rename has.
constexpr std::uint32_t kNoRow = std::numeric_limits<std::uint32_t>::max();

class NameTree {
 public:
  using Id = std::uint32_t;

  static constexpr Id kRoots = 0;  // the parent of all roots, which has no name

  struct Node {
    Id parent;
    WStringView name;
    std::uint32_t source = kNoRow;   // the rename of this file; of several the first
    Id claimant = kRoots;            // the file that is to have this name, or kRoots
    std::optional<DWORD> look = {};  // what FileView::Look says of it, once it was asked
  };

  // Room is made for `expected` nodes; there may be more.
  NameTree(FileView& files, std::size_t expected);

  // Returns the node of a name in a folder, and makes it if it is missing. The text must last as long as the
  // tree. A node has a higher number than its folder.
  Id Child(Id folder, WStringView name);

  // Gives a node its spelling on the disk, which may differ from the present one in letter case.
  void Spell(Id id, WStringView name);

  // Whether there is a node of this name in the folder, whatever its letter case.
  bool HasLike(Id folder, WStringView name);

  Node& At(Id id) { return nodes_[id]; }
  const Node& At(Id id) const { return nodes_[id]; }
  Id Count() const { return static_cast<Id>(nodes_.size()); }

  // 0 if the file exists on the disk.
  DWORD Look(Id id);

  // The full path of a folder, with a backslash at its end. Valid until the next call.
  const WString& FolderPath(Id id);
  WString PathOf(Id id);

 private:
  std::uint64_t HashOf(Id folder, WStringView name);
  bool IsOneName(Id known, WStringView name, std::optional<DWORD>& look);

  FileView& files_;
  std::vector<Node> nodes_;
  std::unordered_multimap<std::uint64_t, Id> byHash_;  // of the name in upper case, and its folder
  WString upper_;
  std::vector<Id> variants_;
  Id pathOwner_ = kRoots;  // whose path `path_` is
  WString path_;
};

// The text in upper case, character by character.
WString InUpperCase(WStringView text);

}  // namespace QxHost
