// Creates junctions: empty folders that lead to another folder (mount points, FSCTL_SET_REPARSE_POINT).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/text.h"

// The record that is passed to the system, in Windows' layout. All numbers are little-endian and in bytes;
// offsets count from `pathBuffer`.
struct MountPointRecord {
  std::uint32_t reparseTag;
  std::uint16_t reparseDataLength;  // of all data after `reserved`
  std::uint16_t reserved;
  std::uint16_t substituteNameOffset;
  std::uint16_t substituteNameLength;  // without its terminator, like printNameLength
  std::uint16_t printNameOffset;
  std::uint16_t printNameLength;
  WCHAR pathBuffer[8184];

  // Returns the number of bytes to pass to the system.
  DWORD Size() const { return reparseDataLength + DWORD{offsetof(MountPointRecord, substituteNameOffset)}; }
};
static_assert(sizeof(MountPointRecord) == 16384);
static_assert(offsetof(MountPointRecord, reparseDataLength) == 4);
static_assert(offsetof(MountPointRecord, substituteNameOffset) == 8);
static_assert(offsetof(MountPointRecord, substituteNameLength) == 10);
static_assert(offsetof(MountPointRecord, printNameOffset) == 12);
static_assert(offsetof(MountPointRecord, printNameLength) == 14);
static_assert(offsetof(MountPointRecord, pathBuffer) == 16);

// Returns the record of a mount point that leads to `path` and has an empty print name; null if the path is
// too long for the record.
std::unique_ptr<MountPointRecord> MakeMountPointRecord(WStringView path);

// Makes the empty folder `folder` a junction to `target`, which must exist. A target that begins with `\?`,
// as `\??\C:\a` does and `\\?\C:\a` does not, is used unchanged and not checked (C-408). Returns false and
// leaves the folder unchanged if that fails.
bool SetJunctionTarget(const WString& folder, const WString& target);

// Creates the junction `link` to `target`, from an existing empty folder or from a new folder, which is
// removed if that fails. Returns 0, or ERROR_INVALID_DATA (13) for every failure, also if both are the same
// folder, as the junction would lead to itself.
DWORD CreateJunction(const WString& link, const WString& target);
