// Bounds checks for untrusted pointers into a block of memory.
#pragma once

#include <cstddef>
#include <span>

#include "platform/text.h"

// Returns the part of `memory` from `place` on; empty if `place` is outside of it.
std::span<const std::byte> MemoryFrom(std::span<const std::byte> memory, const void* place);

// Returns the text up to its terminator, at most `maxChars` characters. The text need not be aligned.
WString TextToItsEnd(const void* text, std::size_t maxChars);
