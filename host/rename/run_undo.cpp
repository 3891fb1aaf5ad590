#include "host/rename/run_undo.h"

#include <unordered_map>
#include <utility>

#include "host/output/error_text.h"
#include "host/rename/undo_file.h"
#include "host/services/lock_in_turn.h"
#include "host/system/paths.h"
#include "multirename/saved/undo_date.h"

namespace QxHost {

using Velmora::SDK::DateOfSeconds;
using Velmora::SDK::MultiRenameUndo;
using Velmora::SDK::MultiRenameUndoEntry;
using Velmora::SDK::SecondsOfDate;

namespace {

constexpr WStringView kLockName = W("qxhost.lock");

}  // namespace

DWORD LockUndoFiles(UndoLock& lock, const Velmora::SDK::MultiRenameUndoStore& store, Output& output) {
  return LockInTurn(lock, store.folder + WString(kLockName), output);
}

void RunUndo::TakeName(MultiRenameUndo& session) const {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  const auto first = SecondsOfDate(now);
  for (auto second = first;; ++second) {
    session.date = second == first ? now : DateOfSeconds(second);
    session.fileName.clear();
    if (GetFileAttributesW(SystemPath(store_.PathOf(session)).c_str()) == INVALID_FILE_ATTRIBUTES) return;
  }
}

void RunUndo::Lock() {
  lockError_ = LockUndoFiles(lock_, store_, output_);
  isLocked_ = true;
}

void RunUndo::Unlock() {
  lock_.Release();
  isLocked_ = false;
}

bool RunUndo::Begin(MultiRenameUndo planned, bool areIndependent) {
  if (!isLocked_) Lock();
  if (planned.entries.empty()) return true;
  TakeName(planned);
  date_ = planned.date;
  fileName_ = planned.fileName;
  if (!areIndependent) notes_.files = NoteOldFiles(planned.entries);
  notes_.isPlan = true;
  const WString path = store_.PathOf(planned);
  const DWORD error = lockError_ != ERROR_SUCCESS ? lockError_ : WriteUndoFile(path, planned, notes_);
  hasPlan_ = error == ERROR_SUCCESS;
  if (hasPlan_) {
    if (!notes_.files.empty()) planned_ = std::move(planned.entries);
    return true;
  }
  output_.Problem("no undo file can be written in " + ToUtf8(store_.folder) + ": " + ErrorText(error) +
                  (lockError_ != ERROR_SUCCESS ? ", of its lock " + ToUtf8(kLockName) : "") +
                  ". Nothing was renamed; --no-undo renames without one");
  return false;
}

NotedFiles RunUndo::NotedOf(const MultiRenameUndo& session) const {
  NotedFiles files;
  if (planned_.empty()) return files;
  const auto pathOf = [](const MultiRenameUndoEntry& entry) {
    return PathInFolder(entry.folder.Text(), entry.oldName);
  };
  std::unordered_map<WString, FileIndex> planned;
  planned.reserve(planned_.size());
  for (std::size_t entry = 0; entry < planned_.size(); ++entry) {
    planned.emplace(pathOf(planned_[entry]), notes_.files[entry]);
  }
  files.reserve(session.entries.size());
  for (const MultiRenameUndoEntry& entry : session.entries) {
    const auto found = planned.find(pathOf(entry));
    files.push_back(found != planned.end() ? found->second : kNoFile);
  }
  return files;
}

bool RunUndo::End(MultiRenameUndo* done) {
  if (!done) {
    if (hasPlan_) Delete();
    return true;
  }
  if (fileName_.empty()) {
    // Nothing was planned: the disk has changed since.
    TakeName(*done);
  } else {
    done->date = date_;
    done->fileName = fileName_;
  }
  notes_ = {false, NotedOf(*done)};
  const WString path = store_.PathOf(*done);
  const DWORD error = WriteUndoFile(path, *done, notes_);
  if (error == ERROR_SUCCESS) return true;
  output_.Problem("the undo file could not be written: " + ToUtf8(path) + ": " + ErrorText(error) +
                  (hasPlan_ ? ". The one from before the run remains, and undoes what was renamed" : ""));
  return false;
}

void RunUndo::Delete() { DeleteFileW(SystemPath(store_.folder + fileName_).c_str()); }

}  // namespace QxHost
