#include "host/rename/rename_undo.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <tuple>
#include <unordered_set>

#include "host/output/error_text.h"
#include "host/output/failures.h"
#include "host/output/nearest_name.h"
#include "host/rename/interruption.h"
#include "host/rename/run_undo.h"
#include "host/rename/undo_file.h"
#include "host/rename/undo_steps.h"
#include "host/services/file_facts.h"
#include "host/system/paths.h"
#include "multirename/rules/character_scan.h"
#include "platform/handles.h"

namespace QxHost {

namespace {

using namespace Velmora::SDK;

constexpr std::string_view kNewestUndo = "last";
constexpr std::string_view kEveryUndo = "all";

// A session without its entries: an undo file may be large, and there may be many.
struct UndoSummary {
  WString fileName;
  SYSTEMTIME date{};
  std::size_t items = 0;
  bool haveRestored = false;
};

auto DateKey(const UndoSummary& session) {
  const SYSTEMTIME& date = session.date;
  return std::tuple(date.wYear, date.wMonth, date.wDay, date.wHour, date.wMinute, date.wSecond,
                    session.fileName);
}

UndoSummary SummaryOf(const MultiRenameUndo& session) {
  return {session.fileName, session.date, session.entries.size(), session.haveRestored};
}

std::vector<UndoSummary> SessionsByDate(const MultiRenameUndoStore& store) {
  std::vector<UndoSummary> sessions;
  store.ForEachSession([&sessions](const std::unique_ptr<MultiRenameUndo>& session) {
    sessions.push_back(SummaryOf(*session));
  });
  std::ranges::sort(sessions, {}, DateKey);
  return sessions;
}

std::string IsoDate(const SYSTEMTIME& date) {
  char text[40];
  std::snprintf(text, sizeof text, "%04u-%02u-%02uT%02u:%02u:%02u", unsigned{date.wYear},
                unsigned{date.wMonth}, unsigned{date.wDay}, unsigned{date.wHour}, unsigned{date.wMinute},
                unsigned{date.wSecond});
  return text;
}

bool IsSameFileName(const WString& lhs, const WString& rhs) {
  return CompareStringOrdinal(lhs.c_str(), static_cast<int>(lhs.size()), rhs.c_str(),
                              static_cast<int>(rhs.size()), TRUE) == CSTR_EQUAL;
}

// Returns the bare name of the store's file to which a name or a path refers; std::nullopt for a path
// elsewhere.
std::optional<WString> NameInStore(const MultiRenameUndoStore& store, const WString& text) {
  if (text.find_first_of(W("\\/")) == WString::npos) return text;
  const std::optional<WString> path = FullPathOf(text);
  const std::optional<WString> folder = FullPathOf(store.folder);
  if (!path || !folder) return std::nullopt;
  const std::size_t nameAt = path->rfind(W('\\')) + 1;
  const bool isStores = IsSameFileName(path->substr(0, nameAt), *folder + W('\\'));
  return isStores ? std::optional(path->substr(nameAt)) : std::nullopt;
}

BadCall NotAnUndoFile(const MultiRenameUndoStore& store, const std::string& text) {
  std::vector<std::string> names;
  for (const UndoSummary& session : SessionsByDate(store)) names.push_back(ToUtf8(session.fileName));
  const std::optional<WString> name = NameInStore(store, PathFromUtf8(text));
  if (text != kNewestUndo && name && ReadFileFacts(store.folder + *name)) {
    return BadCall("\"" + text + "\" is not an undo file: it is in " + ToUtf8(store.folder) +
                   ", but is not a list of renames");
  }
  if (names.empty()) return BadCall("there are no undo files in " + ToUtf8(store.folder));
  const std::vector<std::string_view> views(names.begin(), names.end());
  return BadCall("\"" + text + "\" is not an undo file" + DidYouMean(text, views) +
                 ". `qxhost rename --list-undo` shows all");
}

// Returns the name of the store's file for a name, a path or `last`; std::nullopt for a path elsewhere.
// Throws BadCall if it does not exist.
std::optional<WString> FileInStore(const MultiRenameUndoStore& store, const std::string& text) {
  if (text == kNewestUndo) {
    const std::vector<UndoSummary> sessions = SessionsByDate(store);
    if (sessions.empty()) throw NotAnUndoFile(store, text);
    return sessions.back().fileName;
  }
  const std::optional<WString> name = NameInStore(store, PathFromUtf8(text));
  if (!name || (!name->empty() && ReadUndoFile(store.folder + *name).session)) return name;
  for (const UndoSummary& session : SessionsByDate(store)) {
    if (IsSameFileName(session.fileName, *name)) return session.fileName;
  }
  throw NotAnUndoFile(store, text);
}

// The undo file that the call refers to.
struct UndoTarget {
  WString path;
  bool isForeign = false;  // it is not in the store
  UndoFile file;
};

UndoTarget FindUndo(const MultiRenameUndoStore& store, const std::string& text) {
  UndoTarget target;
  const std::optional<WString> name = FileInStore(store, text);
  target.isForeign = !name;
  target.path = name ? store.folder + *name : FullPathOf(PathFromUtf8(text)).value_or(WString());
  if (target.path.empty()) throw NotAnUndoFile(store, text);
  target.file = ReadUndoFile(target.path);
  if (target.file.error != ERROR_SUCCESS) {
    throw BadCall("cannot read " + text + ": " + ErrorText(target.file.error));
  }
  if (!target.file.session) throw BadCall(text + " is not an undo file");
  if (name) target.file.session->fileName = *name;
  return target;
}

// Returns the bytes of the text as the store writes them.
std::string_view BytesOf(WStringView text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WCHAR)};
}

