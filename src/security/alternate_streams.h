// The alternate data streams of a file or folder.
#pragma once

#include <cstddef>
#include <span>

#include "frame/host/host_types.h"

// The number and the size of the streams.
struct AlternateStreams {
  Velmora::SDK::u32 count = 0;
  Velmora::SDK::u64 size = 0;  // total bytes
};

// Looks up NtQueryInformationFile if that has not been done. Without it, files have no streams. May be called
// from any thread.
void ResolveStreamQuery();

// Clears the function, which restores the state at the start of the process.
void ForgetStreamQuery();

// Returns the streams of a file or folder except the first record; none if they cannot be read. Uses 64 KiB
// of stack.
AlternateStreams QueryAlternateStreams(const WCHAR* path);

// Adds up the records of a query except the first. Stops at a record that is outside the buffer or would
// begin within the previous one.
AlternateStreams SumStreamRecords(std::span<const std::byte> buffer);
