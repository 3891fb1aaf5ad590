// The files and folders of a rename plan, as a tree of names. Names in one folder that differ only in letter
// case are one node if the file system treats them as the same name.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <unordered_map>
#include <vector>

#include "host/services/file_view.h"

namespace QxHost {

// Denotes no rename. Renames are numbered by their positions in the batch.
constexpr std::uint32_t kNoRow = std::numeric_limits<std::uint32_t>::max();

class NameTree {
 public:
  using Id = std::uint32_t;

  static constexpr Id kRoots = 0;  // the parent of all roots; has no name

  struct Node {
    Id parent;
    WStringView name;
    std::uint32_t source = kNoRow;   // the rename of this file; the first one if there are several
    Id claimant = kRoots;            // the file that will get this name, or kRoots
    std::optional<DWORD> look = {};  // the result of FileView::Look, once it was requested
  };

  // Reserves space for `expected` nodes; there may be more.
  NameTree(FileView& files, std::size_t expected);

  // Returns the node of a name in a folder, and creates it if necessary. The text must outlive the tree. The
  // number of a node is greater than that of its folder.
  Id Child(Id folder, WStringView name);

  // Changes a node's spelling to that on the disk, which may differ in letter case.
  void SetSpelling(Id id, WStringView name);

  // Returns whether the folder has a node with this name in any letter case.
  bool HasNameIgnoringCase(Id folder, WStringView name);

  Node& At(Id id) { return nodes_[id]; }
  const Node& At(Id id) const { return nodes_[id]; }
  Id Count() const { return static_cast<Id>(nodes_.size()); }

  // Returns 0 if the file exists on the disk, otherwise an error number.
  DWORD Look(Id id);

  // Returns the full path of a folder, with a backslash at its end. Valid until the next call.
  const WString& FolderPath(Id id);
  WString PathOf(Id id);

 private:
  std::uint64_t HashOf(Id folder, WStringView name);
  bool IsOneName(Id known, WStringView name, std::optional<DWORD>& look);

  FileView& files_;
  std::vector<Node> nodes_;
  std::unordered_multimap<std::uint64_t, Id> byHash_;  // of the folder and the name in upper case
  WString upper_;
  std::vector<Id> variants_;
  Id pathOwner_ = kRoots;  // the node whose path is in `path_`
  WString path_;
};

// Returns the text in upper case, converted character by character.
WString InUpperCase(WStringView text);

}  // namespace QxHost
