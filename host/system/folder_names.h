// The names of one folder, read at once, so that checking many files needs no system call for each.
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
    kOther  // a link, or a kind that the listing does not show
  };
  struct Entry {
    std::uint64_t hash;        // hash of the name in upper case
    std::uint32_t nameAt = 0;  // position in the text of all names
    std::uint16_t nameSize = 0;
    Kind kind = Kind::kOther;
    bool isOnDisk = true;  // false for a name that a file will get
    bool isTaken = false;  // a mark for callers that process many names
  };

  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  // Removes all names but keeps the memory.
  void Clear();

  // Reserves memory for this number of names of usual length.
  void Reserve(std::size_t count);

  void Add(WStringView name, Kind kind) { Insert({.hash = HashOf(name), .kind = kind}, name); }

  // Adds the hash of a name that a file will get to those on the disk.
  void AddWanted(std::uint64_t hash) { Insert({.hash = hash, .isOnDisk = false}, {}); }

  // Returns the index of exactly this name on the disk, or kNone.
  std::uint32_t Find(WStringView name) const;

  // Returns whether there is a name with this hash, on the disk or added, other than the one with the index
  // `but`.
  bool HasHash(std::uint64_t hash, std::uint32_t but) const;

  Entry& At(std::uint32_t index) { return entries_[index]; }
  std::size_t Count() const { return entries_.size(); }

  // Returns a hash that is equal for names that differ only in letter case, and rarely for others.
  static std::uint64_t HashOf(WStringView name);

  std::size_t maxNameBytes = 255;  // the longest name in this folder, in bytes of UTF-8

 private:
  void Insert(Entry entry, WStringView name);
  void Grow();
  template <typename Visit>
  std::uint32_t FirstOf(std::uint64_t hash, Visit isIt) const;

  WString names_;
  std::vector<Entry> entries_;
  std::vector<std::uint32_t>
      slots_;  // hash table: index into entries_ plus 1; 0 is free. The size is a power of 2
};

// The names of folders that have been read, by full paths that end in a backslash.
using FolderListings = std::unordered_map<WString, FolderNames>;

// Reads the names in a folder (a full path that ends in a backslash). Returns false if that fails, if files
// in the folder cannot be accessed, or if it has more than `most` names; also on systems where checking each
// name is not slower.
bool ReadFolderNames(const WString& folder, std::size_t most, FolderNames& names);

}  // namespace QxHost
