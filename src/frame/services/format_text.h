// Formats texts from the host's language table. They are untrusted input, so they are never passed to printf.
#pragma once

#include <cstdint>
#include <span>

#include "platform/text.h"

// Replaces the first integer conversion of `format` (%d, %i, %u, %o, %x, %X with flags, width, precision and
// length) by `value`, and every %% by %. All other text, including other conversions, is copied unchanged.
// Returns at most `limit` - 1 characters, as if written to a buffer of `limit` characters.
WString FormatCount(WStringView format, std::uint32_t value, std::size_t limit = 1024);

// Works as FormatCount, but the conversion may also be one for a text (%s, %ls, %S and the like), which is
// replaced by the decimal number.
WString FormatCountText(WStringView format, std::uint32_t value, std::size_t limit = 1024);

// Work as FormatCount and FormatCountText for several numbers, which may be negative: each value replaces the
// next conversion. Conversions without a value are copied unchanged.
WString FormatCounts(WStringView format, std::span<const std::int64_t> values, std::size_t limit = 1024);
WString FormatCountTexts(WStringView format, std::span<const std::int64_t> values, std::size_t limit = 1024);

// Replaces the first text conversion of `format` by `text`.
WString FormatText(WStringView format, WStringView text, std::size_t limit = 32768);