// The result for a file that was read and differs from what was written.
constexpr DWORD kOtherBytes = ERROR_INVALID_DATA;

// Reads as many bytes from the file. Returns an error, or kOtherBytes if they differ or are too few.
DWORD ReadAndCompare(HANDLE file, std::string_view bytes, std::string& buffer) {
  while (!bytes.empty()) {
    buffer.resize(bytes.size());
    DWORD done = 0;
    if (!ReadFile(file, buffer.data(), static_cast<DWORD>(buffer.size()), &done, nullptr))
      return GetLastError();
    if (done == 0 || !bytes.starts_with(std::string_view(buffer).substr(0, done))) return kOtherBytes;
    bytes.remove_prefix(done);
  }
  return ERROR_SUCCESS;
}

// Returns 0 if the file contains exactly the text of the session and its notes, otherwise an error or
// kOtherBytes. Stores the size of the text before the notes, in bytes.
DWORD CompareUndoFile(const WString& path, const MultiRenameUndo& session, const NotedFiles& notedFiles,
                      std::size_t& size) {
  const FileHandle file(CreateFileW(SystemPath(path).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD error = file.IsOpen() ? DWORD{ERROR_SUCCESS} : GetLastError();
  std::string buffer;
  const auto compare = [&](WStringView text) {
    if (error == ERROR_SUCCESS) error = ReadAndCompare(file.Get(), BytesOf(text), buffer);
  };
  WriteUndoText(session, [&](WStringView text) {
    size += BytesOf(text).size();
    compare(text);
  });
  WriteNotedFiles(notedFiles, compare);
  char more = 0;
  DWORD done = 0;
  if (error == ERROR_SUCCESS && ReadFile(file.Get(), &more, 1, &done, nullptr) && done != 0)
    return kOtherBytes;
  return error;
}

bool IsUndoLineBlank(WCHAR c) { return c == W(' ') || c == W('\t'); }

bool IsStorableField(WStringView text) {
  return !text.empty() && !ContainsAnyOf<W('|'), W('\r'), W('\n'), W('\0')>(text);
}

// Returns whether the entry is certain to be read back from its line, and its old name is possible.
bool IsStorableEntry(const MultiRenameUndoEntry& entry) {
  if (!IsPossibleName(entry.oldName)) return false;
  if (!IsStorableField(entry.folder) || !IsStorableField(entry.oldName) || !IsStorableField(entry.newName))
    return false;
  const WCHAR first = entry.folder.Text().front();
  const bool isOther = first == W(';') || first == W('#') || first == W('[');
  return !isOther && !IsUndoLineBlank(first) && !IsUndoLineBlank(entry.newName.back());
}

// Two entries are equal if the reader cannot distinguish them: it drops blanks at the end of a new name, as
// the run does.
struct EntryHash {
  std::size_t operator()(const MultiRenameUndoEntry* entry) const {
    constexpr std::hash<WStringView> kHash;
    constexpr std::size_t kFactor = 31;
    return (kHash(entry->folder) * kFactor + kHash(entry->oldName)) * kFactor +
           kHash(NameToMake(entry->newName));
  }
};

struct AreEqualEntries {
  bool operator()(const MultiRenameUndoEntry* left, const MultiRenameUndoEntry* right) const {
    return left->oldName == right->oldName && NameToMake(left->newName) == NameToMake(right->newName) &&
           left->folder == right->folder;
  }
};

// A set of entries that are stored elsewhere.
using EntrySet = std::unordered_set<const MultiRenameUndoEntry*, EntryHash, AreEqualEntries>;

EntrySet SetOf(const std::vector<MultiRenameUndoEntry>& entries) {
  EntrySet set;
  set.reserve(entries.size());
  for (const MultiRenameUndoEntry& entry : entries) set.insert(&entry);
  return set;
}

std::string Renames(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " rename" : " renames");
}

std::string LossReason(const MultiRenameUndoEntry& entry, bool isFileLong) {
  const bool isSeparated = !IsStorableField(entry.folder) || !IsStorableField(entry.oldName);
  if (!isSeparated && !IsPossibleName(entry.oldName))
    return "no file may have a name with one of \\/:*?\"<>| or a control character";
  if (isFileLong) return "an undo file has at most " + std::to_string(kMaxUndoFileBytes) + " bytes";
  return "its lines are split at each | and at line ends";
}

// Returns how many entries, from the first one on, are read back unchanged.
std::size_t CountInPlace(const MultiRenameUndo& session, const MultiRenameUndo& kept) {
  const auto differ = std::ranges::mismatch(
      session.entries, kept.entries,
      [](const auto& entry, const auto& keptEntry) { return AreEqualEntries()(&entry, &keptEntry); });
  return static_cast<std::size_t>(differ.in1 - session.entries.begin());
}

// Warns of entries that are read back but were not renames of the session. If the file is cut, its last line
// may be cut too, and its new name is then the beginning of another.
void WarnOfUnknownEntries(Output& output, const MultiRenameUndo& session, const MultiRenameUndo& kept,
                          bool isCut) {
  // Most entries are read back at the same position.
  const std::size_t inPlace = CountInPlace(session, kept);
  const auto unsure = std::span(kept.entries).subspan(inPlace);
  constexpr std::size_t kMaxLinearSearch = 4;  // for fewer entries a set is slower
  const EntrySet renames = unsure.size() <= kMaxLinearSearch ? EntrySet() : SetOf(session.entries);
  const auto isUnknownEntry = [&](const MultiRenameUndoEntry& entry) {
    if (unsure.size() > kMaxLinearSearch) return !renames.contains(&entry);
    return std::ranges::none_of(session.entries, [&entry](const MultiRenameUndoEntry& rename) {
      return AreEqualEntries()(&rename, &entry);
    });
  };
  const auto unknownEntries = std::ranges::count_if(unsure, isUnknownEntry);
  if (unknownEntries == 0) return;
  if (unknownEntries == 1 && isCut && isUnknownEntry(kept.entries.back())) {
    output.Problem("the last line that is read of the undo file is cut, and contains " +
                   ToUtf8(PathInFolder(kept.entries.back().folder, kept.entries.back().newName)) +
                   ": if this file exists, do not undo the run");
  } else {
    output.Problem("the undo file has lines that look like renames of other files: do not undo it");
  }
}

UndoEvent EventOfSummary(const MultiRenameUndoStore& store, const UndoSummary& session) {
  MultiRenameUndo dated;
  dated.date = session.date;
  UndoEvent event;
  event.file = store.folder + session.fileName;
  event.date = IsoDate(session.date);
  event.dateText = DateText(dated);
  event.items = session.items;
  event.restored = session.haveRestored;
  return event;
}

void WarnOfUndoFile(Output& output, const UndoFile& file) {
  if (file.session->haveRestored) {
    output.Problem("note: this run has been undone before; --list-undo shows the others");
  }
  if (file.isLong) {
    output.Problem("the undo file is longer than " + std::to_string(kMaxUndoFileBytes) +
                   " bytes; what is beyond them is not undone");
  } else if (file.isCut) {
    output.Problem("the last line of the undo file is cut; it is not undone");
  }
}

// Removes entries with names that no run gives. A path with such a name, for example "..", would refer to a
// file in another folder.
void RemoveImpossibleNames(Shared& shared, MultiRenameUndo& session) {
  const auto isNoName = [](const MultiRenameUndoEntry& entry) {
    return !IsPossibleName(NameToMake(entry.newName));
  };
  const auto first = std::ranges::find_if(session.entries, isNoName);
  if (first == session.entries.end()) return;
  const WString name = first->newName;
  const std::size_t count = std::erase_if(session.entries, isNoName);
  shared.output.Problem(Renames(count) + " cannot be undone: no file has the name " + ToUtf8(name));
  shared.hasFailedFiles = true;
}

void ReportLeft(Shared& shared, const std::vector<LeftFile>& left, bool isDryRun) {
  for (const LeftFile& file : left) {
    const bool isHeld = file.why == Presence::kHeld;
    const WString path = PathInFolder(file.folder, file.name);
    shared.reporter.Rename(
        {path, file.oldName, isHeld ? DWORD{ERROR_SHARING_VIOLATION} : ERROR_FILE_NOT_FOUND, isDryRun});
    shared.output.Problem("cannot rename " + ToUtf8(path) + " to " + ToUtf8(file.oldName) + ": " +
                          (isHeld ? "a folder above it is the current one, or above that"
                                  : "it may not be the file that was renamed"));
    shared.hasFailedFiles = true;
  }
}

std::string AlreadyRestoredText(std::size_t back, bool isPlan, bool hadRestored) {
  if (isPlan) {
    return "The run was cut off: " + Renames(back) + " had not been done" +
           (hadRestored ? ", or have been undone before" : "");
  }
  return std::to_string(back) + (back == 1 ? " file has its old name" : " files have their old names") +
         " already";
}

}  // namespace

