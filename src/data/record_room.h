// Reserves memory for the records of lines while a text is loaded.
#pragma once

#include <algorithm>
#include <cstdint>
#include <new>
#include <vector>

namespace WQDR {

// The progress of a load, in bytes.
struct LoadProgress {
  std::uint64_t done;
  std::uint64_t left;
};

// Reserves room for at least one more record of a line. Doubling the capacity would copy the records several
// times, and a copy late in the load needs twice their memory. So this reserves the estimated number of lines
// of the rest of the text, from the lines so far, with a margin: memory that is not written to costs almost
// nothing. The first lines of a file may differ from the rest, so the growth by one call is limited.
template <typename Record>
void MakeRoomForLine(std::vector<Record>& records, const LoadProgress& progress) {
  if (records.size() < records.capacity()) return;
  constexpr double kMargin = 1.3;
  constexpr std::uint64_t kLargestStep = 16;
  const std::uint64_t count = records.size();
  const double meanLine =
      static_cast<double>(progress.done + 1) / static_cast<double>(std::max<std::uint64_t>(count, 1));
  constexpr double kMax = 1e18;
  const auto predicted =
      static_cast<std::uint64_t>(std::min(static_cast<double>(progress.left) / meanLine * kMargin, kMax));
  const std::uint64_t least = count / 8 + 16;
  const std::uint64_t wanted = std::max(std::min(predicted, count * kLargestStep), least);
  try {
    records.reserve(static_cast<std::size_t>(count + wanted));
  } catch (const std::bad_alloc&) {
    records.reserve(static_cast<std::size_t>(count + least));
  }
}

// Reserves room for the first lines of a text of `bytes` bytes, before any line has been read.
template <typename Record>
void ReserveFirstLines(std::vector<Record>& records, std::uint64_t bytes) {
  constexpr std::uint64_t kMeanLine = 60;  // assumed bytes of a line and its ending
  constexpr std::uint64_t kMaxAtFirst = 4096;
  records.reserve(static_cast<std::size_t>(std::min(bytes / kMeanLine, kMaxAtFirst)));
}

}  // namespace WQDR
