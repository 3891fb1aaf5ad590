// Splits the bytes of a reader into lines, for all text loaders: reads blocks of text, which never move in
// memory, and finds the lines in them. A line never spans two blocks: an incomplete line at the end of a
// block is copied to the next one.
//
// CharT is char or WCHAR.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <vector>

#include "data/data_reader.h"
#include "data/line_end_scan.h"
#include "data/line_ending.h"
#include "data/record_room.h"

namespace WQDR {

// The number of zero bytes after each block, for code that may read past the end of a line: the vector steps
// of the scan, the sorter's parsers of numbers and dates, and the check for LF after a CR. So a CR at the end
// of a block is a lone one, even if the next block begins with an LF (C-037).
constexpr std::uint32_t kBlockGuard = 32;

using TextBlock = std::unique_ptr<char[]>;  // block size + kBlockGuard bytes, with zeros after the data

// A line that the scan has found, without its ending.
template <typename CharT>
struct ScannedLine {
  const CharT* text;
  std::uint32_t length;     // bytes
  std::uint8_t endingSize;  // bytes of the ending; 0 for a lone CR, which separates lines and is not stored
  LineEnding ending;
};

// How to treat an odd byte at the end of a 16-bit text.
enum class OddByte {
  kPadded,   // a zero byte makes it the last character (C-103)
  kSeparate  // it is not part of the text (C-230)
};

template <typename CharT>
class LineReader {
 public:
  // Appends the blocks to `blocks`. A block contains only whole characters.
  LineReader(DataReader& reader, std::uint32_t blockSize, std::vector<TextBlock>& blocks, OddByte oddByte)
      : reader_(reader),
        blockSize_(blockSize - blockSize % static_cast<std::uint32_t>(sizeof(CharT))),
        remaining_(reader.size),
        blocks_(blocks),
        oddByte_(oddByte) {}

  // Calls `onLine(const ScannedLine<CharT>&, const LoadProgress&)` for each line, in order. Throws the
  // exceptions of the reader, and std::bad_alloc, also for a line that fills a block without being the end of
  // the text.
  template <typename OnLine>
  void ReadAll(OnLine&& onLine) {
    std::uint32_t carry = 0;
    if (blockSize_ == 0 && remaining_ != 0) throw std::bad_alloc();
    NewBlock();
    while (remaining_ != 0) {
      const std::uint32_t filled = Fill(carry);
      const std::uint32_t taken = Scan(filled, onLine);
      carry = filled - std::min(taken, filled);
      // The block is full and contains no line end, so no other block could hold the line either (C-038).
      if (carry == blockSize_) throw std::bad_alloc();
      if (remaining_ != 0) CarryOver(taken, carry);
    }
  }

  // Returns the odd byte at the end of the text for OddByte::kSeparate, if there is one.
  std::optional<char> SeparateByte() const { return separateByte_; }

 private:
  char* Block() const { return blocks_.back().get(); }

  void NewBlock() {
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(std::size_t{blockSize_} + kBlockGuard));
    if (remaining_ == 0) ClearFrom(0);
  }

  void ClearFrom(std::uint32_t offset) {
    std::memset(Block() + offset, 0, std::size_t{blockSize_} + kBlockGuard - offset);
  }

  // Fills the block after its first `carry` bytes, appends zeros, and returns the number of bytes that the
  // block contains. Throws if the reader ends before its size: the file has been truncated meanwhile, and the
  // rest must not be taken for the whole text.
  std::uint32_t Fill(std::uint32_t carry) {
    std::uint32_t filled = carry;
    // A reader may return fewer bytes than requested.
    while (remaining_ != 0 && filled < blockSize_) {
      std::uint32_t got = 0;
      const std::uint32_t toRead = blockSize_ - filled;
      reader_.Read(Block() + filled, toRead, &got);
      got = std::min(got, toRead);
      if (got == 0) throw WQDataReaderException(ERROR_HANDLE_EOF, "Failed to read file");
      remaining_ -= std::min<std::uint64_t>(got, remaining_);
      filled += got;
    }
    if (oddByte_ == OddByte::kSeparate && filled % sizeof(CharT) != 0) separateByte_ = Block()[--filled];
    ClearFrom(filled);
    return filled;
  }

  // Finds the lines that end in the block; after the last block has been read, the last line needs no line
  // end. Returns the number of bytes processed.
  template <typename OnLine>
  std::uint32_t Scan(std::uint32_t filled, OnLine&& onLine) {
    const auto* const block = reinterpret_cast<const CharT*>(Block());
    const CharT* const end = block + (filled + sizeof(CharT) - 1) / sizeof(CharT);
    const CharT* p = block;
    while (p < end) {
      const CharT* const q = FindLineEnd(p, end);
      if (q == end && remaining_ != 0) break;
      ScannedLine<CharT> line = {
          p, static_cast<std::uint32_t>(reinterpret_cast<const char*>(q) - reinterpret_cast<const char*>(p)),
          0, LineEnding::None};
      std::uint32_t units = 0;
      if (q == end) {
        // No ending.
      } else if (*q == '\n') {
        line.ending = LineEnding::Lf;
        units = 1;
      } else if (q[1] == '\n') {
        line.ending = LineEnding::CrLf;
        units = 2;
      }
      line.endingSize = static_cast<std::uint8_t>(units * sizeof(CharT));
      onLine(line, LoadProgress{reader_.size - remaining_,
                                remaining_ + static_cast<std::uint64_t>(end - p) * sizeof(CharT)});
      // A lone CR ends the line and is not stored (C-036).
      p = q == end ? end : q + std::max(units, 1U);
    }
    return static_cast<std::uint32_t>(reinterpret_cast<const char*>(p) - Block());
  }

  // Allocates the next block and copies the rest of the present one to its beginning.
  void CarryOver(std::uint32_t from, std::uint32_t count) {
    NewBlock();
    std::memcpy(Block(), blocks_[blocks_.size() - 2].get() + from, count);
  }

  DataReader& reader_;
  std::uint32_t blockSize_;
  std::uint64_t remaining_;
  std::vector<TextBlock>& blocks_;
  OddByte oddByte_;
  std::optional<char> separateByte_;
};

}  // namespace WQDR
