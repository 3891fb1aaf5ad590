#include "linesorter/engine/key_ranks.h"

#include <algorithm>
#include <utility>

#include "linesorter/engine/common_beginnings.h"
#include "linesorter/engine/key_copies.h"
#include "linesorter/engine/number_sort.h"
#include "linesorter/engine/prefetch.h"
#include "linesorter/engine/sort_keys.h"

namespace WQLineSorter {

namespace {

template <typename Keys>
class KeyRanker {
 public:
  KeyRanker(std::span<const SortLine> lines, const FoldRule& rule)
      : lines_(lines),
        rule_(rule),
        records_(lines.size()),
        sort_(lines.size()),
        copies_(std::min(lines.size(), kCopied)),
        toCopy_(copies_.size()) {}

  KeyRecords Run(bool& beginnings) {
    FindCommonBeginnings();
    const std::size_t empty = MakeRecords();
    SetRanks(0, empty, empty);
    for (segment_ = 0; segment_ < segments_.size(); ++segment_) {
      const Segment& segment = segments_[segment_];
      if (segment.common == NumberParts::kNone) {
        open_.push_back({segment.begin, segment.end, 0});
      } else {
        open_.push_back({segment.begin, segment.end, kStep<Keys> + commons_[segment.common].shared});
      }
      while (!open_.empty()) RankNext();
    }
    beginnings = beginnings_;
    return std::move(records_);
  }

 private:
  static constexpr std::uint32_t kCharSize = sizeof(typename Keys::Char);

  // So many keys are copied: the nearer caches hold them.
  static constexpr std::size_t kCopied = 8192;

  // How far ahead lines and texts are asked for.
  static constexpr std::size_t kLineAhead = 16;
  static constexpr std::size_t kTextAhead = 8;

  // Keys that are equal in their first `depth` characters and go on behind them, in the order of their next
  // characters, which stand in the records. Those before `next` have their ranks or are open themselves.
  struct OpenRange {
    std::size_t next;
    std::size_t end;
    std::uint32_t depth;
  };

  // The records of one common beginning, or those between two of them, with the keys' first characters.
  struct Segment {
    std::size_t begin;
    std::size_t end;
    std::size_t common;
  };

  KeyText<typename Keys::Char> KeyOfLine(std::size_t index) const {
    return KeyOf<typename Keys::Char>(lines_[index]);
  }

  // The first characters of a key that is not empty.
  std::uint64_t BeginningOf(const KeyText<typename Keys::Char>& key) const {
    return NextCharacters<Keys>(reinterpret_cast<const char*>(key.text), key.length, rule_);
  }

  static KeyRest Skip(const KeyRest& rest, std::uint32_t count) {
    return {rest.text + std::size_t{count} * kCharSize, rest.left - count};
  }

  static KeyRest RestOf(const KeyText<typename Keys::Char>& key, std::uint32_t depth) {
    return Skip({reinterpret_cast<const char*>(key.text), key.length}, depth);
  }

  KeyRest RestOfRecord(std::size_t record, std::uint32_t depth) const {
    return RestOf(KeyOfLine(records_[record].index), depth);
  }

  // How many characters `rest` shares with `other`, of the next `most`; it goes on behind them.
  std::uint32_t Shared(const KeyRest& rest, const KeyRest& other, std::uint32_t most) const {
    return SharedCharacters<Keys>(rest.text, other.text, std::min(most, rest.left - 1), rule_);
  }

  // Looks for beginnings that many of the keys have, if there are many keys.
  void FindCommonBeginnings() {
    constexpr std::size_t kFewLines = 4096;
    constexpr std::size_t kSamples = 2048;
    constexpr std::size_t kCommon = kSamples / 128;
    if (lines_.size() < kFewLines) return;
    std::vector<std::pair<std::uint64_t, std::size_t>> samples;
    samples.reserve(kSamples);
    for (std::size_t i = 0; i < kSamples; ++i) {
      const std::size_t line = lines_.size() / kSamples * i;
      const auto key = KeyOfLine(line);
      if (key.length > kStep<Keys>) samples.emplace_back(BeginningOf(key), line);
    }
    std::ranges::sort(samples);
    for (std::size_t begin = 0, end = 0; begin < samples.size(); begin = end) {
      const std::uint64_t number = samples[begin].first;
      while (end < samples.size() && samples[end].first == number) ++end;
      if (end - begin < kCommon || CountIn<Keys>(number) <= kStep<Keys>) continue;
      const KeyRest first = RestOf(KeyOfLine(samples[begin].second), kStep<Keys>);
      std::uint32_t shared = first.left;
      for (std::size_t i = begin; i < end; ++i) {
        shared = Shared(RestOf(KeyOfLine(samples[i].second), kStep<Keys>), first, shared);
      }
      commons_.push_back({number, first, shared});
    }
  }

