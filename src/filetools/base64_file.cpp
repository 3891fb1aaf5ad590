#include "filetools/base64_file.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "data/code_pages.h"
#include "filetools/base64.h"
#include "filetools/decoded_name.h"
#include "filetools/mime_header.h"
#include "frame/services/path_parts.h"

namespace {

// The size of the blocks in which a file is encoded: a multiple of three bytes, so that only the last block
// has padding. kEncodedBlock is the number of characters of an encoded block.
constexpr std::size_t kEncodeBlock = 3072;
constexpr std::size_t kEncodedBlock = kEncodeBlock / 3 * 4;
constexpr std::size_t kBlocksAtOnce = 20;

constexpr std::size_t kLineLength = 76;
constexpr std::string_view kLineEnd = "\r\n";

// The number of bytes that are searched for the name, and the size of the blocks that are searched for the
// end of the header and decoded.
constexpr std::size_t kNameSearchBytes = 1023;
constexpr std::size_t kDecodeBlock = 4096;

struct HeaderLine {
  const char* before;
  bool hasName;
  const char* after;
};

// clang-format off
constexpr HeaderLine kHeader[] = {
  {"MIME-Version: 1.0", false, "\r\n"},
  {"Content-Type: application/octet-stream; name=\"", true, "\"\r\n"},
  {"Content-Transfer-Encoding: base64", false, "\r\n"},
  {"Content-Disposition: attachment; filename=\"", true, "\"\r\n"},
  {"", false, "\r\n"},
};
// clang-format on

// Writes the header with the name of the source. Returns false if a write fails.
bool WriteHeader(FileOutput& target, const std::string& name) {
  for (const HeaderLine& line : kHeader) {
    const std::string text = line.before + (line.hasName ? name : std::string()) + line.after;
    if (!target.Add(text.data(), text.size())) return false;
  }
  return true;
}

// Splits the characters of successive blocks into lines of 76. Writes the last 76 or fewer characters of a
// block without splitting them, even if that makes a longer line, which only happens in the last block
// (C-422).
class LineBreaker {
 public:
  explicit LineBreaker(FileOutput& target) : target_(target) {}

  bool Add(const char* text, std::size_t size) {
    while (size != 0) {
      const std::size_t piece = size <= kLineLength ? size : kLineLength - column_;
      if (!target_.Add(text, piece)) return false;
      text += piece;
      size -= piece;
      column_ += piece;
      if (column_ < kLineLength) continue;
      if (!target_.Add(kLineEnd.data(), kLineEnd.size())) return false;
      column_ = 0;
    }
    return true;
  }

 private:
  FileOutput& target_;
  std::size_t column_ = 0;
};

// The block to encode, after the previous block, which supplies the bits that an incomplete last group leaves
// open (C-421).
class EncodeBuffer {
 public:
  bool Fill(FileInput& source, std::size_t* size) {
    std::memcpy(bytes_.get(), bytes_.get() + kSize, kEncodeBlock);
    return source.Read(bytes_.get() + kEncodeBlock, kSize, size);
  }

  const unsigned char* Block(std::size_t offset) const { return bytes_.get() + kEncodeBlock + offset; }

  static constexpr std::size_t kSize = kEncodeBlock * kBlocksAtOnce;

 private:
  static constexpr std::size_t kSpare = 2;
  std::unique_ptr<unsigned char[]> bytes_ = std::make_unique<unsigned char[]>(kEncodeBlock + kSize + kSpare);
};

// Removes each CR LF pair in place, in one pass: a pair that a removal creates remains (C-423). Returns the
// number of characters left.
std::size_t RemoveLineEnds(char* text, std::size_t size) {
  char* to = text;
  const char* from = text;
  const char* const end = text + size;
  while (from != end) {
    const auto* cr = static_cast<const char*>(std::memchr(from, '\r', static_cast<std::size_t>(end - from)));
    const bool isPair = cr && cr + 1 != end && cr[1] == '\n';
    const char* const keptEnd = !cr ? end : isPair ? cr : cr + 1;
    const auto kept = static_cast<std::size_t>(keptEnd - from);
    std::memmove(to, from, kept);
    to += kept;
    from = isPair ? cr + 2 : keptEnd;
  }
  return static_cast<std::size_t>(to - text);
}

// Decodes the text of a file in blocks. Characters of an incomplete group are kept for the next block, and
// dropped after the last one (C-428).
class Decoder {
 public:
  explicit Decoder(FileOutput& target) : target_(target) {}

