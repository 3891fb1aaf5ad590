#include "host/rename_undo.h"

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <tuple>
#include <unordered_set>

#include "host/error_text.h"
#include "host/failures.h"
#include "host/file_facts.h"
#include "host/interruption.h"
#include "host/nearest_name.h"
#include "host/paths.h"
#include "host/whole_file.h"
#include "multirename/character_scan.h"
#include "platform/handles.h"

namespace QxHost {

namespace {

using namespace Velmora::SDK;

constexpr std::string_view kNewestUndo = "last";
constexpr std::string_view kEveryUndo = "all";

auto DateKey(const MultiRenameUndo& session) {
  const SYSTEMTIME& date = session.date;
  return std::tuple(date.wYear, date.wMonth, date.wDay, date.wHour, date.wMinute, date.wSecond,
                    session.fileName);
}

bool IsOlder(const MultiRenameUndo* lhs, const MultiRenameUndo* rhs) { return DateKey(*lhs) < DateKey(*rhs); }

std::vector<MultiRenameUndo*> SessionsByDate(MultiRenameUndoStore& store) {
  store.Load();
  std::vector<MultiRenameUndo*> sessions;
  for (const auto& session : store.sessions) sessions.push_back(session.get());
  std::ranges::sort(sessions, IsOlder);
  return sessions;
}

// Returns null if the store has no session.
MultiRenameUndo* NewestSession(MultiRenameUndoStore& store) {
  const std::vector<MultiRenameUndo*> sessions = SessionsByDate(store);
  return sessions.empty() ? nullptr : sessions.back();
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

// The session of a file in the store's folder, by its bare name; null for a file that is not a session.
MultiRenameUndo* SessionOfFile(MultiRenameUndoStore& store, const WString& name) {
  store.Load();
  const auto found = std::ranges::find_if(
      store.sessions, [&name](const auto& session) { return IsSameFileName(session->fileName, name); });
  return found == store.sessions.end() ? nullptr : found->get();
}

// The store's session of a name or a path; null if it is not in the store.
MultiRenameUndo* SessionMeant(MultiRenameUndoStore& store, const WString& text) {
  if (text.find_first_of(W("\\/")) == WString::npos) return SessionOfFile(store, text);
  const std::optional<WString> path = FullPathOf(text);
  if (!path) return nullptr;
  const std::size_t nameAt = path->rfind(W('\\')) + 1;
  const std::optional<WString> folder = FullPathOf(store.folder);
  const bool isStores = folder && IsSameFileName(path->substr(0, nameAt), *folder + W('\\'));
  return isStores ? SessionOfFile(store, path->substr(nameAt)) : nullptr;
}

BadCall NoUndoFile(MultiRenameUndoStore& store, const std::string& text) {
  std::vector<std::string> names;
  for (const MultiRenameUndo* const session : SessionsByDate(store)) {
    names.push_back(ToUtf8(session->fileName));
  }
  if (names.empty()) return BadCall("there are no undo files in " + ToUtf8(store.folder));
  const std::vector<std::string_view> views(names.begin(), names.end());
  return BadCall("\"" + text + "\" is no undo file" + DidYouMean(text, views) +
                 ". `qxhost rename --list-undo` shows which there are");
}

// A session of a file that lies elsewhere.
std::unique_ptr<MultiRenameUndo> ForeignSession(MultiRenameUndoStore& store, const std::string& text) {
  const std::optional<WString> path = FullPathOf(PathFromUtf8(text));
  if (!path || text.find_first_of("\\/") == std::string::npos) throw NoUndoFile(store, text);
  std::string bytes;
  if (const DWORD error = ReadWholeFile(*path, bytes); error != ERROR_SUCCESS) {
    throw BadCall("cannot read " + text + ": " + ErrorText(error));
  }
  std::unique_ptr<MultiRenameUndo> session =
      ReadUndoText({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
  if (!session) throw BadCall(text + " is no undo file");
  return session;
}

// As the store writes it.
std::string_view BytesOf(WStringView text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WCHAR)};
}

// Of a file that was read and is not what was written.
constexpr DWORD kOtherBytes = ERROR_INVALID_DATA;

// Takes as many bytes off the file. An error, or kOtherBytes for others or too few.
DWORD TakeBytes(HANDLE file, std::string_view bytes, std::string& buffer) {
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

// 0 if the file holds the text of the session and no more, otherwise an error or kOtherBytes. Stores the size
// of that text, in bytes.
DWORD CompareUndoFile(const WString& path, const MultiRenameUndo& session, std::size_t& size) {
  const FileHandle file(CreateFileW(SystemPath(path).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD error = file.IsOpen() ? DWORD{ERROR_SUCCESS} : GetLastError();
  std::string buffer;
  WriteUndoText(session, [&](WStringView text) {
    size += BytesOf(text).size();
    if (error == ERROR_SUCCESS) error = TakeBytes(file.Get(), BytesOf(text), buffer);
  });
  char more = 0;
  DWORD done = 0;
  if (error == ERROR_SUCCESS && ReadFile(file.Get(), &more, 1, &done, nullptr) && done != 0)
    return kOtherBytes;
  return error;
}

bool IsBlankOfUndoLine(WCHAR c) { return c == W(' ') || c == W('\t'); }

bool IsKeptField(WStringView text) {
  return !text.empty() && !HoldsAnyOf<W('|'), W('\r'), W('\n'), W('\0')>(text);
}

// True for an entry that is read back from its line, at first sight.
bool IsKeptAsItIs(const MultiRenameUndoEntry& entry) {
  if (!IsKeptField(entry.folder) || !IsKeptField(entry.oldName) || !IsKeptField(entry.newName)) return false;
  const WCHAR first = entry.folder.front();
  const bool isOther = first == W(';') || first == W('#') || first == W('[');
  return !isOther && !IsBlankOfUndoLine(first) && !IsBlankOfUndoLine(entry.newName.back());
}

// The path of a file in the entry's folder.
WString PathOfEntry(const MultiRenameUndoEntry& entry, const WString& name) {
  return entry.folder + (entry.folder.ends_with(W('\\')) ? W("") : W("\\")) + name;
}

// The reader leaves blanks at the end of a new name out, and so does the run that makes it.
WString EntryKey(const MultiRenameUndoEntry& entry) {
  // A character that no name and no path holds, on any system.
  return entry.folder + WCHAR() + entry.oldName + WCHAR() + WString(NameToMake(entry.newName));
}

std::string Renames(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " rename" : " renames");
}

// The readers of undo files look at no more than this.
bool IsTooLong(const WString& path) {
  const std::optional<FileFacts> facts = ReadFileFacts(path);
  return facts && facts->size > kMostOfUndoFile;
}

// The session of the lines that are read whole, where a file is longer than its readers look at. The line at
// the limit may be cut within its last field, and would name another file. Null for a shorter file.
std::unique_ptr<MultiRenameUndo> SessionOfWholeLines(const WString& path) {
  std::string bytes;
  if (!IsTooLong(path) || ReadWholeFile(path, bytes) != ERROR_SUCCESS) return nullptr;
  std::size_t end = std::min(bytes.size(), kMostOfUndoFile) / 2 * 2;
  while (end != 0 && !(bytes[end - 2] == '\n' && bytes[end - 1] == '\0')) end -= 2;
  std::unique_ptr<MultiRenameUndo> session =
      ReadUndoText({reinterpret_cast<const std::uint8_t*>(bytes.data()), end});
  return session ? std::move(session) : std::make_unique<MultiRenameUndo>();
}

// Warns of entries that are read back and were no renames of the session. Where the file is cut, so may be
// its last line, whose new name then is the beginning of another.
void WarnOfStrangers(Output& output, const MultiRenameUndo& session, const MultiRenameUndo& kept,
                     bool isCut) {
  std::unordered_set<WString> keys;
  for (const MultiRenameUndoEntry& entry : session.entries) keys.insert(EntryKey(entry));
  const auto isStranger = [&keys](const MultiRenameUndoEntry& entry) {
    return !keys.contains(EntryKey(entry));
  };
  const auto strangers = std::ranges::count_if(kept.entries, isStranger);
  if (strangers == 0) return;
  if (strangers == 1 && isCut && isStranger(kept.entries.back())) {
    output.Problem("the last line that is read of the undo file is cut, and names " +
                   ToUtf8(PathOfEntry(kept.entries.back(), kept.entries.back().newName)) +
                   ": where there is such a file, do not take the run back");
  } else {
    output.Problem("the undo file has lines that look like renames of other files: do not take it back");
  }
}

}  // namespace

UndoEvent UndoEventOf(const MultiRenameUndoStore& store, MultiRenameUndo& session) {
  UndoEvent event;
  event.file = store.PathOf(session);
  event.date = IsoDate(session.date);
  event.dateText = DateText(session);
  event.items = session.entries.size();
  event.restored = session.haveRestored;
  return event;
}

void ListUndoFiles(Shared& shared, MultiRenameUndoStore& store, const std::string& configOption) {
  std::vector<MultiRenameUndo*> sessions = SessionsByDate(store);
  std::ranges::reverse(sessions);
  for (MultiRenameUndo* const session : sessions) shared.reporter.Undo(UndoEventOf(store, *session));
  if (sessions.empty()) {
    shared.reporter.Say("There are no undo files in " + ToUtf8(store.folder));
  } else {
    shared.reporter.Say("They are in " + ToUtf8(store.folder) + ". Take one back: qxhost " + configOption +
                        "rename --undo NAME, or --undo last for the first of these");
  }
}

void TakeBack(Shared& shared, RenameSession& session, const std::string& text, bool isDryRun) {
  const InterruptionWatch watch;
  MultiRenameUndoStore& store = session.UndoStore();
  std::unique_ptr<MultiRenameUndo> foreign;
  MultiRenameUndo* taken = nullptr;
  if (text == kNewestUndo) {
    taken = NewestSession(store);
    if (!taken) throw NoUndoFile(store, text);
  } else {
    taken = SessionMeant(store, PathFromUtf8(text));
  }
  if (!taken) {
    foreign = ForeignSession(store, text);
    taken = foreign.get();
  }
  if (taken->haveRestored) {
    shared.output.Problem("note: this run has been taken back before; --list-undo shows the others");
  }
  const WString path = foreign ? FullPathOf(PathFromUtf8(text)).value_or(WString()) : store.PathOf(*taken);
  const std::unique_ptr<MultiRenameUndo> wholeLines = SessionOfWholeLines(path);
  if (wholeLines) {
    shared.output.Problem("the undo file is longer than " + std::to_string(kMostOfUndoFile) +
                          " bytes; what lies beyond them is not taken back");
  }
  session.Restore(wholeLines ? *wholeLines : *taken);
  // A file of which a part was not read would lose it.
  const bool isWhole = !foreign && !wholeLines && shared.fileOperation.Untried() == 0;
  if (isWhole && !isDryRun && session.Succeeded() != 0) {
    taken->haveRestored = true;
    store.Save(*taken);
  }
  if (!foreign) shared.reporter.Undo(UndoEventOf(store, *taken));
  shared.reporter.Say(isDryRun ? "Nothing was renamed: this was a dry run" : session.StatusText());
}

std::size_t RenamesBeyondUndo(const std::vector<MultiRenameItem*>& rows) {
  // The lines before the first entry, with a number of entries and a date of many digits.
  constexpr std::size_t kMostBefore = 200;
  constexpr std::size_t kSeparators = 4;  // two bars, CR and LF
  std::size_t bytes = kMostBefore;
  std::size_t beyond = 0;
  for (const MultiRenameItem* const row : rows) {
    if (row->oldName == row->newName) continue;
    bytes +=
        sizeof(WCHAR) * (row->folderPath.size() + row->oldName.size() + row->newName.size() + kSeparators);
    if (bytes > kMostOfUndoFile) ++beyond;
  }
  return beyond;
}

bool ClaimUndoFile(Output& output, const MultiRenameUndoStore& store, UndoLock& lock) {
  constexpr DWORD kWait = 20;  // milliseconds
  constexpr int kSecond = 1000 / kWait;
  DWORD error = ERROR_SUCCESS;
  for (int wait = 0;; ++wait) {
    error = lock.Take(store.folder + W("qxhost.lock"));
    // A lock file that is being deleted refuses access for a moment.
    const bool isInUse = error == ERROR_SHARING_VIOLATION || (error == ERROR_ACCESS_DENIED && wait < kSecond);
    if (!isInUse) break;
    if (wait == 2 * kSecond) output.Problem("note: waiting for the end of another run");
    Sleep(kWait);
  }
  if (error != ERROR_SUCCESS) {
    output.Problem("no undo file can be written in " + ToUtf8(store.folder) + ": " + ErrorText(error) +
                   ". Nothing was renamed; --no-undo renames without one");
    return false;
  }
  for (int wait = 0; wait < 3 * kSecond; ++wait) {
    MultiRenameUndo session;
    GetLocalTime(&session.date);
    if (GetFileAttributesW(store.PathOf(session).c_str()) == INVALID_FILE_ATTRIBUTES) break;
    Sleep(kWait);
  }
  return true;
}

bool DeleteUndoFiles(Shared& shared, MultiRenameUndoStore& store, const std::string& text) {
  store.Load();
  std::vector<WString> names;
  if (text == kEveryUndo) {
    for (const auto& session : store.sessions) names.push_back(session->fileName);
    store.DeleteAll();
  } else {
    MultiRenameUndo* const session =
        text == kNewestUndo ? NewestSession(store) : SessionMeant(store, PathFromUtf8(text));
    if (!session) throw NoUndoFile(store, text);
    names.push_back(session->fileName);
    store.Delete(session);
  }
  std::size_t deleted = 0;
  for (const WString& name : names) {
    if (SessionOfFile(store, name)) {
      shared.output.Problem("cannot delete " + ToUtf8(store.folder + name));
      continue;
    }
    ++deleted;
    shared.reporter.UndoDeleted(store.folder + name);
  }
  if (names.empty()) shared.reporter.Say("There are no undo files in " + ToUtf8(store.folder));
  return deleted == names.size();
}

bool CheckUndoFile(Output& output, const MultiRenameUndoStore& store, MultiRenameUndo& session) {
  const WString path = store.PathOf(session);
  std::size_t size = 0;
  const DWORD error = CompareUndoFile(path, session, size);
  const bool isWhole = error == ERROR_SUCCESS;
  if (!isWhole) {
    output.Problem("the undo file could not be written whole, and may take nothing back: " + ToUtf8(path) +
                   (error == kOtherBytes ? "" : ": " + ErrorText(error)));
  }
  if (size <= kMostOfUndoFile && std::ranges::all_of(session.entries, IsKeptAsItIs)) return isWhole;
  std::string expected;
  WriteUndoText(session, [&expected](WStringView text) { expected += BytesOf(text); });
  const std::unique_ptr<MultiRenameUndo> kept =
      ReadUndoText({reinterpret_cast<const std::uint8_t*>(expected.data()), expected.size()});
  std::unordered_set<WString> keys;
  if (kept) {
    for (const MultiRenameUndoEntry& entry : kept->entries) keys.insert(EntryKey(entry));
  }
  std::size_t lost = 0;
  const MultiRenameUndoEntry* first = nullptr;
  for (const MultiRenameUndoEntry& entry : session.entries) {
    if (keys.contains(EntryKey(entry))) continue;
    ++lost;
    if (!first) first = &entry;
  }
  if (lost == 0) return isWhole;
  output.Problem("the undo of " + Renames(lost) + " of " + std::to_string(session.entries.size()) +
                 " cannot be kept, first of " + ToUtf8(PathOfEntry(*first, first->oldName)) +
                 (expected.size() > kMostOfUndoFile
                      ? ": an undo file has at most " + std::to_string(kMostOfUndoFile) + " bytes"
                      : ": its lines are parted at each | and at line ends"));
  if (kept) WarnOfStrangers(output, session, *kept, expected.size() > kMostOfUndoFile);
  return isWhole;
}

}  // namespace QxHost
