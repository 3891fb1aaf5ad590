// Writes and reads the text of undo files.

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>

#include "frame/services/leading_number.h"
#include "multirename/rules/trimmed.h"
#include "multirename/saved/multi_rename_undo.h"
#include "multirename/saved/undo_date.h"

namespace Velmora::SDK {

namespace {

constexpr std::size_t kUndoPiece = 32768;  // approximate number of characters written at once
constexpr WStringView kUndoLineEnd = W("\r\n");
constexpr WStringView kUndoBlanks = W(" \r\t\n");
constexpr WStringView kInfoSection = W("[INFO]");
constexpr WStringView kFilesSection = W("[FILES]");

// Reads a number as LeadingNumber does, but with 64 bits.
s64 LeadingSeconds(WStringView text) {
  const bool isNegative = text.starts_with(W('-'));
  if (isNegative || text.starts_with(W('+'))) text.remove_prefix(1);
  constexpr s64 kSaturated = s64{1} << 56;  // beyond every date
  s64 number = 0;
  for (const WCHAR c : text) {
    if (c < W('0') || c > W('9')) break;
    number = std::min(number * 10 + (c - W('0')), kSaturated);
  }
  return isNegative ? -number : number;
}

bool IsUtf16(std::span<const std::uint8_t> bytes) {
  constexpr std::size_t kCheckedBytes = 10;
  if (bytes.size() < kCheckedBytes) return false;
  for (std::size_t at = 0; at < kCheckedBytes; ++at) {
    if ((bytes[at] == 0) != (at % 2 == 1)) return false;
  }
  return true;
}

// Stores the text up to its first null character. Returns false if the bytes are not UTF-16.
bool DecodeUndoFile(std::span<const std::uint8_t> bytes, WString& text) {
  bytes = bytes.first(std::min(bytes.size(), kMaxUndoFileBytes));
  if (bytes.size() >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE)
    bytes = bytes.subspan(2);
  else if (!IsUtf16(bytes))
    return false;
  text.resize(bytes.size() / 2);
  for (std::size_t at = 0; at < text.size(); ++at) {
    text[at] = static_cast<WCHAR>(bytes[at * 2] | bytes[at * 2 + 1] << 8);
  }
  text.resize(std::min(text.find(WCHAR()), text.size()));
  return true;
}

// Removes the next line from the text. Returns false at the end of the text and at a line that ends in a CR
// without an LF, where the reader stops (C-654).
bool TakeUndoLine(WStringView& text, WStringView& line) {
  if (text.empty()) return false;
  const auto found =
      std::find_if(text.begin(), text.end(), [](WCHAR c) { return c == W('\n') || c == W('\r'); });
  const auto end = static_cast<std::size_t>(found - text.begin());
  line = text.substr(0, end);
  if (end == text.size()) {
    text = {};
    return true;
  }
  const bool isReturn = text[end] == W('\r');
  if (isReturn && !text.substr(end).starts_with(kUndoLineEnd)) return false;
  text.remove_prefix(end + (isReturn ? 2 : 1));
  return true;
}

void ReadUndoInfo(WStringView line, MultiRenameUndo& session) {
  const std::size_t colon = line.find(W(':'));
  if (colon == WStringView::npos) return;
  const WStringView key = Trimmed(line.substr(0, colon), kUndoBlanks);
  const WStringView value = Trimmed(line.substr(colon + 1), kUndoBlanks);
  if (key == W("Date")) session.date = DateOfSeconds(LeadingSeconds(value));
  if (key == W("HaveRestored")) session.haveRestored = LeadingNumber(value) != 0;
}

// Searches for a bar from the second character after the previous bar on, so "a||b" is "a" and "|b". Empty
// fields are skipped (C-653).
void ReadUndoEntry(WStringView line, MultiRenameUndo& session) {
  std::array<WStringView, 3> fields;
  std::size_t count = 0;
  std::size_t begin = 0;
  for (std::size_t from = 0; begin <= line.size();) {
    const std::size_t bar = std::min(line.find(W('|'), from), line.size());
    if (bar > begin) {
      if (count == fields.size()) return;
      fields[count++] = line.substr(begin, bar - begin);
    }
    begin = bar + 1;
    from = bar + 2;
  }
  if (count != fields.size()) return;
  const bool isOfFolder = !session.entries.empty() && session.entries.back().folder == fields[0];
  session.entries.push_back({isOfFolder ? session.entries.back().folder : SharedText(fields[0]),
                             WString(fields[2]), WString(fields[1])});
}

enum class UndoSection { kNone, kInfo, kFiles };

}  // namespace

void WriteUndoText(const MultiRenameUndo& session, const std::function<void(WStringView)>& write) {
  WString text;
  const auto addLine = [&text](WStringView line) { (text += line) += kUndoLineEnd; };
  addLine(kInfoSection);
  addLine(FromUtf8("Date : " + std::to_string(SecondsOfDate(session.date))));
  addLine(FromUtf8("Items : " + std::to_string(session.entries.size())));
  addLine(session.haveRestored ? W("HaveRestored : 1") : W("HaveRestored : 0"));
  addLine({});
  addLine(kFilesSection);
  for (const MultiRenameUndoEntry& entry : session.entries) {
    ((((text += entry.folder.Text()) += W('|')) += entry.oldName) += W('|')) += entry.newName;
    text += kUndoLineEnd;
    if (text.size() < kUndoPiece) continue;
    write(text);
    text.clear();
  }
  write(text);
}

std::unique_ptr<MultiRenameUndo> ReadUndoText(std::span<const std::uint8_t> bytes) {
  WString text;
  if (!DecodeUndoFile(bytes, text)) return nullptr;
  auto session = std::make_unique<MultiRenameUndo>();
  session->isPartOfFile = bytes.size() > kMaxUndoFileBytes;
  UndoSection section = UndoSection::kNone;
  WStringView rest = text;
  for (WStringView line; TakeUndoLine(rest, line);) {
    if (line.empty() || line.front() == W(';') || line.front() == W('#')) continue;
    line = Trimmed(line, kUndoBlanks);
    if (line.starts_with(W('['))) {
      if (line == kInfoSection) section = UndoSection::kInfo;
      if (line == kFilesSection) section = UndoSection::kFiles;
    } else if (section == UndoSection::kInfo) {
      ReadUndoInfo(line, *session);
    } else if (section == UndoSection::kFiles) {
      ReadUndoEntry(line, *session);
    }
  }
  return session->entries.empty() ? nullptr : std::move(session);
}

}  // namespace Velmora::SDK
