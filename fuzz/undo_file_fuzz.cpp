// Reads any bytes as an undo file and writes the session: reading it again must have the same result, except
// for texts that the format cannot represent.
#include <string>
#include <vector>

#include "fuzz_input.h"
#include "multirename/saved/multi_rename_undo.h"

using namespace Velmora::SDK;

namespace {

std::vector<std::uint8_t> BytesOf(const MultiRenameUndo& session) {
  std::vector<std::uint8_t> bytes = {0xFF, 0xFE};
  WriteUndoText(session, [&bytes](WStringView text) {
    for (const WCHAR c : text) {
      bytes.push_back(static_cast<std::uint8_t>(c & 0xFF));
      bytes.push_back(static_cast<std::uint8_t>(c >> 8));
    }
  });
  return bytes;
}

void Read(std::span<const std::uint8_t> bytes) {
  const std::unique_ptr<MultiRenameUndo> session = ReadUndoText(bytes);
  if (!session) return;
  Require(!session->entries.empty());
  bool isPlain = true;
  for (const MultiRenameUndoEntry& entry : session->entries) {
    for (const WString* const field : {&entry.folder.Text(), &entry.oldName, &entry.newName}) {
      Require(!field->empty());
      Require(field->find_first_of(W("\r\n")) == WString::npos);
      // A field that contains a bar may be read back as different fields.
      isPlain = isPlain && field->find(W('|')) == WString::npos;
    }
    // Blanks at the ends of a line are removed, and some lines are not entries.
    isPlain = isPlain && WStringView(W(" \t;#[")).find(entry.folder.Text().front()) == WStringView::npos &&
              WStringView(W(" \t")).find(entry.newName.back()) == WStringView::npos;
  }
  if (!isPlain) return;
  const std::vector<std::uint8_t> written = BytesOf(*session);
  if (written.size() > kMaxUndoFileBytes) return;
  const std::unique_ptr<MultiRenameUndo> again = ReadUndoText(written);
  Require(again && again->entries.size() == session->entries.size());
  for (std::size_t index = 0; index < again->entries.size(); ++index) {
    Require(again->entries[index].folder == session->entries[index].folder);
    Require(again->entries[index].oldName == session->entries[index].oldName);
    Require(again->entries[index].newName == session->entries[index].newName);
  }
  Require(again->haveRestored == session->haveRestored);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const std::uint8_t kind = input.TakeByte();
  const std::span<const std::uint8_t> rest = input.TakeRest();
  if (kind % 2 == 0) {
    Read(rest);
    return 0;
  }
  // Each byte becomes a character after the byte order mark, so that the input often contains lines.
  std::vector<std::uint8_t> bytes = {0xFF, 0xFE};
  for (const std::uint8_t byte : rest) {
    bytes.push_back(byte);
    bytes.push_back(0);
  }
  Read(bytes);
  return 0;
}
