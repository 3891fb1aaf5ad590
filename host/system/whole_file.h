// Files of the host's own that are read and written whole: language table, settings, lists of items.
#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"

namespace QxHost {

// Most of what the host is willing to hold of one file.
constexpr std::size_t kMostFileBytes = std::size_t{256} << 20;

// Fills `bytes`. 0, or the error number; 8 for a file that is longer than kMostFileBytes.
DWORD ReadWholeFile(const WString& fullPath, std::string& bytes);

// A path that begins as `fullPath` does, of a file that is written before it takes the place of another. No
// other run of the host takes it at the same time.
WString FreshPathLike(const WString& fullPath);

// Writes all bytes at the present place of the file. 0, or the error number.
DWORD WriteBytes(HANDLE file, std::string_view bytes);

// Writes a new file beside `fullPath` and lets it take the place of the old one, which is there, whole, until
// then. 0, or the error number; then the old file is as it was.
DWORD WriteWholeFile(const WString& fullPath, std::string_view bytes);

}  // namespace QxHost
