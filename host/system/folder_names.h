// The names of one folder, read at once: who has many files in it need not ask the system for each.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/text.h"

namespace QxHost {

class FolderNames {
 public:
  enum class Kind : std::uint8_t {
    kFile,
    kFolder,
    kOther  // a link, or what the folder does not tell
  };
  struct Entry {
    std::uint64_t hash;        // of the name in upper case
    std::uint32_t nameAt = 0;  // in the text of all names
    std::uint16_t nameSize = 0;
    Kind kind = Kind::kOther;
    bool isOnDisk = true;  // or a name that a file is to have
    bool isTaken = false;  // for whoever goes through many names
  };

  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  // Forgets all names, and keeps the memory.
  void Clear();

  // Makes room for that many names of usual length.
  void Reserve(std::size_t count);

  void Add(WStringView name, Kind kind) { Insert({.hash = HashOf(name), .kind = kind}, name); }

  // Puts the hash of a name that a file is to have beside those on the disk.
  void AddWanted(std::uint64_t hash) { Insert({.hash = hash, .isOnDisk = false}, {}); }

  // The index of this very name on the disk, or kNone.
  std::uint32_t Find(WStringView name) const;

  // True if there is a name of this hash, on the disk or wanted, other than the one of index `but`.
  bool HasLike(std::uint64_t hash, std::uint32_t but) const;

  Entry& At(std::uint32_t index) { return entries_[index]; }
  std::size_t Count() const { return entries_.size(); }

  // Equal for names that differ in letter case alone, and seldom for others.
  static std::uint64_t HashOf(WStringView name);

  std::size_t mostNameBytes = 255;  // that a name may have in this folder, in UTF-8

 private:
  void Insert(Entry entry, WStringView name);
  void Grow();
  template <typename Visit>
  std::uint32_t FirstOf(std::uint64_t hash, Visit isIt) const;

  WString names_;
  std::vector<Entry> entries_;
  std::vector<std::uint32_t> slots_;  // indexes into entries_ and 1 more; 0 is free. A power of 2
};

// What folders were read to hold, by their full paths, which end in a backslash.
using FolderListings = std::unordered_map<WString, FolderNames>;

// Reads the names in a folder (a full path that ends in a backslash). False if they cannot be had, if the
// folder may not be searched for files, or if it holds more than `most`; and on systems where a look at each
// name is no dearer.
bool ReadFolderNames(const WString& folder, std::size_t most, FolderNames& names);

}  // namespace QxHost