  // Makes the records of all keys, in the order of their first characters. Answers the number of empty keys:
  // they come before all others; they begin them, but equal none. The records are written right into their
  // part, for which each key is read twice.
  std::size_t MakeRecords() {
    const NumberParts parts(commons_);
    std::size_t empty = 0;
    std::vector<std::size_t> next(parts.Count());
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      const auto key = KeyOfLine(i);
      ++(key.length == 0 ? empty : next[parts.PartOf(BeginningOf(key))]);
    }
    std::size_t begin = empty;
    for (std::size_t& place : next) begin += std::exchange(place, begin);
    const std::vector<CommonBeginning> foretold = commons_;
    std::size_t nextEmpty = 0;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      const auto key = KeyOfLine(i);
      if (key.length == 0) {
        records_[nextEmpty++].index = static_cast<std::uint32_t>(i);
        continue;
      }
      std::uint64_t number = BeginningOf(key);
      const std::size_t part = parts.PartOf(number);
      const std::size_t common = parts.CommonOf(part);
      KeyRecord& record = records_[next[part]++];
      if (common != NumberParts::kNone) {
        const KeyRest rest = RestOf(key, kStep<Keys>);
        std::uint32_t& shared = commons_[common].shared;
        shared = Shared(rest, commons_[common].first, shared);
        number = NextOf(Skip(rest, shared));
      }
      record.SetNumber(number);
      record.index = static_cast<std::uint32_t>(i);
    }
    begin = empty;
    for (std::size_t part = 0; part < next.size(); ++part) {
      const std::size_t end = next[part];
      const std::size_t common = parts.CommonOf(part);
      if (common != NumberParts::kNone && commons_[common].shared != foretold[common].shared) {
        LoadAgain(begin, end, kStep<Keys> + commons_[common].shared);
      }
      SortRecords(begin, end);
      AddSegment(begin, end, common);
      begin = end;
    }
    return empty;
  }

  void AddSegment(std::size_t begin, std::size_t end, std::size_t common) {
    if (begin == end) return;
    if (common == NumberParts::kNone && !segments_.empty() && segments_.back().common == common) {
      segments_.back().end = end;
    } else {
      segments_.push_back({begin, end, common});
    }
  }

  void SortRecords(std::size_t begin, std::size_t end) {
    sort_.Sort(std::span(records_).subspan(begin, end - begin));
  }

  // Gives equal keys their ranks; no key before `behind` comes behind them.
  void SetRanks(std::size_t begin, std::size_t end, std::size_t behind) {
    if (behind > end) beginnings_ = true;
    for (std::size_t i = begin; i < end; ++i) records_[i].SetRanks(begin, behind - 1);
  }

  // The next characters of a key as a number.
  std::uint64_t NextOf(const KeyRest& rest) const {
    return NextCharacters<Keys>(rest.text, rest.left, rule_);
  }

  // Opens keys that have the same next characters; `range` is where they stand.
  void Open(std::size_t begin, std::size_t end, OpenRange& range) {
    std::uint32_t depth = range.depth + kStep<Keys>;
    if (isCopied_) {
      OpenCopied(begin, end, depth);
    } else if (end - begin <= copies_.size()) {
      range.next = EndOfCopied(end, begin + copies_.size(), range);
      RankCopied(begin, range.next, range.depth);
    } else {
      depth += LoadMany(begin, end, depth);
      SortRecords(begin, end);
      open_.push_back({begin, end, depth});
    }
  }

