#include "linesorter/engine/sorted_lines_writer.h"

#include <cstring>
#include <string_view>

#include "data/data_exception.h"
#include "linesorter/engine/prefetch.h"
#include "platform/handles.h"

namespace WQLineSorter {

namespace {

// Collects the output in a buffer and writes at most 32768 bytes at a time.
class OutputFile {
 public:
  OutputFile(const WString& target, bool replace)
      // The buffer is allocated first, so that an existing target is not truncated if that fails.
      : buffer_(std::make_unique_for_overwrite<char[]>(kSize)),
        file_(CreateFileW(target.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                          replace ? CREATE_ALWAYS : CREATE_NEW, 0, nullptr)) {
    if (!file_.IsOpen()) throw WQDR::WQDataReaderException(GetLastError(), "Unable to open file for writing");
  }

  std::uint32_t Room() const { return kSize - used_; }

  void Append(std::string_view bytes) {
    if (bytes.size() > Room()) Flush();
    // Writes bytes that exceed the size of the buffer directly.
    while (bytes.size() > kSize) {
      Write(bytes.data(), kSize);
      bytes.remove_prefix(kSize);
    }
    if (!bytes.empty()) std::memcpy(buffer_.get() + used_, bytes.data(), bytes.size());
    used_ += static_cast<std::uint32_t>(bytes.size());
  }

  void Flush() {
    if (used_ != 0) Write(buffer_.get(), used_);
    used_ = 0;
  }

 private:
  static constexpr std::uint32_t kSize = 32768;

  void Write(const char* data, std::uint32_t count) {
    DWORD written = 0;
    if (!WriteFile(file_.Get(), data, count, &written, nullptr)) {
      throw WQDR::WQDataReaderException(GetLastError(), "Failed to write data to file");
    }
    // If fewer bytes are written than requested, the disk is full.
    if (written != count) {
      throw WQDR::WQDataReaderException(ERROR_DISK_FULL, "Failed to write data to file");
    }
  }

  std::unique_ptr<char[]> buffer_;
  FileHandle file_;
  std::uint32_t used_ = 0;
};

std::string_view EndingOf(const SortLine& line) { return {line.text + line.length, line.endingSize}; }

// The lines in the order of the records.
class LinesInPlace {
 public:
  explicit LinesInPlace(const std::vector<SortLine>& lines) : lines_(lines) {}
  std::size_t Count() const { return lines_.size(); }
  const SortLine& operator[](std::size_t i) const { return lines_[i]; }
  void PrefetchRecord(std::size_t) const {}

 private:
  const std::vector<SortLine>& lines_;
};

// The lines in a given order.
class LinesInOrder {
 public:
  LinesInOrder(const std::vector<SortLine>& lines, std::span<const std::uint32_t> order)
      : lines_(lines), order_(order) {}
  std::size_t Count() const { return order_.size(); }
  const SortLine& operator[](std::size_t i) const { return lines_[order_[i]]; }
  void PrefetchRecord(std::size_t i) const { Prefetch(&(*this)[i]); }

 private:
  const std::vector<SortLine>& lines_;
  std::span<const std::uint32_t> order_;
};

template <typename Lines>
std::string_view DefaultEnding(const Lines& lines) {
  for (std::size_t i = 0; i < lines.Count(); ++i) {
    if (lines[i].endingSize != 0) return EndingOf(lines[i]);
  }
  return {};
}

template <typename Lines>
void WriteLines(const WString& target, const Lines& lines, bool replace) {
  constexpr std::size_t kRecordAhead = 32;
  constexpr std::size_t kTextAhead = 16;
  const std::string_view defaultEnding = DefaultEnding(lines);
  OutputFile output(target, replace);
  for (std::size_t i = 0; i < lines.Count(); ++i) {
    if (i + kRecordAhead < lines.Count()) {
      lines.PrefetchRecord(i + kRecordAhead);
      Prefetch(lines[i + kTextAhead].text);
    }
    const SortLine& line = lines[i];
    output.Append({line.text, std::size_t{line.length} + line.endingSize});
    // Strictly less: an ending that would exactly fill the buffer is omitted, and the line is joined with the
    // next one (C-128).
    if (line.endingSize == 0 && defaultEnding.size() < output.Room()) output.Append(defaultEnding);
  }
  output.Flush();
}

}  // namespace

void WriteSortedLines(const WString& target, const std::vector<SortLine>& lines, bool replace) {
  WriteLines(target, LinesInPlace(lines), replace);
}

void WriteSortedLines(const WString& target, const std::vector<SortLine>& lines,
                      std::span<const std::uint32_t> order, bool replace) {
  WriteLines(target, LinesInOrder(lines, order), replace);
}

}  // namespace WQLineSorter
