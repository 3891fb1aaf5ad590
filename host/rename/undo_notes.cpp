#include "host/rename/undo_notes.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>

#include "host/rename/colliding_names.h"

namespace QxHost {
namespace {

using Velmora::SDK::kMaxUndoFileBytes;
using Velmora::SDK::MultiRenameUndoEntry;

constexpr WStringView kPlanLine = W(";qxhost planned\r\n");
constexpr WStringView kFilesLine = W(";qxhost files of ");
constexpr std::size_t kNotesPiece = 32768;  // approximate number of characters written at once

// More characters than a line of a noted file has; the rest of a longer line is discarded.
constexpr std::size_t kMaxNoteChars = 64;

// An entry has at least five characters and a line end.
constexpr std::size_t kMaxEntriesRead = kMaxUndoFileBytes / 14;

void AppendNumber(WString& text, std::uint64_t number) {
  for (const char digit : std::to_string(number)) text += static_cast<WCHAR>(digit);
}

// Removes a number from the beginning of the text. Returns std::nullopt if it does not begin with one.
std::optional<std::uint64_t> TakeNumber(WStringView& text) {
  constexpr std::size_t kMaxDigitsRead = 20;
  std::string digits;
  for (const WCHAR c : text.substr(0, kMaxDigitsRead)) {
    if (c < W('0') || c > W('9')) break;
    digits += static_cast<char>(c);
  }
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (digits.empty() || error != std::errc()) return std::nullopt;
  text.remove_prefix(digits.size());
  return number;
}

}  // namespace

NotedFiles NoteOldFiles(std::span<const MultiRenameUndoEntry> entries) {
  const std::vector<bool> colliding = FindCollidingNames(entries);
  NotedFiles files;
  if (colliding.empty()) return files;
  FileIndexes indexes;
  files.reserve(entries.size());
  for (std::size_t entry = 0; entry < entries.size(); ++entry) {
    files.push_back(colliding[entry] ? indexes.Of(entries[entry].folder, entries[entry].oldName) : kNoFile);
  }
  return files;
}

WStringView PlanMark() { return kPlanLine; }

bool HasPlanMark(WStringView text) {
  while (text.starts_with(W(';'))) {
    if (text.starts_with(kPlanLine)) return true;
    text.remove_prefix(std::min(text.find(W('\n')), text.size() - 1) + 1);
  }
  return false;
}

void WriteNotedFiles(const NotedFiles& files, const std::function<void(WStringView)>& write) {
  if (std::ranges::all_of(files, [](FileIndex file) { return file == kNoFile; })) return;
  WString text(kFilesLine);
  AppendNumber(text, files.size());
  text += W("\r\n");
  for (std::size_t entry = 0; entry < files.size(); ++entry) {
    if (files[entry] == kNoFile) continue;
    text += W(';');
    AppendNumber(text, entry + 1);
    text += W(' ');
    AppendNumber(text, files[entry]);
    text += W("\r\n");
    if (text.size() < kNotesPiece) continue;
    write(text);
    text.clear();
  }
  write(text);
}

std::size_t FindNotedFiles(WStringView text) {
  for (std::size_t at = 0; (at = text.find(kFilesLine, at)) != WStringView::npos; ++at) {
    if (at == 0 || text[at - 1] == W('\n')) return at;
  }
  return WStringView::npos;
}

void NotesReader::Read(WStringView text) {
  while (!text.empty()) {
    const std::size_t end = text.find(W('\n'));
    const WStringView part = text.substr(0, end);
    line_.append(part.substr(0, kMaxNoteChars - std::min(line_.size(), kMaxNoteChars)));
    if (end == WStringView::npos) return;
    TakeLine();
    line_.clear();
    text.remove_prefix(end + 1);
  }
}

void NotesReader::TakeLine() {
  WStringView line = line_;
  if (line.ends_with(W('\r'))) line.remove_suffix(1);
  if (line.empty()) return;
  if (!line.starts_with(W(';'))) {
    hasOtherLines_ = true;
    return;
  }
  if (line.starts_with(kFilesLine)) {
    line.remove_prefix(kFilesLine.size());
    count_ = static_cast<std::size_t>(TakeNumber(line).value_or(0));
    isBegun_ = line.empty();
    return;
  }
  line.remove_prefix(1);
  const std::optional<std::uint64_t> entry = TakeNumber(line);
  const bool isSeparated = entry && line.starts_with(W(' '));
  if (isSeparated) line.remove_prefix(1);
  const std::optional<std::uint64_t> file = isSeparated ? TakeNumber(line) : std::nullopt;
  if (!isBegun_ || !file || !line.empty() || *entry == 0) {
    hasComments_ = true;
    return;
  }
  // The part of the file that is read has no more entries.
  if (*entry > std::min(count_, kMaxEntriesRead)) return;
  if (files_.size() < *entry) files_.resize(static_cast<std::size_t>(*entry), kNoFile);
  files_[static_cast<std::size_t>(*entry) - 1] = *file;
}

NotedFiles NotesReader::FilesOf(std::size_t entries, bool isPart) const {
  if (files_.empty() || (isPart ? count_ < entries : count_ != entries)) return {};
  NotedFiles files = files_;
  files.resize(entries, kNoFile);
  return files;
}

}  // namespace QxHost
