#include "filetools/text_conversion.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "data/line_end_scan.h"
#include "filetools/file_streams.h"

using namespace Velmora::SDK;

namespace {

// The replacements of CR, LF and tab. A null text means that the byte is copied.
struct ConversionRow {
  s32 number;
  const char* forCr;       // an LF after the CR is dropped
  const char* forCrAtEnd;  // for a CR at the end of the file
  const char* forLf;
  bool convertsTabs;
};

// clang-format off
constexpr ConversionRow kConversions[] = {
  {kCommandLineEndsToLf,   "\n",   "\n",    nullptr, false},
  {kCommandLineEndsToCrLf, "\r\n", "",      "\r\n",  false},
  {kCommandLineEndsToCr,   "\r",   "\r",    "\r",    false},
  {kCommandTabsToBlanks,   nullptr, nullptr, nullptr, true},
};
// clang-format on

// The most blanks that replace a tab.
constexpr std::uint32_t kMaxBlanks = 20;
constexpr std::string_view kBlanks = "                    ";
static_assert(kBlanks.size() == kMaxBlanks);

// Reads the bytes of a file, one buffer at a time. A failed read ends them.
class ByteSource {
 public:
  bool Open(const WString& path) {
    if (!file_.Open(path)) return false;
    // The scan for line ends may read past the bytes.
    buffer_ = std::make_unique_for_overwrite<char[]>(kStreamBytes + kScanGuard);
    Refill();
    return true;
  }

  // Returns the bytes in the buffer, after filling it if it is used up; none at the end of the file.
  std::string_view Bytes() {
    if (position_ == filled_) Refill();
    return {buffer_.get() + position_, filled_ - position_};
  }
  void Drop(std::size_t count) { position_ += count; }
  // Returns whether a read has failed.
  bool HasFailed() const { return hasFailed_; }

 private:
  static constexpr std::size_t kScanGuard = 16;

  void Refill() {
    position_ = filled_ = 0;
    if (isAtEnd_) return;
    hasFailed_ = !file_.Read(buffer_.get(), kStreamBytes, &filled_);
    isAtEnd_ = hasFailed_ || filled_ < kStreamBytes;
  }

  FileInput file_;
  std::unique_ptr<char[]> buffer_;
  std::size_t filled_ = 0;
  std::size_t position_ = 0;
  bool isAtEnd_ = false;
  bool hasFailed_ = false;
};

class TextConverter {
 public:
  TextConverter(const ConversionRow& row, std::uint32_t tabWidth, ByteSource& source, FileOutput& target)
      : row_(row), tab_(kBlanks.substr(0, tabWidth)), source_(source), target_(target) {}

  // Converts all bytes. Stops at a write that fails; ignores a failure of the last write.
  void Run(ConvertedText& result) {
    for (;;) {
      const std::string_view bytes = source_.Bytes();
      if (bytes.empty()) break;
      const std::size_t kept = FirstToConvert(bytes);
      if (!target_.Add(bytes.data(), kept)) return;
      source_.Drop(kept);
      if (kept < bytes.size() && !Convert(bytes[kept])) return;
    }
    result.isConverted = true;
    result.isWhole = target_.Flush() && !source_.HasFailed();
  }

 private:
  std::size_t FirstToConvert(std::string_view bytes) const {
    if (row_.convertsTabs) return std::min(bytes.find('\t'), bytes.size());
    if (!row_.forLf) return std::min(bytes.find('\r'), bytes.size());
    const char* const begin = bytes.data();
    return static_cast<std::size_t>(WQDR::FindLineEnd(begin, begin + bytes.size()) - begin);
  }

  // Writes the replacement of the next byte, and the byte after a CR.
  bool Convert(char byte) {
    source_.Drop(1);
    if (byte == '\t') return target_.Add(tab_.data(), tab_.size());
    if (byte == '\n') return Add(row_.forLf);
    const std::string_view following = source_.Bytes();
    if (following.empty()) return Add(row_.forCrAtEnd);
    source_.Drop(1);
    if (!Add(row_.forCr)) return false;
    return following[0] == '\n' || target_.Add(following.data(), 1);
  }

  bool Add(std::string_view text) { return target_.Add(text.data(), text.size()); }

  const ConversionRow& row_;
  std::string_view tab_;
  ByteSource& source_;
  FileOutput& target_;
};

}  // namespace

ConvertedText ConvertText(const WString& source, const WString& target, s32 conversion,
                          std::uint32_t tabWidth) {
  ConvertedText result;
  const auto* const row = std::ranges::find(kConversions, conversion, &ConversionRow::number);
  if (row == std::end(kConversions)) return result;
  ByteSource from;
  FileOutput to;
  if (!from.Open(source) || !to.Create(target, false)) return result;
  result.isTargetNew = true;
  TextConverter(*row, std::min(tabWidth, kMaxBlanks), from, to).Run(result);
  return result;
}

bool ConvertTextFile(const WString& source, const WString& target, s32 conversion, std::uint32_t tabWidth) {
  return ConvertText(source, target, conversion, tabWidth).isConverted;
}
