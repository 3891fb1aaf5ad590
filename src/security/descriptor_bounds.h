// Bounds checks for the parts of a security descriptor. The descriptor of a file comes from the file system,
// so it is untrusted input.
#pragma once

#include <span>

#include "platform/security_api.h"

// Returns whether the bytes contain the header of a descriptor, which stores the offsets of its parts.
bool ContainsDescriptor(std::span<const BYTE> bytes);

// Returns whether the bytes contain the complete SID at `sid`.
bool ContainsSid(std::span<const BYTE> bytes, const void* sid);

// Returns whether the bytes contain the complete list at `list`, by the size in its header.
bool ContainsList(std::span<const BYTE> bytes, const ACL* list);

// Returns whether the first `used` bytes of the list contain the complete entry at `entry`.
bool ContainsEntry(const ACL* list, DWORD used, const ACE_HEADER* entry);
