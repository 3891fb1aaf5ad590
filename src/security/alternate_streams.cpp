#include "security/alternate_streams.h"

#include <array>
#include <atomic>
#include <cstring>

#include "platform/handles.h"
#include "platform/security_api.h"
#include "security/privilege_list.h"

namespace {

using Velmora::SDK::s64;
using Velmora::SDK::u32;
using Velmora::SDK::u64;

constexpr std::size_t kStreamBufferBytes = 65536;

// FILE_STREAM_INFORMATION up to the name.
struct StreamRecord {
  u32 nextEntryOffset;  // bytes from this record to the next; 0 in the last
  u32 streamNameLength;
  s64 streamSize;
  s64 streamAllocationSize;
};
static_assert(sizeof(StreamRecord) == 24);

// Set by the first query and kept until the process ends.
std::atomic<HMODULE> ntdll{nullptr};
std::atomic<NtQueryInformationFileFunction> queryInformationFile{nullptr};

// Casts by way of void(*)(), which may be cast to any function pointer without a compiler warning.
NtQueryInformationFileFunction AsQuery(FARPROC function) {
  return reinterpret_cast<NtQueryInformationFileFunction>(reinterpret_cast<void (*)()>(function));
}

FileHandle OpenForStreams(const WCHAR* path, bool isFolder) {
  return FileHandle(CreateFileW(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                isFolder ? FILE_FLAG_BACKUP_SEMANTICS : 0, nullptr));
}

}  // namespace

void ResolveStreamQuery() {
  if (queryInformationFile.load()) return;
  if (!ntdll.load()) ntdll.store(GetModuleHandleW(W("ntdll.dll")));
  if (const HMODULE module = ntdll.load()) {
    queryInformationFile.store(AsQuery(GetProcAddress(module, "NtQueryInformationFile")));
  }
}

void ForgetStreamQuery() {
  queryInformationFile.store(nullptr);
  ntdll.store(nullptr);
}

AlternateStreams QueryAlternateStreams(const WCHAR* path) {
  const DWORD attributes = GetFileAttributesW(path);
  if (attributes == INVALID_FILE_ATTRIBUTES) return {};
  alignas(StreamRecord) std::array<std::byte, kStreamBufferBytes> buffer;
  std::memset(buffer.data(), 0, buffer.size());
  const bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  // Opening folders needs the backup privilege. It stays enabled, even if the query is not available.
  if (isFolder) EnablePrivilege(W("SeBackupPrivilege"), TOKEN_ADJUST_PRIVILEGES);
  const NtQueryInformationFileFunction query = queryInformationFile.load();
  if (!query) return {};
  const FileHandle file = OpenForStreams(path, isFolder);
  if (!file.IsOpen()) return {};
  // The status can be ignored: records that the query could not fill stay zero.
  IO_STATUS_BLOCK status = {};
  query(file.Get(), &status, buffer.data(), static_cast<ULONG>(buffer.size()), kFileStreamInformation);
  return SumStreamRecords(buffer);
}

AlternateStreams SumStreamRecords(std::span<const std::byte> buffer) {
  AlternateStreams sum;
  for (;;) {
    StreamRecord record;
    if (buffer.size() < sizeof record) return sum;
    std::memcpy(&record, buffer.data(), sizeof record);
    const u32 offset = record.nextEntryOffset;
    if (offset < sizeof record || offset > buffer.size() - sizeof record) return sum;
    buffer = buffer.subspan(offset);
    std::memcpy(&record, buffer.data(), sizeof record);
    ++sum.count;
    sum.size += static_cast<u64>(record.streamSize);
  }
}
