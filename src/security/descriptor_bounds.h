// Whether what a security descriptor points to lies in it. The record of a file comes from the file system,
// which may be anybody's.
#pragma once

#include <span>

#include "platform/security_api.h"

// The beginning of a descriptor, which says where its parts are.
bool HoldsDescriptor(std::span<const BYTE> bytes);

// A whole SID within the bytes.
bool HoldsSid(std::span<const BYTE> bytes, const void* sid);

// A whole list within the bytes, by its own size.
bool HoldsList(std::span<const BYTE> bytes, const ACL* list);

// An entry that lies whole within the first `used` bytes of its list.
bool HoldsEntry(const ACL* list, DWORD used, const ACE_HEADER* entry);