  // The first place behind `begin`, at most `limit`, at which a range can be cut between two numbers.
  std::size_t EndOfCopied(std::size_t begin, std::size_t limit, const OpenRange& range) const {
    if (limit >= range.end) return range.end;
    while (limit > begin && records_[limit - 1].Number() == records_[limit].Number()) --limit;
    return limit;
  }

  // Loads the next characters of keys behind those that all of them share, and answers how many these are.
  // The keys are best looked at once, so some of them foretell what all share. Where one of the others shares
  // less, all are looked at again.
  std::uint32_t LoadMany(std::size_t begin, std::size_t end, std::uint32_t depth) {
    constexpr std::size_t kSamples = 8;
    const KeyRest first = RestOfRecord(begin, depth);
    std::uint32_t foretold = first.left;
    for (std::size_t i = 1; i <= kSamples; ++i) {
      foretold = Shared(RestOfRecord(begin + (end - 1 - begin) / kSamples * i, depth), first, foretold);
    }
    std::uint32_t shared = foretold;
    VisitRests(begin, end, depth, [&](KeyRecord& record, const KeyRest& rest) {
      shared = Shared(rest, first, shared);
      record.SetNumber(NextOf(Skip(rest, shared)));
    });
    if (shared != foretold) LoadAgain(begin, end, depth + shared);
    return shared;
  }

  void LoadAgain(std::size_t begin, std::size_t end, std::uint32_t depth) {
    VisitRests(begin, end, depth,
               [this](KeyRecord& record, const KeyRest& rest) { record.SetNumber(NextOf(rest)); });
  }

  // Hands each record with what is left of its key to `visit`.
  template <typename Visit>
  void VisitRests(std::size_t begin, std::size_t end, std::uint32_t depth, Visit visit) {
    for (std::size_t i = begin; i < end; ++i) {
      if (i + kLineAhead < end) {
        Prefetch(&lines_[records_[i + kLineAhead].index]);
        PrefetchRest(records_[i + kTextAhead].index, depth);
      }
      visit(records_[i], RestOfRecord(i, depth));
    }
  }

  void PrefetchRest(std::size_t index, std::uint32_t depth) const {
    const SortLine& line = lines_[index];
    const auto text = reinterpret_cast<std::uintptr_t>(line.text) + line.keyOffset;
    Prefetch(reinterpret_cast<const void*>(text + std::size_t{depth} * kCharSize));
  }

  // Ranks a part of an open range by copies of its keys. Until they have their ranks, the records tell the
  // copies in place of the lines.
  void RankCopied(std::size_t begin, std::size_t end, std::uint32_t depth) {
    std::size_t copied = 0;
    for (std::size_t i = begin; i < end; ++i) {
      const auto copy = static_cast<std::uint32_t>(i - begin);
      copies_[copy].index = std::exchange(records_[i].index, copy);
      const bool isAlone = (i == begin || records_[i - 1].Number() != records_[i].Number()) &&
                           (i + 1 == end || records_[i + 1].Number() != records_[i].Number());
      if (!isAlone && CountIn<Keys>(records_[i].Number()) > kStep<Keys>) toCopy_[copied++] = copy;
    }
    copiedDepth_ = depth + kStep<Keys>;
    for (std::size_t i = 0; i < copied; ++i) {
      if (i + kLineAhead < copied) {
        Prefetch(&lines_[copies_[toCopy_[i + kLineAhead]].index]);
        PrefetchRest(copies_[toCopy_[i + kTextAhead]].index, copiedDepth_);
      }
      KeyCopy& copy = copies_[toCopy_[i]];
      copy.Take(RestOf(KeyOfLine(copy.index), copiedDepth_), kCharSize);
    }
    isCopied_ = true;
    const std::size_t outer = open_.size();
    open_.push_back({begin, end, depth});
    while (open_.size() > outer) RankNext();
    isCopied_ = false;
    for (std::size_t i = begin; i < end; ++i) records_[i].index = copies_[records_[i].index].index;
  }

  const KeyCopy& CopyOf(std::size_t record) const { return copies_[records_[record].index]; }

  // As RestOfRecord, of a key that is copied.
  KeyRest RestOfCopied(std::size_t record, std::uint32_t depth) const {
    return CopyOf(record).Rest(depth - copiedDepth_, kCharSize);
  }