UndoEvent UndoEventOf(const MultiRenameUndoStore& store, const MultiRenameUndo& session) {
  return EventOfSummary(store, SummaryOf(session));
}

void ListUndoFiles(Shared& shared, MultiRenameUndoStore& store, const std::string& configOption) {
  std::vector<UndoSummary> sessions = SessionsByDate(store);
  std::ranges::reverse(sessions);
  for (const UndoSummary& session : sessions) {
    UndoEvent event = EventOfSummary(store, session);
    event.isPlan = IsPlan(event.file);
    shared.reporter.Undo(event);
  }
  if (sessions.empty()) {
    shared.reporter.Say("There are no undo files in " + ToUtf8(store.folder));
  } else {
    shared.reporter.Say("They are in " + ToUtf8(store.folder) + ". Undo one: qxhost " + configOption +
                        "rename --undo NAME, or --undo last for the first of these");
  }
}

void UndoRenames(Shared& shared, RenameSession& session, const std::string& text, bool isDryRun) {
  const MultiRenameUndoStore& store = session.UndoStore();
  UndoLock lock;
  // Without the lock nothing can be written either, so the undo continues without it.
  if (!isDryRun) LockUndoFiles(lock, store, shared.output);
  UndoTarget target = FindUndo(store, text);
  MultiRenameUndo& taken = *target.file.session;
  UndoNotes& notes = target.file.notes;
  const bool hadRestored = taken.haveRestored;
  WarnOfUndoFile(shared.output, target.file);
  const std::vector<PresentFile> files =
      FindPresentFiles(taken, notes, FullPathOf(W(".")).value_or(WString()));
  UndoSteps steps = StepsOf(taken, files);
  RemoveImpossibleNames(shared, steps.session);
  // Rewriting a file of which a part was not read would lose that part.
  const bool isWritten = !isDryRun && !target.isForeign && target.file.isWhole;
  {
    // The reader of the output may be slow or end this program, so the undo file is written first.
    const HeldOutput held(shared.output);
    const InterruptionWatch watch;
    if (isWritten && NoteFound(files, notes.files)) RewriteUndoFile(target.path, target.file);
    session.Restore(steps.session);
    session.AddFailed(steps.left.size());
    ReportLeft(shared, steps.left, isDryRun);
    const bool isAllBack = steps.back != 0 && session.Failed() == 0;
    if (isWritten && shared.fileOperation.Untried() == 0 && (session.Succeeded() != 0 || isAllBack)) {
      taken.haveRestored = true;
      if (const DWORD error = RewriteUndoFile(target.path, target.file); error != ERROR_SUCCESS) {
        taken.haveRestored = hadRestored;
        shared.output.Problem("note: the undo file cannot record that it was undone: " + ErrorText(error));
      }
    }
    lock.Release();
  }
  if (!target.isForeign) shared.reporter.Undo(UndoEventOf(store, taken));
  shared.reporter.Say(isDryRun ? "Nothing was renamed: this was a dry run" : session.StatusText());
  if (steps.back != 0) shared.reporter.Say(AlreadyRestoredText(steps.back, notes.isPlan, hadRestored));
  if (!isDryRun && target.isForeign) {
    shared.reporter.Say("The file is not in " + ToUtf8(store.folder) +
                        ", so it does not record that it was undone");
  }
  if (taken.haveRestored && !isDryRun && session.Failed() != 0) {
    shared.reporter.Say("The file counts as undone. The same call tries the failed renames again");
  }
  if (hadRestored && session.Succeeded() == 0) shared.hasFailedFiles = true;  // nothing was left to restore
}

