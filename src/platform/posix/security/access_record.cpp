#include "platform/posix/security/access_record.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <mutex>
#include <shared_mutex>

#include "platform/posix/files/path_translation.h"
#include "platform/posix/last_error.h"
#include "platform/posix/security/access_list.h"
#include "platform/posix/security/kept_attribute.h"
#include "platform/posix/security/posix_access.h"

namespace Platform {

namespace {

constexpr std::uint32_t kVersion = 1;

// The header of the attribute. The POSIX access list as text and the access list, if there is one, follow it.
struct KeptHeader {
  std::uint32_t version;
  std::uint32_t owner;
  std::uint32_t group;
  std::uint32_t mode;
  std::uint32_t isProtected;
  std::uint32_t hasList;
  std::uint32_t posixBytes;
};

KeptHeader HeaderOf(const struct stat& status, bool isProtected, bool hasList, const std::string& posix) {
  return {.version = kVersion,
          .owner = status.st_uid,
          .group = status.st_gid,
          .mode = status.st_mode & 07777u,
          .isProtected = isProtected ? 1u : 0u,
          .hasList = hasList ? 1u : 0u,
          .posixBytes = static_cast<std::uint32_t>(posix.size())};
}

const ACL* ListIn(std::span<const BYTE> bytes) { return reinterpret_cast<const ACL*>(bytes.data()); }

// Returns whether the bytes are exactly one well-formed list.
bool IsList(std::span<const BYTE> bytes) {
  ACL list;
  if (bytes.size() < sizeof list) return false;
  std::memcpy(&list, bytes.data(), sizeof list);
  return list.AclSize == bytes.size() && EntriesOf(ListIn(bytes)).has_value();
}

// Stores a kept list in the record. Returns false if the bytes are malformed, or if owner, mode or POSIX
// access list of the file have changed since the list was set, so that it is out of date. Anyone who may
// write the file can write these bytes: a list that does not agree with mode and POSIX access list is
// rejected, whatever its header says.
bool TakeKept(const std::string& path, std::span<const BYTE> bytes, AccessRecord& record) {
  KeptHeader header;
  if (bytes.size() < sizeof header) return false;
  std::memcpy(&header, bytes.data(), sizeof header);
  const std::string posix = PosixAccess(path);
  const KeptHeader now = HeaderOf(record.status, header.isProtected != 0, header.hasList != 0, posix);
  if (std::memcmp(&header, &now, sizeof now) != 0 || bytes.size() - sizeof header < posix.size() ||
      std::memcmp(bytes.data() + sizeof header, posix.data(), posix.size()) != 0)
    return false;
  // A copy, because an ACL must be aligned.
  const std::span<const BYTE> rest = bytes.subspan(sizeof header + posix.size());
  std::vector<BYTE> list(rest.begin(), rest.end());
  if (header.hasList != 0 ? !IsList(list) : !list.empty()) return false;
  if (!IsPosixAccessOf(path, record.status, header.hasList != 0 ? ListIn(list) : nullptr)) return false;
  record.isProtected = header.isProtected != 0;
  record.hasList = header.hasList != 0;
  record.list = std::move(list);
  record.isKept = true;
  return true;
}

// Returns the bytes of the attribute for a list; none if the mode alone expresses it.
std::vector<BYTE> BytesToKeep(const std::string& path, const struct stat& status, std::span<const BYTE> list,
                              bool hasList, bool isProtected) {
  if (hasList && !isProtected && list.size() == sizeof(ACL)) return {};  // an empty list grants nothing
  const std::string posix = PosixAccess(path);
  const KeptHeader header = HeaderOf(status, isProtected, hasList, posix);
  std::vector<BYTE> bytes(sizeof header);
  std::memcpy(bytes.data(), &header, sizeof header);
  bytes.insert(bytes.end(), posix.begin(), posix.end());
  bytes.insert(bytes.end(), list.begin(), list.end());
  return bytes;
}

// Held exclusively while a list is set and shared while one is read, so that no thread of the process reads a
// list that is half set.
std::shared_mutex listMutex;

DWORD ReadRawList(const std::string& path, AccessRecord& record) {
  const std::vector<BYTE> kept = ReadKeptAttribute(path);
  if (stat(path.c_str(), &record.status) != 0) return PathError(errno, path);
  if (!TakeKept(path, kept, record)) record.list = ListOfPosixAccess(path, record.status);
  return ERROR_SUCCESS;
}

DWORD Apply(const std::string& path, const struct stat& before, std::span<const BYTE> list, bool hasList,
            bool isProtected) {
  const ACL* const header = hasList ? ListIn(list) : nullptr;
  if (const int error = SetPosixAccess(path, before, header)) return PathError(error, path);
  struct stat status;
  if (stat(path.c_str(), &status) != 0) return PathError(errno, path);
  const std::vector<BYTE> bytes = BytesToKeep(path, status, list, hasList, isProtected);
  int error = WriteKeptAttribute(path, bytes);
  const mode_t writable = (status.st_mode & static_cast<mode_t>(07777)) | S_IWUSR;
  if (error == EACCES && chmod(path.c_str(), writable) == 0) {
    // The new mode does not let the owner write the attribute, so it is written under a mode that does. Mode
    // and POSIX access list are set again last: if several processes do this at once, those of the last one
    // remain, and none leaves the added write permission.
    error = WriteKeptAttribute(path, bytes);
    if (const int setError = SetPosixAccess(path, before, header)) return PathError(setError, path);
  }
  return error == 0 || error == EACCES ? ERROR_SUCCESS : ErrorOfErrno(error);
}

}  // namespace

DWORD ReadAccessRecord(const std::string& path, AccessRecord& record, bool wantsList) {
  if (!wantsList) return stat(path.c_str(), &record.status) == 0 ? ERROR_SUCCESS : PathError(errno, path);
  const std::shared_lock lock(listMutex);
  return ReadRawList(path, record);
}

DWORD SetAccessList(const std::string& path, const ACL* list, bool isProtected) {
  const std::unique_lock lock(listMutex);
  struct stat status;
  if (stat(path.c_str(), &status) != 0) return PathError(errno, path);
  std::vector<BYTE> bytes;
  if (list) {
    const auto used = BytesInUse(list);
    if (!used) return ERROR_INVALID_ACL;
    const auto* const begin = reinterpret_cast<const BYTE*>(list);
    bytes.assign(begin, begin + *used);
    ACL header = *list;
    header.AclSize = static_cast<WORD>(*used);
    std::memcpy(bytes.data(), &header, sizeof header);
  }
  return Apply(path, status, bytes, list != nullptr, isProtected);
}

DWORD SetOwner(const std::string& path, uid_t owner) {
  const std::unique_lock lock(listMutex);
  AccessRecord record;
  if (const DWORD error = ReadRawList(path, record)) return error;
  if (chown(path.c_str(), owner, static_cast<gid_t>(-1)) != 0) return PathError(errno, path);
  if (!record.isKept) return ERROR_SUCCESS;
  if (stat(path.c_str(), &record.status) != 0) return PathError(errno, path);
  return Apply(path, record.status, record.list, record.hasList, record.isProtected);
}

}  // namespace Platform
