// Filling formats that come from the host's language table. Such a text comes from outside and may be
// anything, so it is never handed to a printf.
#pragma once

#include <cstdint>
#include <span>

#include "platform/text.h"

// Replaces the first integer conversion of `format` (%d, %i, %u, %o, %x, %X with flags, width, precision and
// length) by `value`, and every %% by %. Whatever else begins with a percent sign is kept. At most
// `limit` - 1 characters, as into a buffer of `limit`.
WString FormatCount(WStringView format, std::uint32_t value, std::size_t limit = 1024);

// The same for a format that may take the number as decimal text too: its first conversion is an integer's or
// a text's (%s, %ls, %S and the like).
WString FormatCountText(WStringView format, std::uint32_t value, std::size_t limit = 1024);

// The same with several numbers: each takes the next conversion that is left. What is left without one is
// kept. A number below zero may be among them.
WString FormatCounts(WStringView format, std::span<const std::int64_t> values, std::size_t limit = 1024);
WString FormatCountTexts(WStringView format, std::span<const std::int64_t> values, std::size_t limit = 1024);

// Replaces the first text conversion of `format` by `text`.
WString FormatText(WStringView format, WStringView text, std::size_t limit = 32768);
