#include "linesorter/engine/number_sort.h"

#include <algorithm>
#include <array>
#include <bit>
#include <new>
#include <utility>

namespace WQLineSorter {

namespace {

// With fewer records than this, sorting by comparison is faster than counting digits.
constexpr std::size_t kMinRecords = 200;

using Places = std::array<std::size_t, kDigits>;

unsigned DigitAt(const KeyRecord& record, unsigned shift) {
  return static_cast<unsigned>(record.Number() >> shift) & (kDigits - 1);
}

// Moves each record into the part of its digit. On entry, `next` contains the beginnings of the parts, on
// return their ends.
void DistributeInPlace(std::span<KeyRecord> records, unsigned shift, Places& next) {
  Places ends = next;
  std::shift_left(ends.begin(), ends.end(), 1);
  ends.back() = records.size();
  for (unsigned part = 0; part < kDigits; ++part) {
    for (; next[part] < ends[part]; ++next[part]) {
      KeyRecord& record = records[next[part]];
      for (unsigned own = DigitAt(record, shift); own != part; own = DigitAt(record, shift)) {
        std::swap(record, records[next[own]++]);
      }
    }
  }
}

// Same with a buffer as large as the records; keeps the order of the records in each part.
void DistributeThrough(KeyRecord* buffer, std::span<KeyRecord> records, unsigned shift, Places& next) {
  for (const KeyRecord& record : records) buffer[next[DigitAt(record, shift)]++] = record;
  std::copy_n(buffer, records.size(), records.begin());
}

}  // namespace

NumberSort::NumberSort(std::size_t count) : room_(count / 2), buffer_(new (std::nothrow) KeyRecord[room_]) {
  if (!buffer_) room_ = 0;
}

void NumberSort::Sort(std::span<KeyRecord> records) const {
  if (records.size() < kMinRecords) {
    std::ranges::sort(records,
                      [](const KeyRecord& a, const KeyRecord& b) { return a.Number() < b.Number(); });
    return;
  }
  std::uint64_t differences = 0;
  for (const KeyRecord& record : records) differences |= record.Number() ^ records[0].Number();
  if (differences == 0) return;
  const auto highest = static_cast<unsigned>(std::bit_width(differences));
  SortByDigits(records, highest > kDigitBits ? highest - kDigitBits : 0);
}

void NumberSort::SortByDigits(std::span<KeyRecord> records, unsigned shift) const {
  Places next = {};
  for (const KeyRecord& record : records) ++next[DigitAt(record, shift)];
  std::size_t begin = 0;
  for (std::size_t& place : next) begin += std::exchange(place, begin);
  if (records.size() <= room_) {
    DistributeThrough(buffer_.get(), records, shift, next);
  } else {
    DistributeInPlace(records, shift, next);
  }
  begin = 0;
  for (const std::size_t end : next) {
    Sort(records.subspan(begin, end - begin));
    begin = end;
  }
}

}  // namespace WQLineSorter
