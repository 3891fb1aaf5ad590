#include "linesorter/tool/sort_lines_sample.h"

#include <algorithm>
#include <array>

#include "data/data_reader.h"

namespace WQLineSorter {

namespace {

constexpr std::uint32_t kSampleBytes = 4096;

WString WideText(std::span<const char> bytes) {
  WString text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const auto low = static_cast<unsigned char>(bytes[at]);
    const auto high = static_cast<unsigned char>(bytes[at + 1]);
    text += static_cast<WCHAR>(low | high << 8);
  }
  return text;
}

WString CodePageText(std::span<const char> bytes) {
  if (bytes.empty()) return {};
  const int size = static_cast<int>(bytes.size());
  // A byte never becomes more than one character in any code page.
  WString text(bytes.size(), WCHAR());
  const int count = MultiByteToWideChar(CP_THREAD_ACP, 0, bytes.data(), size, text.data(), size);
  text.resize(static_cast<std::size_t>(std::max(count, 0)));
  return text;
}

}  // namespace

WString SampleText(std::span<const char> bytes) {
  const bool isWide = bytes.size() >= 2 && bytes[0] == '\xFF' && bytes[1] == '\xFE';
  const WString text = isWide ? WideText(bytes.subspan(2)) : CodePageText(bytes);
  WString sample;
  for (const WCHAR character : text) {
    if (character == W('\r')) continue;
    if (character == W('\n')) sample += W('\r');
    sample += character;
  }
  return sample;
}

WString ReadSample(const WString& path) {
  std::array<char, kSampleBytes> bytes;
  std::uint32_t count = 0;
  try {
    WQDR::FileDataReader reader(path);
    reader.Read(bytes.data(), kSampleBytes, &count);
  } catch (const WQDR::WQDataReaderException&) {
    return {};
  }
  return SampleText(std::span(bytes).first(std::min(count, kSampleBytes)));
}

}  // namespace WQLineSorter
