// NtQueryInformationFile: the streams of a file.

#include <linux/limits.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/files/name_encoding.h"
#include "platform/posix/files/open_file.h"
#include "platform/posix/security/kept_attribute.h"
#include "platform/posix/security/security_functions.h"

namespace {

constexpr NTSTATUS kStatusSuccess = 0;
constexpr NTSTATUS kStatusBufferOverflow = static_cast<NTSTATUS>(0x80000005);
constexpr NTSTATUS kStatusUnsuccessful = static_cast<NTSTATUS>(0xC0000001);
constexpr NTSTATUS kStatusInvalidInfoClass = static_cast<NTSTATUS>(0xC0000003);
constexpr NTSTATUS kStatusLengthMismatch = static_cast<NTSTATUS>(0xC0000004);
constexpr NTSTATUS kStatusInvalidHandle = static_cast<NTSTATUS>(0xC0000008);

constexpr int kStreamInformation = 22;  // FileStreamInformation
constexpr std::string_view kStreamNamespace = "user.";

// The header of a record. The name follows it, without a terminator.
struct StreamHeader {
  std::uint32_t nextOffset;  // 0 in the last record
  std::uint32_t nameBytes;
  std::int64_t size;
  std::int64_t allocated;
};
constexpr std::size_t kRecordAlignment = 8;

struct Stream {
  std::u16string name;
  std::int64_t size;
};

// Returns a path that reaches the open file even if it was renamed or deleted.
std::string PathOfDescriptor(int descriptor) { return "/proc/self/fd/" + std::to_string(descriptor); }

// Returns the names of all extended attributes, each with a terminating zero.
std::string AttributeNames(const std::string& path) {
  const auto names = std::make_unique_for_overwrite<char[]>(XATTR_LIST_MAX);
  const ssize_t size = listxattr(path.c_str(), names.get(), XATTR_LIST_MAX);
  return size < 0 ? std::string() : std::string(names.get(), static_cast<std::size_t>(size));
}

std::vector<Stream> StreamsOf(const Platform::OpenFile& file) {
  std::vector<Stream> streams;
  const int descriptor = file.descriptor.Get();
  struct stat status;
  if (file.folder.empty() && fstat(descriptor, &status) == 0) streams.push_back({u"::$DATA", status.st_size});
  const std::string path = PathOfDescriptor(descriptor);
  const std::string names = AttributeNames(path);
  for (std::size_t begin = 0; begin < names.size();) {
    const std::string name = names.c_str() + begin;
    begin += name.size() + 1;
    if (!name.starts_with(kStreamNamespace) || name == Platform::kAccessAttribute) continue;
    const ssize_t size = getxattr(path.c_str(), name.c_str(), nullptr, 0);
    const std::u16string shown = Platform::WideName(name.substr(kStreamNamespace.size()));
    // A stream that may not be read is listed with size 0.
    streams.push_back({u":" + shown + u":$DATA", size > 0 ? size : 0});
  }
  return streams;
}

std::size_t Aligned(std::size_t size) {
  return (size + kRecordAlignment - 1) / kRecordAlignment * kRecordAlignment;
}

// Writes as many streams as the buffer has room for. Returns kStatusBufferOverflow if some did not fit.
NTSTATUS WriteStreams(const std::vector<Stream>& streams, BYTE* buffer, std::size_t size, std::size_t& used) {
  std::size_t last = 0;
  for (const Stream& stream : streams) {
    const std::size_t nameBytes = stream.name.size() * sizeof(WCHAR);
    const std::size_t begin = Aligned(used);
    if (begin + sizeof(StreamHeader) + nameBytes > size) return kStatusBufferOverflow;
    const StreamHeader header{.nextOffset = 0,
                              .nameBytes = static_cast<std::uint32_t>(nameBytes),
                              .size = stream.size,
                              .allocated = stream.size};
    std::memcpy(buffer + begin, &header, sizeof header);
    std::memcpy(buffer + begin + sizeof header, stream.name.data(), nameBytes);
    const auto offset = static_cast<std::uint32_t>(begin - last);
    if (begin != 0) std::memcpy(buffer + last, &offset, sizeof offset);
    last = begin;
    used = begin + sizeof header + nameBytes;
  }
  return kStatusSuccess;
}

}  // namespace

NTSTATUS NtQueryInformationFile(HANDLE handle, IO_STATUS_BLOCK* status, void* buffer, ULONG size,
                                int informationClass) {
  if (Platform::FaultFires("NtQueryInformationFile")) return kStatusUnsuccessful;
  if (informationClass != kStreamInformation) return kStatusInvalidInfoClass;
  if (!buffer || size < sizeof(StreamHeader)) return kStatusLengthMismatch;
  const auto file = Platform::OpenFiles::Instance().Find(handle);
  if (!file) return kStatusInvalidHandle;
  if (const auto given = Platform::InjectedResult("NtQueryInformationFile")) {
    std::copy_n(given->bytes.begin(), std::min<std::size_t>(given->bytes.size(), size),
                static_cast<BYTE*>(buffer));
    return static_cast<NTSTATUS>(given->result);
  }
  std::size_t used = 0;
  const NTSTATUS result = WriteStreams(StreamsOf(*file), static_cast<BYTE*>(buffer), size, used);
  if (status) *status = {.Status = result, .Information = used};
  return result;
}