  // Decodes the bytes up to the first zero byte.
  bool Add(const char* bytes, std::size_t size) {
    const void* const zero = std::memchr(bytes, 0, size);
    if (zero) size = static_cast<std::size_t>(static_cast<const char*>(zero) - bytes);
    std::memcpy(text_.data() + carried_, bytes, size);
    std::size_t length = RemoveLineEnds(text_.data(), carried_ + size);
    const std::size_t over = length % kGroup;
    carried_ = over != 0 && text_[length - 1] != '=' ? over : 0;
    length -= carried_;

    auto decoded = static_cast<std::uint32_t>(kStreamBytes);
    if (!CBase64().Decode(text_.data(), length, output_.get(), &decoded)) return false;
    std::memmove(text_.data(), text_.data() + length, carried_);
    return target_.Add(output_.get(), decoded);
  }

 private:
  static constexpr std::size_t kGroup = 4;

  FileOutput& target_;
  std::array<char, kDecodeBlock + kGroup> text_;
  std::size_t carried_ = 0;
  std::unique_ptr<unsigned char[]> output_ = std::make_unique_for_overwrite<unsigned char[]>(kStreamBytes);
};

}  // namespace

bool EncodeFileBase64(const WString& source, const WString& target) {
  FileInput from;
  FileOutput to;
  if (!from.Open(source) || !to.Create(target, true)) return false;
  PathParts parts;
  SplitPath(parts, source);
  if (!WriteHeader(to, WQDR::ToCodePage(CP_THREAD_ACP, parts.fileName))) return false;

  EncodeBuffer buffer;
  LineBreaker lines(to);
  std::array<char, kEncodedBlock> text;
  bool isRead = true;
  for (std::size_t size = EncodeBuffer::kSize; isRead && size == EncodeBuffer::kSize;) {
    isRead = buffer.Fill(from, &size);
    for (std::size_t offset = 0; offset < size; offset += kEncodeBlock) {
      const std::size_t count = std::min(kEncodeBlock, size - offset);
      const unsigned char* const block = buffer.Block(offset);
      const std::size_t length = EncodeBase64(block, count, block + count - kEncodeBlock, text.data());
      if (!lines.Add(text.data(), length)) return false;
    }
  }
  return to.Flush() && isRead;
}

bool DecodeFileBase64(const WString& source, const WString& target, bool skipHeader) {
  FileInput from;
  FileOutput to;
  if (!from.Open(source) || !to.Create(target, true)) return false;
  if (skipHeader && !from.Seek(FindBase64Start(from))) return false;

  Decoder decoder(to);
  const auto buffer = std::make_unique_for_overwrite<char[]>(kStreamBytes);
  for (std::size_t size = kStreamBytes; size == kStreamBytes;) {
    const bool isRead = from.Read(buffer.get(), kStreamBytes, &size);
    for (std::size_t offset = 0; offset < size; offset += kDecodeBlock) {
      if (!decoder.Add(buffer.get() + offset, std::min(kDecodeBlock, size - offset))) return false;
    }
    if (!isRead) break;
  }
  return to.Flush();
}

std::optional<WString> GetEncodedFileName(const WString& path) {
  FileInput file;
  std::array<char, kNameSearchBytes> header;
  std::size_t size = 0;
  if (!file.Open(path) || !file.Read(header.data(), header.size(), &size)) return std::nullopt;
  const std::optional<std::string_view> name = FindEncodedName({header.data(), size});
  if (!name) return std::nullopt;
  // Checks the name as UTF-16, because in some code pages the byte of a backslash may be half of a character.
  const WString text = WQDR::FromCodePage(CP_THREAD_ACP, *name);
  return IsFileNameToDecode(text) ? text : WString();
}

std::uint32_t FindBase64Start(FileInput& file) {
  std::array<char, kDecodeBlock> head;
  std::size_t size = 0;
  if (!file.Seek(0)) return 0;
  file.Read(head.data(), head.size(), &size);
  return static_cast<std::uint32_t>(FindHeaderEnd({head.data(), size}));
}
