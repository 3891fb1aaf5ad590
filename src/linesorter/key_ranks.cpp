#include "linesorter/key_ranks.h"

#include <algorithm>
#include <array>
#include <utility>

#include "linesorter/number_sort.h"
#include "linesorter/prefetch.h"
#include "linesorter/sort_keys.h"

namespace WQLineSorter {

namespace {

template <typename Keys>
class KeyRanker {
 public:
  KeyRanker(std::span<const SortLine> lines, const FoldRule& rule)
      : lines_(lines), rule_(rule), records_(lines.size()), sort_(lines.size()) {}

  KeyRecords Run(bool& beginnings) {
    const std::size_t empty = MakeRecords();
    SetRanks(0, empty, empty);
    if (empty < records_.size()) open_.push_back({empty, records_.size(), 0});
    while (!open_.empty()) RankNext();
    beginnings = beginnings_;
    return std::move(records_);
  }

 private:
  // Keys that are equal in their first `depth` characters and go on behind them, in the order of their next
  // characters, which stand in the records. Those before `next` have their ranks or are open themselves.
  struct OpenRange {
    std::size_t next;
    std::size_t end;
    std::uint32_t depth;
  };

  KeyText<typename Keys::Char> KeyOfLine(std::size_t index) const {
    return KeyOf<typename Keys::Char>(lines_[index]);
  }

  // The first characters of a key that is not empty.
  std::uint64_t BeginningOf(const KeyText<typename Keys::Char>& key) const {
    return NextCharacters<Keys>(reinterpret_cast<const char*>(key.text), key.length, rule_);
  }

  // Makes the records of all keys, in the order of their first characters. Answers the number of empty keys:
  // they come before all others; they begin them, but equal none. The records are written right into the part
  // of their highest digit, for which each key is read twice.
  std::size_t MakeRecords() {
    std::size_t empty = 0;
    std::array<std::size_t, kDigits> next = {};
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      const auto key = KeyOfLine(i);
      ++(key.length == 0 ? empty : next[HighestDigit(BeginningOf(key))]);
    }
    std::size_t begin = empty;
    for (std::size_t& place : next) begin += std::exchange(place, begin);
    std::size_t nextEmpty = 0;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      const auto key = KeyOfLine(i);
      const std::uint64_t number = key.length == 0 ? 0 : BeginningOf(key);
      KeyRecord& record = records_[key.length == 0 ? nextEmpty++ : next[HighestDigit(number)]++];
      record.SetNumber(number);
      record.index = static_cast<std::uint32_t>(i);
    }
    begin = empty;
    for (const std::size_t end : next) {
      sort_.Sort(std::span(records_).subspan(begin, end - begin));
      begin = end;
    }
    return empty;
  }

  // Gives equal keys their ranks; no key before `behind` comes behind them.
  void SetRanks(std::size_t begin, std::size_t end, std::size_t behind) {
    if (behind > end) beginnings_ = true;
    for (std::size_t i = begin; i < end; ++i) records_[i].SetRanks(begin, behind - 1);
  }

  void Open(std::size_t begin, std::size_t end, std::uint32_t depth) {
    // As long as all keys go on alike, there is nothing to sort.
    while (Load(begin, end, depth)) depth += kStep<Keys>;
    sort_.Sort(std::span(records_).subspan(begin, end - begin));
    open_.push_back({begin, end, depth});
  }

  // Loads the next characters of the keys. True if they are the same for all, and all go on.
  bool Load(std::size_t begin, std::size_t end, std::uint32_t depth) {
    constexpr std::size_t kAhead = 8;
    const std::size_t offset = std::size_t{depth} * sizeof(typename Keys::Char);
    std::uint64_t first = 0;
    std::uint64_t differences = 0;
    for (std::size_t i = begin; i < end; ++i) {
      if (i + 2 * kAhead < end) {
        Prefetch(&lines_[records_[i + 2 * kAhead].index]);
        PrefetchText(i + kAhead, offset);
      }
      const auto key = KeyOfLine(records_[i].index);
      const std::uint64_t number =
          NextCharacters<Keys>(reinterpret_cast<const char*>(key.text) + offset, key.length - depth, rule_);
      records_[i].SetNumber(number);
      if (i == begin) first = number;
      differences |= first ^ number;
    }
    return differences == 0 && CountIn<Keys>(first) > kStep<Keys>;
  }

  // Asks for the text of a record's key, so many bytes behind its beginning.
  void PrefetchText(std::size_t record, std::size_t offset) const {
    const SortLine& line = lines_[records_[record].index];
    Prefetch(
        reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(line.text) + line.keyOffset + offset));
  }

  // Asks for the lines and texts of keys some places on, `count` of them at most: the small groups that are
  // opened one after the other have none of them at hand.
  void PrefetchBehind(const OpenRange& range, std::size_t count) const {
    constexpr std::size_t kLineAhead = 16;
    constexpr std::size_t kTextAhead = 8;
    constexpr std::size_t kMost = 4;
    const std::size_t last = std::min(range.next + std::min(count, kMost) + kLineAhead, range.end);
    for (std::size_t i = range.next + kLineAhead; i < last; ++i) {
      Prefetch(&lines_[records_[i].index]);
      PrefetchText(i - kLineAhead + kTextAhead, std::size_t{range.depth} * sizeof(typename Keys::Char));
    }
  }

  // Ranks the next keys of the innermost open range that have the same next characters, or opens them in
  // turn.
  void RankNext() {
    OpenRange& range = open_.back();
    if (range.next == range.end) {
      open_.pop_back();
      return;
    }
    const std::size_t begin = range.next;
    const std::uint64_t number = records_[begin].Number();
    std::size_t end = begin + 1;
    while (end < range.end && records_[end].Number() == number) ++end;
    range.next = end;
    PrefetchBehind(range, end - begin);
    const unsigned count = CountIn<Keys>(number);
    if (count <= kStep<Keys>) {
      SetRanks(begin, end, Keys::kEqualsBeginning ? BehindExtensions(range, number, count) : end);
    } else if (end - begin == 1) {
      SetRanks(begin, end, end);
    } else {
      Open(begin, end, range.depth + kStep<Keys>);
    }
  }

  // Where the keys end, from range.next on, that begin with the first `count` characters of `number`.
  std::size_t BehindExtensions(const OpenRange& range, std::uint64_t number, unsigned count) const {
    const auto begins = [&](const KeyRecord& record) {
      return ((record.Number() ^ number) & ~Behind<Keys>(count)) == 0;
    };
    const KeyRecord* known = records_.data() + range.next;
    const KeyRecord* const end = records_.data() + range.end;
    std::ptrdiff_t step = 1;
    while (step <= end - known && begins(known[step - 1])) {
      known += step;
      step *= 2;
    }
    const KeyRecord* const limit = known + std::min(step, end - known);
    return static_cast<std::size_t>(std::partition_point(known, limit, begins) - records_.data());
  }

  std::span<const SortLine> lines_;
  const FoldRule& rule_;
  KeyRecords records_;
  NumberSort sort_;
  std::vector<OpenRange> open_;  // as many as a key has steps at most
  bool beginnings_ = false;
};

}  // namespace

template <typename Keys>
KeyRecords RankKeys(std::span<const SortLine> lines, const FoldRule& rule, bool& beginnings) {
  return KeyRanker<Keys>(lines, rule).Run(beginnings);
}

template KeyRecords RankKeys<ByteKeys>(std::span<const SortLine>, const FoldRule&, bool&);
template KeyRecords RankKeys<UnitKeys>(std::span<const SortLine>, const FoldRule&, bool&);

}  // namespace WQLineSorter
