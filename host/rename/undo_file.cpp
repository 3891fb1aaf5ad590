#include "host/rename/undo_file.h"

#include <algorithm>
#include <vector>

#include "host/system/paths.h"
#include "host/system/system_places.h"
#include "host/system/whole_file.h"
#include "platform/handles.h"

namespace QxHost {
namespace {

using Velmora::SDK::kMostOfUndoFile;
using Velmora::SDK::MultiRenameUndo;

DWORD UndoErrorOr(DWORD fallback) {
  const DWORD error = GetLastError();
  return error != ERROR_SUCCESS ? error : fallback;
}

// Reads no more than `most` bytes, whatever the file is.
DWORD ReadBeginning(const WString& path, std::size_t most, std::vector<std::uint8_t>& bytes) {
  const FileHandle file(CreateFileW(SystemPath(path).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) return UndoErrorOr(ERROR_FILE_NOT_FOUND);
  constexpr std::size_t kPiece = 1 << 16;
  while (bytes.size() < most) {
    const std::size_t size = bytes.size();
    bytes.resize(std::min(most, size + kPiece));
    DWORD done = 0;
    if (!ReadFile(file.Get(), bytes.data() + size, static_cast<DWORD>(bytes.size() - size), &done, nullptr))
      return UndoErrorOr(ERROR_IO_DEVICE);
    bytes.resize(size + done);
    if (done == 0) break;
  }
  return ERROR_SUCCESS;
}

WString TextOfBytes(const std::vector<std::uint8_t>& bytes, std::size_t count) {
  WString text(count / 2, WCHAR());
  for (std::size_t at = 0; at < text.size(); ++at)
    text[at] = static_cast<WCHAR>(bytes[at * 2] | bytes[at * 2 + 1] << 8);
  return text;
}

// How much of the text the reader takes in: it ends at a zero and at a CR without its LF.
std::size_t ReadableSize(const WString& text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool isLoneReturn = text[at] == W('\r') && text.compare(at + 1, 1, W("\n")) != 0;
    if (text[at] == WCHAR() || isLoneReturn) return at;
  }
  return text.size();
}

WString CommentsOf(const WString& text) {
  std::size_t end = 0;
  while (end < text.size() && text[end] == W(';'))
    end = std::min(text.find(W('\n'), end), text.size() - 1) + 1;
  return text.substr(0, end);
}

// The path of a file that is written before it takes the place of an undo file: beside their folder, since
// every file in it counts as one.
WString PlaceBeside(const WString& path) {
  const std::size_t nameAt = path.rfind(W('\\'));
  const std::size_t folderAt = nameAt == WString::npos ? nameAt : path.rfind(W('\\'), nameAt - 1);
  return folderAt == WString::npos ? path : path.substr(0, folderAt) + path.substr(nameAt);
}

DWORD WriteByWayOf(const WString& place, const WString& path, const MultiRenameUndo& session,
                   const WString& head) {
  const WString temporary = FreshPathLike(place);
  DWORD error = ERROR_SUCCESS;
  {
    const FileHandle file(CreateFileW(SystemPath(temporary).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) return UndoErrorOr(ERROR_ACCESS_DENIED);
    const auto write = [&](WStringView text) {
      if (error != ERROR_SUCCESS) return;
      error =
          WriteBytes(file.Get(), {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WCHAR)});
    };
    write(head);
    WriteUndoText(session, write);
  }
  if (error == ERROR_SUCCESS) error = TakePlaceOf(temporary, path);
  if (error != ERROR_SUCCESS) DeleteFileW(SystemPath(temporary).c_str());
  return error;
}

}  // namespace

UndoFile ReadUndoFile(const WString& path) {
  UndoFile file;
  std::vector<std::uint8_t> bytes;
  file.error = ReadBeginning(path, kMostOfUndoFile + 1, bytes);
  if (file.error != ERROR_SUCCESS) return file;
  file.isLong = bytes.size() > kMostOfUndoFile;
  const std::size_t readable = std::min(bytes.size(), kMostOfUndoFile) / 2 * 2;
  const WString text = TextOfBytes(bytes, readable);
  file.head = CommentsOf(text);
  const std::size_t size = ReadableSize(text);
  const std::size_t lineEnd = text.rfind(W('\n'), size == 0 ? 0 : size - 1);
  const std::size_t whole = size == 0 || lineEnd == WString::npos ? 0 : lineEnd + 1;
  file.isCut = whole != size;
  file.isWhole = whole * 2 == bytes.size();
  file.session = Velmora::SDK::ReadUndoText({bytes.data(), whole * 2});
  if (!file.session && file.isCut && Velmora::SDK::ReadUndoText(bytes))
    file.session = std::make_unique<MultiRenameUndo>();
  return file;
}

DWORD WriteUndoFile(const WString& path, const MultiRenameUndo& session, const WString& head) {
  const DWORD error = WriteByWayOf(PlaceBeside(path), path, session, head);
  if (error == ERROR_SUCCESS) return error;
  // The two folders may be on two disks, or the outer one closed to the user.
  return WriteByWayOf(path, path, session, head) == ERROR_SUCCESS ? DWORD{ERROR_SUCCESS} : error;
}

}  // namespace QxHost
