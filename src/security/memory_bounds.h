// Pointers that come from outside, held to the memory that they are to point into.
#pragma once

#include <cstddef>
#include <span>

#include "platform/text.h"

// The memory from `place` on; none if it does not lie there.
std::span<const std::byte> MemoryFrom(std::span<const std::byte> memory, const void* place);

// A text of `mostChars` characters or to its zero. It may begin at an odd address.
WString TextToItsEnd(const void* text, std::size_t mostChars);
