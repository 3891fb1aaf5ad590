// Junctions: empty folders that lead to another folder (mount points, FSCTL_SET_REPARSE_POINT).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/text.h"

// What the system is given, as Windows lays it down. All numbers are little-endian and count bytes; places
// count from `pathBuffer` on.
struct MountPointRecord {
  std::uint32_t reparseTag;
  std::uint16_t reparseDataLength;  // of all behind `reserved`
  std::uint16_t reserved;
  std::uint16_t substituteNameOffset;
  std::uint16_t substituteNameLength;  // without its terminator, as the other one
  std::uint16_t printNameOffset;
  std::uint16_t printNameLength;
  WCHAR pathBuffer[8184];

  // What of the record is to be handed over, in bytes.
  DWORD Size() const { return reparseDataLength + DWORD{offsetof(MountPointRecord, substituteNameOffset)}; }
};
static_assert(sizeof(MountPointRecord) == 16384);
static_assert(offsetof(MountPointRecord, reparseDataLength) == 4);
static_assert(offsetof(MountPointRecord, substituteNameOffset) == 8);
static_assert(offsetof(MountPointRecord, substituteNameLength) == 10);
static_assert(offsetof(MountPointRecord, printNameOffset) == 12);
static_assert(offsetof(MountPointRecord, printNameLength) == 14);
static_assert(offsetof(MountPointRecord, pathBuffer) == 16);

// The record of a mount point that leads to `path` and has no name of its own to show. Null for a path that
// the record has no room for.
std::unique_ptr<MountPointRecord> MakeMountPointRecord(WStringView path);

// Makes the empty folder `folder` a junction to `target`, which must exist; a target that begins with `\?` is
// used as it is and not looked for (C-408). Returns false, and leaves the folder as it was, if that fails.
bool SetJunctionTarget(const WString& folder, const WString& target);

// Makes the junction `link` to `target`: of an empty folder that is there, else of a new one, which goes away
// again if it cannot be one. Returns 0, or ERROR_INVALID_DATA (13) whatever the reason; one is that both are
// the same folder, which would lead to itself.
DWORD CreateJunction(const WString& link, const WString& target);
