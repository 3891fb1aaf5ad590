// Detects the kind of text in a file by its first 1024 bytes. Texts are never transcoded: the loader for the
// detected kind works on the file's bytes.
#pragma once

#include <cstdint>
#include <memory>

#include "data/data_exception.h"
#include "platform/text.h"

namespace WQDR {

// The kinds of files.
enum class TextFormat : int {
  Ansi = 1,   // 8-bit text of any code page, and UTF-8 without a mark (C-035)
  Utf16 = 2,  // 16-bit little-endian text
  Utf8 = 3,   // UTF-8 with a byte order mark or an XML declaration
  Binary = 4  // not a text
};

// The size of the head of a file in bytes.
constexpr std::uint32_t kFileHeadSize = 1024;

// Reads the head of a file that others may have open. Returns a block of kFileHeadSize bytes, with zeros
// after the `bytesRead` bytes read. Throws WQDataReaderException: 2 with "File not found" if the attributes
// cannot be read, for any reason (C-034), or the error of the call with "Unable to open file" or "Unable to
// read file content".
std::unique_ptr<unsigned char[]> ReadFileHead(const WString& path, std::uint32_t* bytesRead);

// Detects the format of a file. Throws as ReadFileHead does.
TextFormat DetectTextFormat(const WString& path);

// Detects the format of a head with `bytesRead` valid bytes in a block of kFileHeadSize bytes.
TextFormat DetectTextFormat(const unsigned char* head, std::uint32_t bytesRead);

}  // namespace WQDR
