// Reads and writes complete files, for the host's own files: language table, settings, lists of items.
#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"

namespace QxHost {

// The largest file that is read, in bytes.
constexpr std::size_t kMaxFileBytes = std::size_t{256} << 20;

// Reads a file. Returns 0 or an error number, ERROR_NOT_ENOUGH_MEMORY (8) for a file that is longer than
// kMaxFileBytes.
DWORD ReadWholeFile(const WString& fullPath, std::string& bytes);

// Returns a path for a temporary file that will replace `fullPath`: it begins with `fullPath`, and no other
// run of the host uses it at the same time.
WString FreshPathLike(const WString& fullPath);

// Writes all bytes at the current position of the file. Returns 0 or an error number.
DWORD WriteBytes(HANDLE file, std::string_view bytes);

// Writes a new file and replaces `fullPath` by it atomically. Returns 0 or an error number; after an error
// the old file is unchanged.
DWORD WriteWholeFile(const WString& fullPath, std::string_view bytes);

}  // namespace QxHost