std::size_t RenamesBeyondUndo(const std::vector<MultiRenameItem*>& rows) {
  // The lines before the first entry, with a number of entries and a date of many digits.
  constexpr std::size_t kHeaderBytes = 200;
  constexpr std::size_t kSeparators = 4;  // two bars, CR and LF
  std::size_t bytes = kHeaderBytes;
  std::size_t beyond = 0;
  for (const MultiRenameItem* const row : rows) {
    if (row->oldName == row->newName) continue;
    bytes += sizeof(WCHAR) *
             (row->folderPath.Text().size() + row->oldName.size() + row->newName.size() + kSeparators);
    if (bytes > kMaxUndoFileBytes) ++beyond;
  }
  return beyond;
}

bool DeleteUndoFiles(Shared& shared, MultiRenameUndoStore& store, const std::string& text) {
  // Prevents deleting the file of a run in progress.
  UndoLock lock;
  LockUndoFiles(lock, store, shared.output);
  std::vector<WString> names;
  if (text == kEveryUndo) {
    store.ForEachSession(
        [&names](const std::unique_ptr<MultiRenameUndo>& session) { names.push_back(session->fileName); });
  } else if (const std::optional<WString> name = FileInStore(store, text)) {
    names.push_back(*name);
  } else {
    throw NotAnUndoFile(store, text);
  }
  std::size_t deleted = 0;
  for (const WString& name : names) {
    if (!DeleteFileW(SystemPath(store.folder + name).c_str())) {
      shared.output.Problem("cannot delete " + ToUtf8(store.folder + name));
      continue;
    }
    ++deleted;
    shared.reporter.UndoDeleted(store.folder + name);
  }
  if (names.empty()) shared.reporter.Say("There are no undo files in " + ToUtf8(store.folder));
  return deleted == names.size();
}

