#include "linesorter/line_loader.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "linesorter/line_end_scan.h"
#include "linesorter/line_sort.h"
#include "linesorter/sort_keys.h"

namespace WQLineSorter {

namespace {

// Assumed length of a line and its ending in bytes.
constexpr std::uint64_t kMeanLine = 60;

// The first step of the records' growth, and how far each later one may go beyond the lines that it knows.
constexpr std::uint64_t kFirstLines = 4096;
constexpr std::uint64_t kLargestStep = 16;

// Makes room for one more record. Doubling would copy the records several times, and a copy late in the load
// takes twice their memory. So the growth follows what the lines so far foretell, with a margin: memory that
// is not written to costs next to nothing. The first lines of a file may be of another kind than the rest, so
// few lines foretell only some more.
void MakeRoom(std::vector<SortLine>& lines, std::uint64_t bytesDone, std::uint64_t bytesLeft) {
  if (lines.size() < lines.capacity()) return;
  constexpr double kMargin = 1.3;
  const std::uint64_t count = lines.size();
  const double meanLine =
      static_cast<double>(bytesDone + 1) / static_cast<double>(std::max<std::uint64_t>(count, 1));
  const auto foretold = static_cast<std::uint64_t>(static_cast<double>(bytesLeft) / meanLine * kMargin);
  const std::uint64_t least = count / 8 + 16;
  const std::uint64_t wanted = std::max(std::min(foretold, count * kLargestStep), least);
  try {
    lines.reserve(static_cast<std::size_t>(count + wanted));
  } catch (const std::bad_alloc&) {
    lines.reserve(static_cast<std::size_t>(count + least));
  }
}

// The load of one file, block by block.
template <typename CharT>
class LineLoader {
 public:
  explicit LineLoader(WQDR::DataReader& reader)
      : reader_(reader), remaining_(reader.size), data_(std::make_shared<SortableLinesData>()) {}

  std::shared_ptr<SortableLinesData> Run() {
    data_->lines.reserve(static_cast<std::size_t>(std::min(remaining_ / kMeanLine, kFirstLines)));
    std::uint32_t carry = 0;
    NewBlock();
    while (remaining_ != 0) {
      const std::uint32_t filled = Fill(carry);
      const std::uint32_t taken = Scan(filled);
      carry = filled - std::min(taken, filled);
      // A full block without a line's end: no later one could hold the line either.
      if (carry == kBlockSize) throw std::bad_alloc();
      if (remaining_ != 0) CarryOver(taken, carry);
    }
    return std::move(data_);
  }

 private:
  char* Block() const { return data_->blocks.back().get(); }

  void NewBlock() {
    data_->blocks.push_back(std::make_unique_for_overwrite<char[]>(kBlockSize + kBlockGuard));
    if (remaining_ == 0) ClearFrom(0);
  }

  void ClearFrom(std::uint32_t offset) {
    std::memset(Block() + offset, 0, kBlockSize + kBlockGuard - offset);
  }

  // Reads behind the carried bytes and answers how many the block holds now; zeros stand behind them. A file
  // that ends before its size (somebody cut it) ends the load.
  std::uint32_t Fill(std::uint32_t carry) {
    std::uint32_t filled = carry;
    do {
      std::uint32_t got = 0;
      // A reader may stop in the middle of a 16-bit unit; the rest of the unit is asked for.
      const std::uint32_t toRead = filled == carry ? kBlockSize - carry : 1;
      reader_.Read(Block() + filled, toRead, &got);
      got = std::min(got, toRead);
      if (got == 0) remaining_ = 0;
      remaining_ -= std::min<std::uint64_t>(got, remaining_);
      filled += got;
    } while (remaining_ != 0 && filled % sizeof(CharT) != 0);
    ClearFrom(filled);
    return filled;
  }

