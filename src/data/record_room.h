// Room for the records of lines while a text is loaded.
#pragma once

#include <algorithm>
#include <cstdint>
#include <new>
#include <vector>

namespace WQDR {

// How far a load has come, in bytes.
struct LoadProgress {
  std::uint64_t done;
  std::uint64_t left;
};

// Makes room for one more record of a line. Doubling would copy the records several times, and a copy late in
// the load takes twice their memory. So the growth follows what the lines so far foretell, with a margin:
// memory that is not written to costs next to nothing. The first lines of a file may be of another kind than
// the rest, so few lines foretell only some more.
template <typename Record>
void MakeRoomForLine(std::vector<Record>& records, const LoadProgress& progress) {
  if (records.size() < records.capacity()) return;
  constexpr double kMargin = 1.3;
  constexpr std::uint64_t kLargestStep = 16;
  const std::uint64_t count = records.size();
  const double meanLine =
      static_cast<double>(progress.done + 1) / static_cast<double>(std::max<std::uint64_t>(count, 1));
  constexpr double kMost = 1e18;
  const auto foretold =
      static_cast<std::uint64_t>(std::min(static_cast<double>(progress.left) / meanLine * kMargin, kMost));
  const std::uint64_t least = count / 8 + 16;
  const std::uint64_t wanted = std::max(std::min(foretold, count * kLargestStep), least);
  try {
    records.reserve(static_cast<std::size_t>(count + wanted));
  } catch (const std::bad_alloc&) {
    records.reserve(static_cast<std::size_t>(count + least));
  }
}

// Makes room for the first lines of a text of `bytes`, before the first of them is known.
template <typename Record>
void ReserveFirstLines(std::vector<Record>& records, std::uint64_t bytes) {
  constexpr std::uint64_t kMeanLine = 60;  // assumed bytes of a line and its ending
  constexpr std::uint64_t kMostAtFirst = 4096;
  records.reserve(static_cast<std::size_t>(std::min(bytes / kMeanLine, kMostAtFirst)));
}

}  // namespace WQDR