UndoCheck CheckUndoFile(Output& output, const MultiRenameUndoStore& store, MultiRenameUndo& session,
                        const NotedFiles& notedFiles) {
  const WString path = store.PathOf(session);
  std::size_t size = 0;
  const DWORD error = CompareUndoFile(path, session, notedFiles, size);
  const bool isWhole = error == ERROR_SUCCESS;
  if (!isWhole) {
    output.Problem("the undo file is incomplete, and may undo nothing: " + ToUtf8(path) +
                   (error == kOtherBytes ? "" : ": " + ErrorText(error)));
  }
  const UndoCheck found = isWhole ? UndoCheck::kKeeps : UndoCheck::kNotWhole;
  if (size <= kMaxUndoFileBytes && std::ranges::all_of(session.entries, IsStorableEntry)) return found;
  std::string expected;
  // One byte more than is read shows that the text is longer.
  WriteUndoText(session, [&expected](WStringView text) {
    if (expected.size() <= kMaxUndoFileBytes) expected += BytesOf(text);
  });
  const std::unique_ptr<MultiRenameUndo> kept =
      ReadUndoText({reinterpret_cast<const std::uint8_t*>(expected.data()), expected.size()});
  const EntrySet keptEntries = kept ? SetOf(kept->entries) : EntrySet();
  std::size_t lost = 0;
  const MultiRenameUndoEntry* first = nullptr;
  for (const MultiRenameUndoEntry& entry : session.entries) {
    if (IsPossibleName(entry.oldName) && keptEntries.contains(&entry)) continue;
    ++lost;
    if (!first) first = &entry;
  }
  if (lost == 0) return found;
  output.Problem("the undo of " + Renames(lost) + " of " + std::to_string(session.entries.size()) +
                 " cannot be kept, first of " + ToUtf8(PathInFolder(first->folder, first->oldName)) + ": " +
                 LossReason(*first, expected.size() > kMaxUndoFileBytes));
  if (kept) WarnOfUnknownEntries(output, session, *kept, expected.size() > kMaxUndoFileBytes);
  return lost == session.entries.size() ? UndoCheck::kKeepsNone : found;
}

}  // namespace QxHost
