#include "host/rename/present_files.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "host/rename/colliding_names.h"
#include "host/rename/move_item.h"
#include "host/rename/queued_rename.h"
#include "host/rename/temporary_name.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

using Velmora::SDK::MultiRenameUndo;
using Velmora::SDK::MultiRenameUndoEntry;

constexpr unsigned kMaxTemporaryNamesTried = 16;

class FileSearch {
 public:
  FileSearch(const MultiRenameUndo& session, const UndoNotes& notes, const WString& currentFolder)
      : session_(session),
        notes_(notes),
        currentFolder_(currentFolder),
        colliding_(FindCollidingNames(session.entries)) {
    for (const FileIndex file : notes.files) {
      if (file != kNoFile && !noted_.insert(file).second) notedTwice_.insert(file);
    }
  }

  std::vector<PresentFile> Find() {
    std::vector<PresentFile> files(session_.entries.size());
    if (colliding_.empty() && noted_.empty() && !notes_.isPlan) return files;
    for (const std::size_t index : FoldersFirst()) {
      const MultiRenameUndoEntry& entry = session_.entries[index];
      const PlaceNow folder = FolderNow(entry.folder);
      PresentFile& file = files[index];
      file = folder.isHeld   ? PresentFile{Presence::kHeld}
             : folder.isLost ? PresentFile{Presence::kTaken}
                             : Look(index, folder.path);
      if (hasRenamedFolders_) KeepPlace(index, file, folder);
    }
    return files;
  }

 private:
  struct PlaceNow {
    WString path;
    bool isHeld = false;
    bool isLost = false;
  };

  FileIndex NotedOf(std::size_t index) const {
    return index < notes_.files.size() ? notes_.files[index] : kNoFile;
  }

  bool IsColliding(std::size_t index) const { return !colliding_.empty() && colliding_[index]; }

