#include "host/rename/flat_renames.h"

#include <algorithm>
#include <span>
#include <unordered_set>

#include "host/system/folder_names.h"

namespace QxHost {
namespace {

using Row = std::uint32_t;

// Folders with many more files than are renamed are not read.
constexpr std::size_t kMaxOtherNames = 1000;
constexpr std::size_t kMaxNamesPerRename = 16;
// The limit of a folder's path. Paths in the folder are then within the limits of every system.
constexpr std::size_t kMaxFolderChars = 1000;

// Returns the length in UTF-8 bytes; 0 for a name with surrogates, which may represent other bytes.
std::size_t NameBytes(WStringView name) {
  std::size_t bytes = 0;
  for (const WCHAR unit : name) {
    if (unit >= 0xD800 && unit <= 0xDFFF) return 0;
    bytes += unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3;
  }
  return bytes;
}

class FlatBatch {
 public:
  FlatBatch(const WantedRenames& wanted, FileView& files)
      : wanted_(wanted), files_(files), isDecided_(wanted.rows.size(), false) {}

  std::vector<bool> Decide() {
    if (HasFolderTwice()) return std::move(isDecided_);
    SortByFolder();
    for (std::uint32_t folder = 0; folder < wanted_.folders.size(); ++folder) {
      const std::span<const Row> rows(byFolder_.data() + begins_[folder],
                                      begins_[folder + 1] - begins_[folder]);
      if (rows.empty()) continue;
      if (!ReadFiles(wanted_.folders[folder], rows)) return std::vector<bool>(wanted_.rows.size(), false);
      if (!HasNoCollision(rows) || files_.IgnoresCaseInFolderOf(PathOf(rows.front()))) continue;
      for (const Row row : rows) isDecided_[row] = true;
    }
    return std::move(isDecided_);
  }

 private:
  WString PathOf(Row row) const {
    return wanted_.folders[wanted_.rows[row].folder] + WString(wanted_.rows[row].name);
  }

  // Returns whether two folders may be the same one in different spellings.
  bool HasFolderTwice() const {
    std::unordered_set<std::uint64_t> hashes;
    return !std::ranges::all_of(wanted_.folders, [&hashes](const WString& folder) {
      return hashes.insert(FolderNames::HashOf(folder)).second;
    });
  }

  void SortByFolder() {
    begins_.assign(wanted_.folders.size() + 1, 0);
    for (const WantedRename& row : wanted_.rows) {
      if (row.refusal == 0) ++begins_[row.folder + 1];
    }
    for (std::size_t folder = 1; folder < begins_.size(); ++folder) begins_[folder] += begins_[folder - 1];
    byFolder_.resize(begins_.back());
    std::vector<std::size_t> next(begins_);
    for (Row row = 0; row < wanted_.rows.size(); ++row) {
      if (wanted_.rows[row].refusal == 0) byFolder_[next[wanted_.rows[row].folder]++] = row;
    }
  }

  // Reads the folder. Returns false if it cannot be read or one of the rows is not a file in it.
  bool ReadFiles(const WString& folder, std::span<const Row> rows) {
    if (folder.size() > kMaxFolderChars) return false;
    if (!files_.ReadNames(folder, kMaxNamesPerRename * rows.size() + kMaxOtherNames, names_)) return false;
    sources_.clear();
    for (const Row row : rows) {
      const std::uint32_t source = names_.Find(wanted_.rows[row].name);
      if (source == FolderNames::kNone || names_.At(source).kind != FolderNames::Kind::kFile) return false;
      sources_.push_back(source);
    }
    return true;
  }

  // Returns whether every file is renamed only once, to a name that differs from all others even if letter
  // case is ignored.
  bool HasNoCollision(std::span<const Row> rows) {
    for (std::size_t index = 0; index < rows.size(); ++index) {
      const std::uint32_t source = sources_[index];
      if (names_.At(source).isTaken) return false;
      names_.At(source).isTaken = true;
      const WStringView newName = wanted_.rows[rows[index]].newName;
      const std::size_t bytes = NameBytes(newName);
      const std::uint64_t hash = FolderNames::HashOf(newName);
      if (bytes == 0 || bytes > names_.maxNameBytes || names_.HasHash(hash, source)) return false;
      names_.AddWanted(hash);
    }
    return true;
  }

  const WantedRenames& wanted_;
  FileView& files_;
  std::vector<bool> isDecided_;
  std::vector<Row> byFolder_;           // the rows that are not refused
  std::vector<std::size_t> begins_;     // by folder: the begin of its rows in byFolder_
  std::vector<std::uint32_t> sources_;  // by row of the folder: its index in names_
  FolderNames names_;
};

}  // namespace

std::vector<bool> DecideFlatRenames(const WantedRenames& wanted, FileView& files) {
  return FlatBatch(wanted, files).Decide();
}

}  // namespace QxHost
