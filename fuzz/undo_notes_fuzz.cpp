// Reads any text as the notes of an undo file: pieces of any length have the same result as the whole text,
// and what was read and written again is read as the same.
#include <algorithm>

#include "fuzz_input.h"
#include "host/rename/undo_notes.h"

using namespace QxHost;

namespace {

void RequireSame(const NotesReader& left, const NotesReader& right, std::size_t entries) {
  for (const bool isPart : {false, true}) {
    Require(left.FilesOf(entries, isPart) == right.FilesOf(entries, isPart));
  }
  Require(left.HasComments() == right.HasComments());
  Require(left.HasOtherLines() == right.HasOtherLines());
  Require(left.IsCut() == right.IsCut());
  Require(left.EndsInLine() == right.EndsInLine());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const std::size_t entries = input.TakeByte();
  const std::size_t piece = input.TakeByte() + std::size_t{1};
  // Most inputs begin with the line that counts the entries.
  WString text;
  if (input.TakeByte() % 4 != 0) {
    WriteNotedFiles(NotedFiles(entries, 1), [&text](WStringView line) { text += line; });
    text.resize(text.find(W('\n')) + 1);
  }
  text += input.TakeText();

  NotesReader whole;
  whole.Read(text);
  NotesReader inPieces;
  for (WStringView rest = text; !rest.empty(); rest.remove_prefix(std::min(piece, rest.size()))) {
    inPieces.Read(rest.substr(0, piece));
  }
  RequireSame(whole, inPieces, entries);

  const NotedFiles files = whole.FilesOf(entries, false);
  Require(files.empty() || files.size() == entries);
  WString written;
  WriteNotedFiles(files, [&written](WStringView lines) { written += lines; });
  NotesReader again;
  again.Read(written);
  const bool hasFile = std::ranges::any_of(files, [](FileIndex file) { return file != kNoFile; });
  Require(again.FilesOf(entries, false) == (hasFile ? files : NotedFiles()));
  Require(!again.HasComments() && !again.HasOtherLines() && !again.EndsInLine());
  Require(FindNotedFiles(written) == (hasFile ? 0 : WString::npos));
  HasPlanMark(text);
  return 0;
}