  // How many characters two copied keys share behind `depth`, of the next `most`, which both have.
  std::uint32_t SharedByCopied(std::size_t left, std::size_t right, std::uint32_t depth,
                               std::uint32_t most) const {
    const std::uint32_t skipped = depth - copiedDepth_;
    const std::uint32_t copied = std::min(most, KeyCopy::Room(skipped, kCharSize));
    std::uint32_t shared = 0;
    if (copied != 0) {
      shared = SharedCharacters<Keys>(CopyOf(left).bytes + skipped * kCharSize,
                                      CopyOf(right).bytes + skipped * kCharSize, copied, rule_);
      if (shared < copied || copied == most) return shared;
    }
    return copied + SharedCharacters<Keys>(Skip(CopyOf(left).rest, skipped + copied).text,
                                           Skip(CopyOf(right).rest, skipped + copied).text, most - copied,
                                           rule_);
  }

  void OpenCopied(std::size_t begin, std::size_t end, std::uint32_t depth) {
    std::uint32_t shared = RestOfCopied(begin, depth).left - 1;
    for (std::size_t i = begin + 1; i < end && shared != 0; ++i) {
      shared = SharedByCopied(i, begin, depth, std::min(shared, RestOfCopied(i, depth).left - 1));
    }
    depth += shared;
    for (std::size_t i = begin; i < end; ++i) records_[i].SetNumber(NextOf(RestOfCopied(i, depth)));
    SortRecords(begin, end);
    open_.push_back({begin, end, depth});
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
    const unsigned count = CountIn<Keys>(number);
    if (count <= kStep<Keys>) {
      SetRanks(begin, end, Keys::kEqualsBeginning ? BehindExtensions(range, number, count) : end);
    } else if (end - begin == 1) {
      SetRanks(begin, end, end);
    } else {
      Open(begin, end, range);
    }
  }

  // Where the keys end, from range.next on, that begin with the first `count` characters of `number`.
  std::size_t BehindExtensions(const OpenRange& range, std::uint64_t number, unsigned count) const {
    const auto begins = [&](std::uint64_t other) { return ((other ^ number) & ~Behind<Keys>(count)) == 0; };
    const auto behindIn = [&](std::size_t first, std::size_t last) {
      const auto recordBegins = [&](const KeyRecord& record) { return begins(record.Number()); };
      std::size_t step = 1;
      while (step <= last - first && recordBegins(records_[first + step - 1])) {
        first += step;
        step *= 2;
      }
      const KeyRecord* const known = records_.data() + first;
      const KeyRecord* const limit = known + std::min(step, last - first);
      return static_cast<std::size_t>(std::partition_point(known, limit, recordBegins) - records_.data());
    };
    std::size_t behind = behindIn(range.next, range.end);
    // A part of a range that is ranked by copies goes on in the range.
    if (open_.size() > 1) {
      const OpenRange& outer = open_[open_.size() - 2];
      if (behind == outer.next && range.depth == outer.depth) behind = behindIn(behind, outer.end);
    }
    if (range.depth != 0) return behind;
    // The keys that end at once are followed by all that lies behind, each segment in its way.
    for (std::size_t i = segment_ + 1; i < segments_.size() && behind == segments_[i].begin; ++i) {
      const Segment& segment = segments_[i];
      if (segment.common == NumberParts::kNone) {
        behind = behindIn(segment.begin, segment.end);
      } else if (begins(commons_[segment.common].number)) {
        behind = segment.end;
      }
    }
    return behind;
  }

  std::span<const SortLine> lines_;
  const FoldRule& rule_;
  KeyRecords records_;
  NumberSort sort_;
  std::vector<CommonBeginning> commons_;
  std::vector<Segment> segments_;
  std::size_t segment_ = 0;      // the one that is ranked now
  std::vector<OpenRange> open_;  // as many as a key has steps at most
  KeyCopies copies_;
  std::vector<std::uint32_t> toCopy_;  // those of the copies that are needed
  bool isCopied_ = false;              // the records of the open ranges tell copies
  std::uint32_t copiedDepth_ = 0;
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
