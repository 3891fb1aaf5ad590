#include "data/text_format.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "platform/handles.h"

namespace WQDR {

namespace {

using Head = std::basic_string_view<unsigned char>;

bool BeginsWith(const Head& head, std::string_view beginning) {
  return head.size() >= beginning.size() && std::memcmp(head.data(), beginning.data(), beginning.size()) == 0;
}

// Returns whether the head begins with five 16-bit little-endian units from 1 to 255. There is no such rule
// for big-endian text (C-032).
bool LooksLikeUtf16(const Head& head) {
  constexpr std::size_t kUnits = 5;
  if (head.size() < 2 * kUnits) return false;
  for (std::size_t unit = 0; unit < kUnits; ++unit) {
    if (head[2 * unit] == 0 || head[2 * unit + 1] != 0) return false;
  }
  return true;
}

// Returns whether the first line, up to the line feed, is an XML declaration that contains UTF-8 in capitals.
// Returns false if the head has no line feed, or a zero byte before it (C-033).
bool DeclaresUtf8(const Head& head) {
  if (!BeginsWith(head, "<?xml ")) return false;
  const auto* const end =
      std::find_if(head.begin(), head.end(), [](unsigned char c) { return c == '\n' || c == 0; });
  if (end == head.end() || *end == 0) return false;
  constexpr std::string_view kName = "UTF-8";
  return std::search(head.begin(), end, kName.begin(), kName.end()) != end;
}

// Returns whether a byte may occur in a text. Of the accented letters of the Western code pages, the capitals
// may and the small letters may not; which files count as text depends on it (C-031).
bool IsTextByte(unsigned char c) {
  return (c >= 0x20 && c <= 0x7E) || (c >= 0xB0 && c <= 0xDF) || c == '\t' || c == '\n' || c == '\r';
}

}  // namespace

std::unique_ptr<unsigned char[]> ReadFileHead(const WString& path, std::uint32_t* bytesRead) {
  if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
    throw WQDataReaderException(ERROR_FILE_NOT_FOUND, "File not found");
  }
  const FileHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr));
  if (!file.IsOpen()) throw WQDataReaderException(GetLastError(), "Unable to open file");
  auto head = std::make_unique<unsigned char[]>(kFileHeadSize);
  DWORD done = 0;
  if (!ReadFile(file.Get(), head.get(), kFileHeadSize, &done, nullptr)) {
    throw WQDataReaderException(GetLastError(), "Unable to read file content");
  }
  *bytesRead = done;
  return head;
}

TextFormat DetectTextFormat(const unsigned char* bytes, std::uint32_t bytesRead) {
  const Head head(bytes, bytesRead);
  if (BeginsWith(head, "\xFF\xFE") || LooksLikeUtf16(head)) return TextFormat::Utf16;
  if (BeginsWith(head, "\xEF\xBB\xBF") || DeclaresUtf8(head)) return TextFormat::Utf8;
  const auto strange = std::ranges::count_if(head, [](unsigned char c) { return !IsTextByte(c); });
  const auto limit = static_cast<std::ptrdiff_t>(static_cast<double>(head.size()) * 0.2);
  return strange > limit ? TextFormat::Binary : TextFormat::Ansi;
}

TextFormat DetectTextFormat(const WString& path) {
  std::uint32_t bytesRead = 0;
  const auto head = ReadFileHead(path, &bytesRead);
  return DetectTextFormat(head.get(), bytesRead);
}

}  // namespace WQDR