  // Returns all entries, those in upper folders first if the place of a folder may depend on them.
  std::vector<std::size_t> FoldersFirst() {
    hasRenamedFolders_ = !colliding_.empty() && std::ranges::find(colliding_, false) == colliding_.end();
    std::vector<std::size_t> order(session_.entries.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    if (!hasRenamedFolders_) return order;
    std::vector<std::ptrdiff_t> depths;
    depths.reserve(order.size());
    for (const MultiRenameUndoEntry& entry : session_.entries) {
      const WStringView folder = entry.folder;
      depths.push_back(std::ranges::count(folder, W('\\')) - (folder.ends_with(W('\\')) ? 1 : 0));
    }
    std::ranges::stable_sort(order, {}, [&depths](std::size_t index) { return depths[index]; });
    return order;
  }

  // Returns the present place of the folder that had this path before the run.
  PlaceNow FolderNow(const WString& folder) {
    if (!hasRenamedFolders_) return {folder};
    const std::size_t end = folder.find_last_not_of(W('\\'));
    const WString path = folder.substr(0, end + 1);
    const std::size_t nameAt = path.rfind(W('\\')) + 1;
    if (end == WString::npos || nameAt == 0 || SplitRoot(path).rest.empty()) return {folder};
    const WString key = PathKey(path);
    if (const auto known = places_.find(key); known != places_.end()) return known->second;
    PlaceNow place = FolderNow(path.substr(0, nameAt));
    place.path = PathInFolder(place.path, WStringView(path).substr(nameAt));
    return places_[key] = place;
  }

  // Records the place of a file, which may be a folder that contains other files of the session.
  void KeepPlace(std::size_t index, const PresentFile& file, const PlaceNow& folder) {
    const MultiRenameUndoEntry& entry = session_.entries[index];
    const bool isBack = file.presence == Presence::kBack;
    const bool isThere = file.presence == Presence::kThere;
    const WStringView name = isBack    ? WStringView(entry.oldName)
                             : isThere ? WStringView(file.name)
                                       : NameToMake(entry.newName);
    PlaceNow place = folder;
    place.path = PathInFolder(folder.path, name);
    place.isHeld = place.isHeld || (!isBack && IsSameOrAbove(place.path, currentFolder_));
    // If the path is too long for a search, not finding the file does not show that it is lost.
    const bool isFound = isBack || isThere || file.found != kNoFile;
    place.isLost = place.isLost || (!isFound && NotedOf(index) != kNoFile && indexes_.CanLookIn(folder.path));
    places_[PathKey(PathInFolder(entry.folder, entry.oldName))] = std::move(place);
  }

  PresentFile Look(std::size_t index, const WString& folder) {
    if (NotedOf(index) != kNoFile) return FindNotedFile(index, folder);
    const MultiRenameUndoEntry& entry = session_.entries[index];
    const WStringView newName = NameToMake(entry.newName);
    if (notes_.isPlan && !IsColliding(index)) {
      const bool isDone = indexes_.Of(folder, newName) != kNoFile;
      const bool isBack = !isDone && indexes_.Of(folder, entry.oldName) != kNoFile;
      return {isBack ? Presence::kBack : Presence::kByName};
    }
    if (!IsColliding(index)) return {};
    // There are no notes: they were removed, or MultiRename's window wrote the file. An undo of the window
    // that was cut off has left no notes either.
    const bool isAtOld = indexes_.Of(folder, entry.oldName) != kNoFile;
    if (session_.haveRestored && isAtOld) return {Presence::kBack};
    const FileIndex atNew = indexes_.Of(folder, newName);
    if (notes_.isPlan && isAtOld && atNew != kNoFile) return {Presence::kTaken};
    return {Presence::kByName, {}, atNew};
  }

  PresentFile FindNotedFile(std::size_t index, const WString& folder) {
    const MultiRenameUndoEntry& entry = session_.entries[index];
    const FileIndex file = notes_.files[index];
    const WString newName(NameToMake(entry.newName));
    const FileIndex atOld = indexes_.Of(folder, entry.oldName);
    const FileIndex atNew = indexes_.Of(folder, newName);
    // A file with two hard links may have been renamed under both names. The new name then decides.
    const bool isTwice = notedTwice_.contains(file);
    const bool isNew = atNew == file && IsSpelled(folder, newName, entry.oldName);
    const bool isOld = atOld == file && IsSpelled(folder, entry.oldName, newName);
    if (isOld && !(isTwice && isNew)) return {Presence::kBack};
    if (isNew) return {Presence::kThere, entry.newName};
    for (unsigned number = 1; number <= kMaxTemporaryNamesTried; ++number) {
      for (const WString& name : {TemporaryName(entry.oldName, number), TemporaryName(newName, number)}) {
        if (indexes_.Of(folder, name) == file) return {Presence::kThere, name};
      }
    }
    // Some programs save a file by creating a new one in its place.
    const bool isOtherAtOld = atOld != kNoFile && !noted_.contains(atOld);
    const bool isOtherAtNew = atNew != kNoFile && !noted_.contains(atNew);
    const bool mayBeBack = isOtherAtOld && (notes_.isPlan || session_.haveRestored);
    if (isOtherAtNew && !mayBeBack) return {Presence::kByName, {}, atNew};
    if (mayBeBack && !(isOtherAtNew && notes_.isPlan)) return {Presence::kBack};
    return {atNew == kNoFile ? Presence::kByName : Presence::kTaken};
  }

  // Returns whether the file that is found under `name` has this spelling, and not that of `other`, if names
  // that differ only in letter case are equal.
  static bool IsSpelled(const WString& folder, const WString& name, const WString& other) {
    if (name.size() != other.size() || PathKey(name) != PathKey(other)) return true;
    const WString spelled = NameOnDisk(PathInFolder(folder, name));
    return spelled.empty() || spelled == name;
  }

  const MultiRenameUndo& session_;
  const UndoNotes& notes_;
  const WString& currentFolder_;
  const std::vector<bool> colliding_;
  bool hasRenamedFolders_ = false;
  FileIndexes indexes_;
  std::unordered_set<FileIndex> noted_;
  std::unordered_set<FileIndex> notedTwice_;
  std::unordered_map<WString, PlaceNow> places_;  // by keys of paths before the run
};

}  // namespace

std::vector<PresentFile> FindPresentFiles(const MultiRenameUndo& session, const UndoNotes& notes,
                                          const WString& currentFolder) {
  return FileSearch(session, notes, currentFolder).Find();
}

}  // namespace QxHost
