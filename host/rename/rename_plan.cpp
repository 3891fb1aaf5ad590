#include "host/rename/rename_plan.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>

#include "frame/host/host_files.h"
#include "host/rename/flat_renames.h"
#include "host/rename/temporary_name.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

using Id = NameTree::Id;
using Row = std::uint32_t;
using Velmora::SDK::kRenameIgnored;

constexpr unsigned kMaxTemporaryNames = 1000;

// A folder in the spelling of the batch.
struct WantedFolder {
  Id node = NameTree::kRoots;   // as it is on the disk; kRoots if not looked up yet
  Id moved = NameTree::kRoots;  // the folder that will have this path after renames above it
  Row mover = kNoRow;           // the rename of the lowest folder above that changes the path
};

struct WantedRow {
  Id source = NameTree::kRoots;
  Id target = NameTree::kRoots;
  Row waitsFor = kNoRow;  // the rename of a folder that must be done first
  std::uint32_t chain = kNoRow;
};

// Visits the names of a path one after the other.
template <typename Visit>
void ForEachName(WStringView path, Visit visit) {
  while (!path.empty()) {
    const std::size_t end = std::min(path.find(W('\\')), path.size());
    if (end != 0) visit(path.substr(0, end));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
}

// Returns whether the error means that the name is invalid, and not that the file does not exist.
bool RefusesName(DWORD error) {
  return error == ERROR_INVALID_NAME || error == ERROR_FILENAME_EXCED_RANGE || error == ERROR_BAD_PATHNAME;
}

class Planner {
 public:
  Planner(const WantedRenames& wanted, FileView& files)
      : wanted_(wanted),
        files_(files),
        isDecided_(DecideFlatRenames(wanted, files)),
        open_(OpenRows()),
        rows_(open_.empty() ? 0 : wanted.rows.size()),
        tree_(files, open_.empty() ? 0 : 2 * open_.size() + wanted.folders.size()),
        folders_(wanted.folders.size()),
        currentUpper_(InUpperCase(wanted.currentFolder)) {
    plan_.results.reserve(wanted.rows.size());
    plan_.folders.reserve(wanted.rows.size());
    for (const WantedRename& row : wanted.rows) {
      plan_.results.push_back(row.refusal);
      plan_.folders.push_back(row.folder);
    }
  }

  RenamePlan Plan() {
    if (!open_.empty()) {
      for (const Row row : ByDepth()) Enter(row);
      RefuseConflicts();
      SetDuplicateResults();
      MakeChains();
      OrderChains();
    }
    AddDecided();
    plan_.areIndependent = open_.empty();
    return std::move(plan_);
  }

 private:
  struct Duplicate {
    Row row;
    Row first;
  };

  // Returns the rows that are neither refused nor decided.
  std::vector<Row> OpenRows() const {
    std::vector<Row> rows;
    for (Row row = 0; row < wanted_.rows.size(); ++row) {
      if (wanted_.rows[row].refusal == 0 && !isDecided_[row]) rows.push_back(row);
    }
    return rows;
  }

  void AddDecided() {
    for (Row row = 0; row < isDecided_.size(); ++row) {
      if (!isDecided_[row]) continue;
      plan_.chains.push_back({.first = static_cast<std::uint32_t>(plan_.order.size()), .count = 1});
      plan_.order.push_back(row);
    }
  }

  // Returns the open rows, those in upper folders first, so that the later names of the folders above a path
  // are known.
  std::vector<Row> ByDepth() const {
    std::vector<std::size_t> depths;
    for (const WString& folder : wanted_.folders) {
      depths.push_back(static_cast<std::size_t>(std::count(folder.begin(), folder.end(), W('\\'))));
    }
    std::vector<Row> rows = open_;
    std::stable_sort(rows.begin(), rows.end(), [&](Row left, Row right) {
      return depths[wanted_.rows[left].folder] < depths[wanted_.rows[right].folder];
    });
    return rows;
  }

  const WantedFolder& Folder(std::uint32_t index) {
    WantedFolder& folder = folders_[index];
    if (folder.node != NameTree::kRoots) return folder;
    const auto [root, rest] = SplitRoot(wanted_.folders[index]);
    folder.node = folder.moved = tree_.Child(NameTree::kRoots, root);
    ForEachName(rest, [&](WStringView name) {
      folder.node = tree_.Child(folder.node, name);
      folder.moved = tree_.Child(folder.moved, name);
      const Id claimant = tree_.At(folder.moved).claimant;
      if (claimant == NameTree::kRoots) return;
      folder.moved = claimant;
      folder.mover = tree_.At(claimant).source;
    });
    return folder;
  }

  bool ContainsCurrentFolder(const WString& path) {
    const WString& current = wanted_.currentFolder;
    if (path.size() > current.size()) return false;
    if (path.size() < current.size() && current[path.size()] != W('\\')) return false;
    const WString above = current.substr(0, path.size());
    if (above == path) return true;
    return currentUpper_.compare(0, path.size(), InUpperCase(path)) == 0 && files_.AreOneFile(above, path);
  }

  // Enters the names of a rename in the tree, unless it is refused regardless of the others.
  void Enter(Row row) {
    const WantedRename& wanted = wanted_.rows[row];
    const WantedFolder folder = Folder(wanted.folder);
    Id parent = folder.node;
    WString path = wanted_.folders[wanted.folder];
    path += wanted.name;
    if (wanted.isByPath && folder.moved != folder.node) {
      WString moved = tree_.FolderPath(folder.moved);
      moved += wanted.name;
      if (files_.Look(moved) == ERROR_SUCCESS) {
        parent = folder.moved;
        path = std::move(moved);
        rows_[row].waitsFor = folder.mover;
      }
    }
    // All paths below a renamed folder use that folder's own spelling, which is known by now.
    if (wanted.isByPath && tree_.FolderPath(parent) != wanted_.folders[wanted.folder]) {
      plan_.folders[row] = OtherFolder(parent);
    }
    DWORD& result = plan_.results[row];
    if (parent == folder.node) result = files_.Look(path);
    if (result == 0 && ContainsCurrentFolder(path)) result = ERROR_SHARING_VIOLATION;
    if (result != 0) return;

    const Id source = tree_.Child(parent, wanted.name);
    tree_.At(source).look = ERROR_SUCCESS;
    tree_.SetSpelling(source, wanted.name);
    if (tree_.At(source).source != kNoRow) {
      duplicates_.push_back({row, tree_.At(source).source});
      return;
    }
    tree_.At(source).source = row;
    const Id target = tree_.Child(parent, wanted.newName);
    rows_[row].source = source;
    rows_[row].target = target;
    if (target == source) return;
    if (tree_.At(target).source == kNoRow && RefusesName(tree_.Look(target))) {
      result = tree_.Look(target);
    } else if (tree_.At(target).claimant != NameTree::kRoots) {
      result = ERROR_ALREADY_EXISTS;
    } else {
      tree_.At(target).claimant = source;
    }
  }

  std::uint32_t OtherFolder(Id node) {
    const auto [entry, isNew] = otherFolders_.emplace(node, plan_.otherFolders.size());
    if (isNew) plan_.otherFolders.push_back(tree_.FolderPath(node));
    return static_cast<std::uint32_t>(wanted_.folders.size() + entry->second);
  }

  bool IsEntered(Row row) const { return rows_[row].source != NameTree::kRoots; }
  bool IsDone(Row row) const { return IsEntered(row) && plan_.results[row] == 0; }

  // Returns whether a file keeps the name.
  bool IsKept(Id name) {
    const Row row = tree_.At(name).source;
    if (row == kNoRow) return tree_.Look(name) == ERROR_SUCCESS;
    return !IsDone(row) || rows_[row].target == name;
  }

  void RefuseConflicts() {
    // By row: the first row that waits for this folder, and the next row that waits for the same folder.
    std::vector<Row> firstWaiting(rows_.size(), kNoRow);
    std::vector<Row> nextWaiting(rows_.size(), kNoRow);
    std::vector<Row> refused;
    for (Row row = 0; row < rows_.size(); ++row) {
      if (!IsEntered(row)) continue;
      if (const Row mover = rows_[row].waitsFor; mover != kNoRow) {
        nextWaiting[row] = std::exchange(firstWaiting[mover], row);
      }
      if (plan_.results[row] != 0) refused.push_back(row);
    }
    const auto refuse = [&](Row row) {
      if (!IsDone(row)) return;
      plan_.results[row] = ERROR_ALREADY_EXISTS;
      refused.push_back(row);
    };
    for (Row row = 0; row < rows_.size(); ++row) {
      if (IsDone(row) && rows_[row].target != rows_[row].source && IsKept(rows_[row].target)) refuse(row);
    }
    while (!refused.empty()) {
      const Row row = refused.back();
      refused.pop_back();
      const Id claimant = tree_.At(rows_[row].source).claimant;
      if (claimant != NameTree::kRoots) refuse(tree_.At(claimant).source);
      for (Row waiting = firstWaiting[row]; waiting != kNoRow; waiting = nextWaiting[waiting])
        refuse(waiting);
    }
  }

  void SetDuplicateResults() {
    for (const Duplicate& duplicate : duplicates_) {
      const DWORD first = plan_.results[duplicate.first];
      const bool isSame = wanted_.rows[duplicate.row].newName == wanted_.rows[duplicate.first].newName;
      plan_.results[duplicate.row] = first != 0 ? first
                                     : isSame   ? DWORD{kRenameIgnored}
                                                : ERROR_FILE_NOT_FOUND;
    }
  }

  // Returns the row that frees the name for which `row` waits; kNoRow if the name is free.
  Row NextInChain(Row row) const {
    const Id target = rows_[row].target;
    return target == rows_[row].source ? kNoRow : tree_.At(target).source;
  }

  // Returns the row that waits for the name that `row` frees.
  Row WaitingFor(Row row) const {
    const Id claimant = tree_.At(rows_[row].source).claimant;
    const Row waiting = claimant == NameTree::kRoots ? kNoRow : tree_.At(claimant).source;
    return waiting != kNoRow && IsDone(waiting) ? waiting : kNoRow;
  }

  void MakeChains() {
    for (Row row = 0; row < rows_.size(); ++row) {
      if (!IsDone(row) || rows_[row].chain != kNoRow) continue;
      Row end = row;
      Row next = NextInChain(row);
      for (; next != kNoRow && next != row; next = NextInChain(next)) end = next;
      const bool isCycle = next == row;
      AddChain(isCycle ? WaitingFor(row) : end, isCycle ? row : kNoRow);
    }
  }

  // Adds a chain: `first`, and then each row that waits for the one before. In a cycle `aside` is the last
  // row, whose file has got a temporary name before; kNoRow if the chain has a free end.
  void AddChain(Row first, Row aside) {
    const auto number = static_cast<std::uint32_t>(plan_.chains.size());
    RenameChain chain;
    chain.first = static_cast<std::uint32_t>(plan_.order.size());
    for (Row row = first; row != kNoRow; row = row == aside ? kNoRow : WaitingFor(row)) {
      plan_.order.push_back(row);
      rows_[row].chain = number;
      ++chain.count;
      // All files of a chain are in one folder, so of two folders above it one contains the other.
      const Row mover = rows_[row].waitsFor;
      if (mover != kNoRow &&
          (chain.waitsFor == kNoRow || rows_[mover].source > rows_[chain.waitsFor].source)) {
        chain.waitsFor = mover;
      }
    }
    if (aside != kNoRow) {
      chain.temporaryName = static_cast<std::uint32_t>(plan_.temporaryNames.size());
      plan_.temporaryNames.push_back(TemporaryNameFor(aside));
    }
    plan_.chains.push_back(chain);
  }

  // Returns a name that no file has or will have. If all names tried are taken, the run reports the error.
  WString TemporaryNameFor(Row row) {
    const Id folder = tree_.At(rows_[row].source).parent;
    WString name;
    for (unsigned number = 1; number <= kMaxTemporaryNames; ++number) {
      name = TemporaryName(tree_.At(rows_[row].source).name, number);
      if (!tree_.HasNameIgnoringCase(folder, name) &&
          files_.Look(tree_.FolderPath(folder) + name) != ERROR_SUCCESS)
        break;
    }
    return name;
  }

  void OrderChains() {
    // By node: the row that renames the nearest renamed folder above it.
    std::vector<Row> above(tree_.Count(), kNoRow);
    for (Id node = 1; node < tree_.Count(); ++node) {
      const Id parent = tree_.At(node).parent;
      const Row rename = tree_.At(parent).source;
      above[node] = rename != kNoRow && IsDone(rename) ? rename : above[parent];
    }
    // For each chain that renames a folder: the chains in that folder which run before it, and those which
    // run after it, in the order of the batch. The last list contains the chains that are in no renamed
    // folder.
    const std::size_t count = plan_.chains.size();
    std::vector<std::uint32_t> firstBefore(count, kNoRow);
    std::vector<std::uint32_t> firstAfter(count + 1, kNoRow);
    std::vector<std::uint32_t> next(count, kNoRow);
    for (std::size_t number = count; number-- > 0;) {
      const RenameChain& chain = plan_.chains[number];
      const bool isAfter = chain.waitsFor != kNoRow;
      const Row folder = isAfter ? chain.waitsFor : above[rows_[plan_.order[chain.first]].source];
      auto& list =
          folder == kNoRow ? firstAfter[count] : (isAfter ? firstAfter : firstBefore)[rows_[folder].chain];
      next[number] = std::exchange(list, static_cast<std::uint32_t>(number));
    }
    std::vector<RenameChain> ordered;
    ordered.reserve(count);
    // The lists that remain to be run, each from its next chain on. A chain is marked as entered when those
    // that run before it are added.
    std::vector<std::uint32_t> lists = {firstAfter[count]};
    std::vector<bool> isEntered(count, false);
    while (!lists.empty()) {
      const std::uint32_t number = lists.back();
      if (number == kNoRow) {
        lists.pop_back();
      } else if (!isEntered[number]) {
        isEntered[number] = true;
        if (firstBefore[number] != kNoRow) lists.push_back(firstBefore[number]);
      } else {
        ordered.push_back(plan_.chains[number]);
        lists.back() = next[number];
        if (firstAfter[number] != kNoRow) lists.push_back(firstAfter[number]);
      }
    }
    plan_.chains = std::move(ordered);
  }

  const WantedRenames& wanted_;
  FileView& files_;
  std::vector<bool> isDecided_;  // flat_renames.h
  std::vector<Row> open_;
  std::vector<WantedRow> rows_;  // empty if no row is open
  NameTree tree_;
  std::vector<WantedFolder> folders_;
  std::vector<Duplicate> duplicates_;
  std::unordered_map<Id, std::size_t> otherFolders_;  // index into RenamePlan::otherFolders
  WString currentUpper_;
  RenamePlan plan_;
};

}  // namespace

RenamePlan PlanRenames(const WantedRenames& wanted, FileView& files) { return Planner(wanted, files).Plan(); }

}  // namespace QxHost
