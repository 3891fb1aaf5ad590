// What kind of text a file holds, by its first 1024 bytes. Nothing is transcoded, here or later: the loader
// that is chosen works on the file's bytes as they stand.
#pragma once

#include <cstdint>
#include <memory>

#include "data/data_exception.h"
#include "platform/text.h"

namespace WQDR {

enum class TextFormat : int {
  Ansi = 1,   // 8-bit text of any code page, and UTF-8 without a mark (C-035)
  Utf16 = 2,  // 16-bit little-endian text
  Utf8 = 3,   // UTF-8 by its mark or its XML declaration
  Binary = 4  // no text
};

// Size of a file's head in bytes.
constexpr std::uint32_t kFileHeadSize = 1024;

// Reads the head of a file that others may have open. The block has kFileHeadSize bytes, zeros after the
// `bytesRead` that were read. Throws WQDataReaderException: 2 "File not found" if the attributes cannot be
// read, for any reason (C-034), and "Unable to open file" and "Unable to read file content" with the error of
// the call.
std::unique_ptr<unsigned char[]> ReadFileHead(const WString& path, std::uint32_t* bytesRead);

// Throws as ReadFileHead.
TextFormat DetectTextFormat(const WString& path);

// The rule itself, over a head of `bytesRead` valid bytes in a block of kFileHeadSize.
TextFormat DetectTextFormat(const unsigned char* head, std::uint32_t bytesRead);

}  // namespace WQDR