  // Makes records of the lines that end in the block; the last line needs no end once all is read. Answers
  // the bytes done with. A 16-bit text with an odd byte at its end has one zero byte more.
  std::uint32_t Scan(std::uint32_t filled) {
    const auto* const block = reinterpret_cast<const CharT*>(Block());
    const CharT* const end = block + (filled + sizeof(CharT) - 1) / sizeof(CharT);
    const CharT* p = block;
    while (p < end) {
      const CharT* const q = FindLineEnd(p, end);
      if (q == end && remaining_ != 0) break;
      SortLine line = {};
      line.text = reinterpret_cast<const char*>(p);
      line.length = static_cast<std::uint32_t>((q - p) * static_cast<std::ptrdiff_t>(sizeof(CharT)));
      std::uint32_t units = 0;
      if (q == end) {
        // No ending.
      } else if (*q == '\n') {
        line.endingKind = kEndingLf;
        units = 1;
      } else if (q[1] == '\n') {
        line.endingKind = kEndingCrLf;
        units = 2;
      }
      line.endingSize = static_cast<std::uint8_t>(units * sizeof(CharT));
      MakeRoom(data_->lines, reader_.size - remaining_,
               remaining_ + static_cast<std::uint64_t>(end - p) * sizeof(CharT));
      data_->lines.push_back(line);
      // A lone CR ends the line and is not kept.
      p = q == end ? end : q + std::max(units, 1U);
    }
    return static_cast<std::uint32_t>(reinterpret_cast<const char*>(p) - Block());
  }

  // The rest of the block begins the next one.
  void CarryOver(std::uint32_t from, std::uint32_t count) {
    NewBlock();
    std::memcpy(Block(), data_->blocks[data_->blocks.size() - 2].get() + from, count);
  }

  WQDR::DataReader& reader_;
  std::uint64_t remaining_;
  std::shared_ptr<SortableLinesData> data_;
};

}  // namespace

template <typename CharT>
std::shared_ptr<SortableLinesData> ReadLines(WQDR::DataReader& reader) {
  return LineLoader<CharT>(reader).Run();
}

namespace {

template <typename CharT>
std::shared_ptr<SortableLinesData> ReadLinesWithKeys(WQDR::DataReader& reader,
                                                     const SortLinesOptions& options) {
  auto data = ReadLines<CharT>(reader);
  ComputeSortKeys<CharT>(data->lines, options);
  return data;
}

template <typename CharT>
void SortRecords(std::vector<SortLine>& lines, const SortLinesOptions& options) {
  const LineRange range = MovableRange(lines, options);
  SortLineRange<CharT>(lines, range, options);
  if ((options.options & SortRemoveBlank) != 0) RemoveBlankLines(lines, range);
}

}  // namespace

template <typename CharT>
std::shared_ptr<SortableLinesData> LoadLines(WQDR::DataReader& reader, const SortLinesOptions& options) {
  auto data = ReadLinesWithKeys<CharT>(reader, options);
  SortRecords<CharT>(data->lines, options);
  return data;
}

template <typename CharT>
OrderedLines LoadOrderedLines(WQDR::DataReader& reader, const SortLinesOptions& options) {
  OrderedLines ordered = {ReadLinesWithKeys<CharT>(reader, options), std::nullopt};
  std::vector<SortLine>& lines = ordered.data->lines;
  const LineRange range = MovableRange(lines, options);
  ordered.order = FindLineOrder<CharT>(lines, range, options);
  if (!ordered.order) {
    SortRecords<CharT>(lines, options);
  } else if ((options.options & SortRemoveBlank) != 0) {
    RemoveBlankLines(*ordered.order, lines, range);
  }
  return ordered;
}

template std::shared_ptr<SortableLinesData> ReadLines<char>(WQDR::DataReader&);
template std::shared_ptr<SortableLinesData> ReadLines<WCHAR>(WQDR::DataReader&);
template std::shared_ptr<SortableLinesData> LoadLines<char>(WQDR::DataReader&, const SortLinesOptions&);
template std::shared_ptr<SortableLinesData> LoadLines<WCHAR>(WQDR::DataReader&, const SortLinesOptions&);
template OrderedLines LoadOrderedLines<char>(WQDR::DataReader&, const SortLinesOptions&);
template OrderedLines LoadOrderedLines<WCHAR>(WQDR::DataReader&, const SortLinesOptions&);

}  // namespace WQLineSorter
