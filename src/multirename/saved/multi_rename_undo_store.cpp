#include "multirename/saved/multi_rename_undo_store.h"

#include <algorithm>

#include "frame/services/create_path.h"
#include "frame/services/path_exists.h"
#include "platform/handles.h"

namespace Velmora::SDK {

namespace {

constexpr u32 kConfigPathSize = 4096;

// Appended to the file's name for the copy that is complete while the file itself is overwritten.
constexpr const WCHAR* kNewFileSuffix = W(".new");

// Returns the bytes of a file; empty if it cannot be opened. Reads one byte more than ReadUndoText uses,
// which shows that the file is longer.
std::vector<std::uint8_t> ReadUndoBytes(const WString& path) {
  const FileHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  std::vector<std::uint8_t> bytes;
  LARGE_INTEGER size{};
  if (!file.IsOpen() || !GetFileSizeEx(file.Get(), &size)) return bytes;
  bytes.resize(static_cast<std::size_t>(std::clamp<s64>(size.QuadPart, 0, kMaxUndoFileBytes + 1)));
  DWORD read = 0;
  if (!ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr)) read = 0;
  bytes.resize(std::min<std::size_t>(read, bytes.size()));
  return bytes;
}

bool WriteUndoPiece(HANDLE file, WStringView text) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  auto left = static_cast<DWORD>(text.size() * sizeof(WCHAR));
  while (left != 0) {
    DWORD written = 0;
    if (!WriteFile(file, bytes, left, &written, nullptr) || written == 0) return false;
    bytes += written;
    left -= written;
  }
  return true;
}

// Returns false if the file cannot be opened, which leaves an existing file unchanged, or cannot be written
// completely, which deletes it.
bool WriteUndoFile(const WString& path, const MultiRenameUndo& session) {
  bool isWritten = true;
  {
    const FileHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) return false;
    WriteUndoText(session, [&](WStringView text) {
      if (isWritten) isWritten = WriteUndoPiece(file.Get(), text);
    });
  }
  if (!isWritten) DeleteFileW(path.c_str());
  return isWritten;
}

}  // namespace

MultiRenameUndoStore::MultiRenameUndoStore(IHostApp* host) {
  if (!host) return;
  WCHAR buffer[kConfigPathSize] = {};
  if (!host->GetConfigPath(buffer, kConfigPathSize) || buffer[0] == WCHAR()) return;
  folder = buffer;
  if (!folder.ends_with(W('\\'))) folder += W('\\');
  folder += W("Undo");
  CreatePath(folder, true);
  folder += W('\\');
}

void MultiRenameUndoStore::Load() {
  if (loaded) return;
  loaded = true;
  ForEachSession(
      [this](std::unique_ptr<MultiRenameUndo> session) { sessions.push_back(std::move(session)); });
}

void MultiRenameUndoStore::ForEachSession(
    const std::function<void(std::unique_ptr<MultiRenameUndo>)>& use) const {
  if (folder.empty()) return;
  WIN32_FIND_DATAW data;
  const FindHandle search(
      FindFirstFileExW((folder + W('*')).c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0));
  if (!search.IsOpen()) return;
  do {
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) continue;
    std::unique_ptr<MultiRenameUndo> session = ReadUndoText(ReadUndoBytes(folder + data.cFileName));
    if (!session) continue;
    session->fileName = data.cFileName;
    use(std::move(session));
  } while (FindNextFileW(search.Get(), &data));
}

WString MultiRenameUndoStore::PathOf(MultiRenameUndo& session) const {
  return folder + session.GetFileName();
}

void MultiRenameUndoStore::Save(MultiRenameUndo& session) const {
  if (folder.empty() || session.isPartOfFile) return;
  const WString path = PathOf(session);
  if (!PathExists(path)) {
    WriteUndoFile(path, session);
    return;
  }
  // The existing file is the only record of its run until another file is complete. As it may be open
  // elsewhere, it is overwritten and not replaced by a move.
  const WString newPath = path + kNewFileSuffix;
  if (!WriteUndoFile(newPath, session)) return;
  if (WriteUndoFile(path, session) || PathExists(path)) {
    DeleteFileW(newPath.c_str());
  } else if (!MoveFileW(newPath.c_str(), path.c_str())) {
    session.fileName += kNewFileSuffix;
  }
}

bool MultiRenameUndoStore::Contains(const MultiRenameUndo* session) const {
  return std::ranges::any_of(sessions, [session](const auto& own) { return own.get() == session; });
}

bool MultiRenameUndoStore::Delete(const MultiRenameUndo* session) {
  const auto found =
      std::ranges::find_if(sessions, [session](const auto& own) { return own.get() == session; });
  if (found == sessions.end() || !DeleteFileW(PathOf(**found).c_str())) return false;
  sessions.erase(found);
  return true;
}

void MultiRenameUndoStore::DeleteAll() {
  std::erase_if(sessions, [this](const auto& session) { return DeleteFileW(PathOf(*session).c_str()) != 0; });
}

}  // namespace Velmora::SDK
