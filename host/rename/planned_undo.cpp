#include "host/rename/planned_undo.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "host/rename/rename_circles.h"
#include "host/rename/temporary_name.h"
#include "host/services/file_facts.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

using Velmora::SDK::MultiRenameUndo;
using Velmora::SDK::MultiRenameUndoEntry;

constexpr WStringView kPlanMark = W(";qxhost planned");
constexpr unsigned kMostTemporaryNamesLooked = 16;

WString OldPathOf(const MultiRenameUndoEntry& entry) { return PathInFolder(entry.folder, entry.oldName); }

// The text of an entry after the identity of its file.
WString EntryTextOf(const MultiRenameUndoEntry& entry) {
  return entry.folder.Text() + W('|') + entry.oldName + W('|') + entry.newName;
}

// Finds folders whose own renames, or those of folders above them, may have been done.
class PlannedFolders {
 public:
  PlannedFolders(const UndoPlan& plan, const MultiRenameUndo& session) : plan_(plan) {
    for (const MultiRenameUndoEntry& entry : session.entries) byOldPath_.emplace(OldPathOf(entry), &entry);
  }

  // Where the folder of this path before the run is now. The path ends as it does.
  WString Now(const WString& folder) {
    const std::size_t end = folder.find_last_not_of(W('\\'));
    const WString path = folder.substr(0, end + 1);
    const std::size_t nameAt = path.rfind(W('\\')) + 1;
    if (end == WString::npos || nameAt == 0 || SplitRoot(path).rest.empty()) return folder;
    if (const auto known = now_.find(path); known != now_.end()) return known->second;
    const WString parent = Now(path.substr(0, nameAt));
    const auto rename = byOldPath_.find(path);
    const bool isRenamed = rename != byOldPath_.end() && IsRenamed(*rename->second, parent);
    const WStringView name =
        isRenamed ? NameToMake(rename->second->newName) : WStringView(path).substr(nameAt);
    return now_[path] = PathInFolder(parent, name);
  }

 private:
  bool IsRenamed(const MultiRenameUndoEntry& entry, const WString& parent) const {
    const std::string there = FileIdentity(PathInFolder(parent, NameToMake(entry.newName)));
    const auto known = plan_.identities.find(EntryTextOf(entry));
    if (known != plan_.identities.end()) return there == known->second;
    return !there.empty() && FileIdentity(PathInFolder(parent, entry.oldName)).empty();
  }

  const UndoPlan& plan_;
  std::unordered_map<WString, const MultiRenameUndoEntry*> byOldPath_;
  std::unordered_map<WString, WString> now_;
};

// The name that the file of the entry has now, if that is its new one or a temporary one.
std::optional<WString> NameAfterRun(const MultiRenameUndoEntry& entry, const WString& folder,
                                    const std::string& identity) {
  const WStringView made = NameToMake(entry.newName);
  if (FileIdentity(PathInFolder(folder, made)) == identity) return entry.newName;
  for (unsigned number = 1; number <= kMostTemporaryNamesLooked; ++number) {
    WString name = TemporaryName(entry.oldName, number);
    if (FileIdentity(PathInFolder(folder, name)) == identity) return name;
  }
  return std::nullopt;
}

}  // namespace

WString HeadOfPlannedUndo(const MultiRenameUndo& planned, bool areIndependent) {
  WString head(kPlanMark);
  head += W("\r\n");
  if (areIndependent) return head;
  for (const std::size_t index : FindRenameCircles(planned.entries)) {
    const MultiRenameUndoEntry& entry = planned.entries[index];
    // A name with a line end cannot be kept, and would end the comment.
    if (EntryTextOf(entry).find_first_of(WStringView(W("\r\n\0"), 3)) != WString::npos) continue;
    const std::string identity = FileIdentity(OldPathOf(entry));
    head +=
        W(';') + FromUtf8(identity.empty() ? "unknown" : identity) + W('|') + EntryTextOf(entry) + W("\r\n");
  }
  return head;
}

UndoPlan ReadUndoPlan(const WString& head) {
  UndoPlan plan;
  for (std::size_t at = 0; at < head.size();) {
    const std::size_t end = std::min(head.find(W('\n'), at), head.size());
    WStringView line = WStringView(head).substr(at, end - at);
    at = end + 1;
    while (line.ends_with(W('\r'))) line.remove_suffix(1);
    const std::size_t bar = line.find(W('|'));
    if (line == kPlanMark) {
      plan.isPlan = true;
    } else if (plan.isPlan && bar != WStringView::npos && bar > 1) {
      plan.identities.emplace(line.substr(bar + 1), ToUtf8(WString(line.substr(1, bar - 1))));
    }
  }
  return plan;
}

std::size_t LeaveOutUndone(const UndoPlan& plan, MultiRenameUndo& session) {
  if (plan.identities.empty()) return 0;
  PlannedFolders folders(plan, session);
  std::vector<std::optional<WString>> names;
  for (const MultiRenameUndoEntry& entry : session.entries) {
    const auto known = plan.identities.find(EntryTextOf(entry));
    names.push_back(known == plan.identities.end()
                        ? entry.newName
                        : NameAfterRun(entry, folders.Now(entry.folder), known->second));
  }
  std::vector<MultiRenameUndoEntry> done;
  for (std::size_t index = 0; index < names.size(); ++index) {
    if (!names[index]) continue;
    done.push_back(std::move(session.entries[index]));
    done.back().newName = *std::move(names[index]);
  }
  const std::size_t leftOut = session.entries.size() - done.size();
  session.entries = std::move(done);
  return leftOut;
}

}  // namespace QxHost
