// The alternate data streams of a file or folder.
#pragma once

#include <cstddef>
#include <span>

#include "frame/host/host_types.h"

struct AlternateStreams {
  Velmora::SDK::u32 count = 0;
  Velmora::SDK::u64 size = 0;  // bytes of all together
};

// Looks up the system's function for the query, unless it is there already. From any thread; without it files
// have no streams.
void ResolveStreamQuery();

// Forgets the function, as at the beginning of the process.
void ForgetStreamQuery();

// None for what cannot be asked. 64 KiB of stack.
AlternateStreams QueryAlternateStreams(const WCHAR* path);

// Adds up the records of a query but for the first. A chain that leaves the buffer, or whose next record
// would begin within the one before, ends there.
AlternateStreams SumStreamRecords(std::span<const std::byte> buffer);
