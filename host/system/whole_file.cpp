#include "host/system/whole_file.h"

#include <algorithm>
#include <random>

#include "host/system/paths.h"
#include "host/system/system_places.h"
#include "platform/handles.h"

namespace QxHost {
namespace {

constexpr DWORD kMaxBytesOfOneCall = 1u << 20;

DWORD LastErrorOr(DWORD fallback) {
  const DWORD error = GetLastError();
  return error != ERROR_SUCCESS ? error : fallback;
}

DWORD WriteNewFile(const WString& path, std::string_view bytes) {
  const FileHandle file(
      CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  return file.IsOpen() ? WriteBytes(file.Get(), bytes) : LastErrorOr(ERROR_ACCESS_DENIED);
}

}  // namespace

WString FreshPathLike(const WString& fullPath) {
  static constexpr WStringView kDigits = W("0123456789abcdef");
  std::random_device random;
  WString name = fullPath + W(".");
  for (int digit = 0; digit < 12; ++digit) name += kDigits[random() % kDigits.size()];
  return name + W(".tmp");
}

DWORD WriteBytes(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    const DWORD count = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kMaxBytesOfOneCall));
    DWORD done = 0;
    if (!WriteFile(file, bytes.data(), count, &done, nullptr)) return LastErrorOr(ERROR_DISK_FULL);
    if (done == 0) return ERROR_DISK_FULL;
    bytes.remove_prefix(done);
  }
  return ERROR_SUCCESS;
}

DWORD ReadWholeFile(const WString& fullPath, std::string& bytes) {
  bytes.clear();
  const FileHandle file(CreateFileW(SystemPath(fullPath).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) return LastErrorOr(ERROR_FILE_NOT_FOUND);
  for (;;) {
    const std::size_t size = bytes.size();
    if (size > kMaxFileBytes) return ERROR_NOT_ENOUGH_MEMORY;
    bytes.resize(size + kMaxBytesOfOneCall);
    DWORD done = 0;
    const BOOL read = ReadFile(file.Get(), bytes.data() + size, kMaxBytesOfOneCall, &done, nullptr);
    const DWORD error = read ? ERROR_SUCCESS : LastErrorOr(ERROR_IO_DEVICE);
    bytes.resize(size + (read ? done : 0));
    if (error != ERROR_SUCCESS) return error;
    if (done == 0) return ERROR_SUCCESS;
  }
}

DWORD WriteWholeFile(const WString& fullPath, std::string_view bytes) {
  const WString temporary = FreshPathLike(fullPath);
  DWORD error = WriteNewFile(SystemPath(temporary), bytes);
  if (error == ERROR_SUCCESS) error = TakePlaceOf(temporary, fullPath);
  if (error != ERROR_SUCCESS) DeleteFileW(SystemPath(temporary).c_str());
  return error;
}

}  // namespace QxHost
