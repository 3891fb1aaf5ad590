// Compares the sort of lines with a reference: the same rules as loops over bytes, in a stable sort of
// records.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "linesorter/engine/line_sort.h"
#include "linesorter/engine/sort_keys.h"
#include "linesorter/line_records.h"
#include "support/random_cases.h"
#include "support/random_numbers.h"

using namespace WQLineSorter;

namespace {

template <typename CharT>
using Text = std::basic_string<CharT>;

// --- the reference

// Folds only the letters of the alphabets below; other units have no case there.
unsigned FoldByte(unsigned byte) { return byte >= 'A' && byte <= 'Z' ? byte + 32 : byte; }
unsigned FoldUnit(unsigned unit) {
  if (unit >= 'a' && unit <= 'z') return unit - 32;
  if (unit >= 0xE0 && unit <= 0xFE && unit != 0xF7) return unit - 32;
  return unit == 0xFF ? 0x178 : unit;
}

// The start of the key, and its length in characters.
struct PlainKey {
  const unsigned char* bytes;
  std::size_t length;
};
PlainKey KeyOfBytes(const SortLine& line) {
  const auto* const text = reinterpret_cast<const unsigned char*>(line.text);
  if (line.keyOffset > line.length) return {text, 0};
  return {text + line.keyOffset, line.keyLength != 0 ? line.keyLength : line.length - line.keyOffset};
}
PlainKey KeyOfUnits(const SortLine& line) {
  const PlainKey key = KeyOfBytes(line);
  return {key.bytes, key.length / 2};
}

bool BytesBefore(const SortLine& lhs, const SortLine& rhs, bool ignoreCase) {
  const PlainKey left = KeyOfBytes(lhs);
  const PlainKey right = KeyOfBytes(rhs);
  if (left.length == 0 || right.length == 0) return left.length == 0 && right.length != 0;
  for (std::size_t i = 0; i < left.length && i < right.length; ++i) {
    const unsigned l = ignoreCase ? FoldByte(left.bytes[i]) : left.bytes[i];
    const unsigned r = ignoreCase ? FoldByte(right.bytes[i]) : right.bytes[i];
    if (l != r) return l < r;
    if (l == 0) return false;
  }
  return false;
}

bool UnitsBefore(const SortLine& lhs, const SortLine& rhs, bool ignoreCase) {
  const PlainKey left = KeyOfUnits(lhs);
  const PlainKey right = KeyOfUnits(rhs);
  for (std::size_t i = 0; i < left.length && i < right.length; ++i) {
    const unsigned l = left.bytes[2 * i] + left.bytes[2 * i + 1] * 0x100u;
    const unsigned r = right.bytes[2 * i] + right.bytes[2 * i + 1] * 0x100u;
    const unsigned foldedLeft = ignoreCase ? FoldUnit(l) : l;
    const unsigned foldedRight = ignoreCase ? FoldUnit(r) : r;
    if (foldedLeft != foldedRight) return foldedLeft < foldedRight;
  }
  return left.length < right.length;
}

template <typename CharT>
void SortByThePlainRule(std::vector<SortLine>& lines, LineRange range, const SortLinesOptions& options) {
  const bool ignoreCase = (options.options & SortIgnoreCase) != 0;
  const auto first = lines.begin() + static_cast<std::ptrdiff_t>(range.first);
  const auto last = lines.begin() + static_cast<std::ptrdiff_t>(range.last);
  std::stable_sort(first, last, [&](const SortLine& lhs, const SortLine& rhs) {
    if ((options.options & (SortAsNumber | SortAsDate)) != 0) return lhs.numericKey < rhs.numericKey;
    return sizeof(CharT) == 1 ? BytesBefore(lhs, rhs, ignoreCase) : UnitsBefore(lhs, rhs, ignoreCase);
  });
  if ((options.options & SortReverse) != 0) std::reverse(first, last);
}

// --- lines that are hard to sort

template <typename CharT>
std::vector<Text<CharT>> Alphabets() {
  std::vector<Text<CharT>> alphabets;
  for (const std::string_view narrow :
       {std::string_view("a"), std::string_view("ab"), std::string_view("aAb"), std::string_view("a\0b", 3),
        std::string_view("\xFF\x80"
                         "a"),
        std::string_view("aA_"), std::string_view("aAz[Z`{@_"), std::string_view("\0", 1),
        std::string_view("\0\xFF", 2), std::string_view("\x7F\x80"),
        std::string_view("\xE4\xC4"
                         "a")}) {
    alphabets.push_back(In<CharT>(narrow));
  }
  if constexpr (sizeof(CharT) == 2) {
    alphabets.push_back({0xD83D, 0xFFFF, 0x8000});
    alphabets.push_back({'a', 0x8000, 0});
  }
  return alphabets;
}

template <typename CharT>
Text<CharT> Letters(RandomNumbers& random, const Text<CharT>& alphabet, std::size_t count) {
  Text<CharT> text(count, CharT());
  for (CharT& letter : text) letter = alphabet[random(alphabet.size())];
  return text;
}

enum Shape {
  kAnyLengths,
  kSharedPrefixes,
  kPrefixesOfOne,
  kFewTexts,
  kZeroAtEachPlace,
  kInOrder,
  kShapeCount
};

// Lengths of common prefixes at which wide comparison steps end, and their neighbours.
const std::vector<std::size_t> kPrefixLengths = {0, 3, 4, 5, 7, 8, 9, 12, 15, 16, 17, 23, 24, 25, 31, 32, 33};

template <typename CharT>
std::vector<Text<CharT>> MakeTexts(RandomNumbers& random, Shape shape, const Text<CharT>& alphabet,
                                   std::size_t count) {
  const Text<CharT> one = Letters(random, alphabet, 41);
  const std::size_t shared = random.Of(kPrefixLengths);
  std::vector<Text<CharT>> few;
  for (int i = 0; i < 3; ++i) few.push_back(Letters(random, alphabet, random(41)));
  std::vector<Text<CharT>> texts;
  while (texts.size() < count) {
    switch (shape) {
      case kSharedPrefixes:
        texts.push_back(one.substr(0, shared) + Letters(random, alphabet, random(4)));
        break;
      case kPrefixesOfOne:
        texts.push_back(one.substr(0, random(42)));
        break;
      case kFewTexts:
        texts.push_back(few[random(few.size())]);
        break;
      case kZeroAtEachPlace:
        texts.push_back(one);
        texts.back()[random(41)] = CharT();
        texts.back().resize(random(42));
        break;
      default:
        texts.push_back(Letters(random, alphabet, random(41)));
        break;
    }
  }
  if (shape == kInOrder) {
    std::sort(texts.begin(), texts.end());
    if (random.Coin()) std::reverse(texts.begin(), texts.end());
  }
  return texts;
}

enum KeyKind { kEntireLine, kSubstring, kSubstringToChar, kItem, kMadeUp, kKeyKindCount };

// Sets any key that lies inside its line, or starts after it and is empty.
template <typename CharT>
void MakeUpKey(RandomNumbers& random, SortLine& line) {
  const std::uint32_t bytes = line.length;
  line.keyOffset = random(bytes + 3);
  line.keyLength = 0;
  if (line.keyOffset < bytes && random.Coin()) line.keyLength = random(bytes - line.keyOffset + 1);
}

struct Case {
  SortLinesOptions options;
  KeyKind kind;
};

template <typename CharT>
Case MakeCase(RandomNumbers& random, KeyKind kind, const Text<CharT>& alphabet) {
  Case made{{}, kind};
  SortLinesOptions& options = made.options;
  if (random.Coin()) options.options |= SortIgnoreCase;
  if (random(4) == 0) options.options |= SortReverse;
  const CharT separator = alphabet[random(alphabet.size())];
  options.matchChar = static_cast<std::uint16_t>(separator);
  options.matchCharA = static_cast<std::uint8_t>(separator);
  if (random.Coin()) options.lineOffset = random(12);
  switch (kind) {
    case kEntireLine:
      options.options |= SortByLine;
      if (random(4) != 0) options.lineOffset = 0;
      break;
    case kSubstring:
      options.options |= SortBySubstring;
      options.subStringLen = random(20);
      break;
    case kSubstringToChar:
      options.options |= SortBySubstring | SortEndAtChar;
      break;
    case kItem:
      options.options |= SortByItem;
      options.lineItem = random(4);
      break;
    default:
      options.options |= SortBySubstring;
      break;
  }
  if (random(4) == 0) {
    options.keepLinesTop = random(4);
    options.keepLinesBottom = random(4);
  }
  return made;
}

template <typename CharT>
void PrepareKeys(RandomNumbers& random, std::vector<SortLine>& lines, const Case& made) {
  if (made.kind != kMadeUp) return ComputeSortKeys<CharT>(lines, made.options);
  for (SortLine& line : lines) MakeUpKey<CharT>(random, line);
}

// --- the comparison of results

bool SameRecord(const SortLine& lhs, const SortLine& rhs) {
  return lhs.text == rhs.text && lhs.length == rhs.length && lhs.endingSize == rhs.endingSize &&
         lhs.endingKind == rhs.endingKind && lhs.keyOffset == rhs.keyOffset &&
         lhs.keyLength == rhs.keyLength && lhs.numericKey == rhs.numericKey;
}

// Returns the index of the first difference, or the number of lines if they are equal.
std::size_t FirstDifference(const std::vector<SortLine>& lhs, const std::vector<SortLine>& rhs) {
  const auto [left, right] = std::mismatch(lhs.begin(), lhs.end(), rhs.begin(), rhs.end(), SameRecord);
  return left == lhs.end() && right == rhs.end() ? lhs.size() : static_cast<std::size_t>(left - lhs.begin());
}

template <typename CharT>
void ExpectTheSameOrder(const std::vector<SortLine>& lines, const SortLinesOptions& options) {
  const LineRange range = MovableRange(lines, options);
  std::vector<SortLine> expected = lines;
  SortByThePlainRule<CharT>(expected, range, options);
  std::vector<SortLine> plain = lines;
  SortLineRangeReference<CharT>(plain, range, options);
  EXPECT_EQ(FirstDifference(plain, expected), lines.size()) << "the rule itself";
  std::vector<SortLine> sorted = lines;
  SortLineRange<CharT>(sorted, range, options);
  EXPECT_EQ(FirstDifference(sorted, expected), lines.size()) << "the fast way";
  const std::optional<LineOrder> order = FindLineOrder<CharT>(lines, range, options);
  ASSERT_EQ(order.has_value(), range.last - range.first >= 64) << "the order alone";
  if (!order) return;
  std::vector<SortLine> ordered;
  for (const std::uint32_t place : *order) ordered.push_back(lines.at(place));
  ASSERT_EQ(ordered.size(), lines.size());
  EXPECT_EQ(FirstDifference(ordered, expected), lines.size()) << "the order alone";
}

const std::vector<std::size_t> kSizes = {0, 1, 2, 3, 7, 8, 15, 16, 17, 31, 32, 33, 100};

template <typename CharT>
class LineSortDifferential : public testing::Test {
 protected:
  // Sorts and compares one set of lines and keys.
  static void Run(std::uint32_t seed, Shape shape, KeyKind kind, const Text<CharT>& alphabet,
                  std::size_t size) {
    RandomNumbers random(seed);
    LineRecords<CharT> records(MakeTexts(random, shape, alphabet, size));
    const Case made = MakeCase(random, kind, alphabet);
    PrepareKeys<CharT>(random, records.lines, made);
    SCOPED_TRACE("seed " + std::to_string(seed) + ", shape " + std::to_string(shape) + ", key " +
                 std::to_string(kind) + ", size " + std::to_string(size));
    ExpectTheSameOrder<CharT>(records.lines, made.options);
  }
};
TYPED_TEST_SUITE(LineSortDifferential, BothWidths);

}  // namespace

TYPED_TEST(LineSortDifferential, EveryShapeKeyAlphabetAndSmallSize) {
  std::uint32_t seed = 1;
  for (const auto& alphabet : Alphabets<TypeParam>()) {
    for (int shape = 0; shape < kShapeCount; ++shape) {
      for (int kind = 0; kind < kKeyKindCount; ++kind) {
        for (const std::size_t size : kSizes) {
          this->Run(seed++, static_cast<Shape>(shape), static_cast<KeyKind>(kind), alphabet, size);
          if (this->HasFailure()) return;
        }
      }
    }
  }
}

TYPED_TEST(LineSortDifferential, AThousandLinesOfEveryShapeAndKey) {
  const auto alphabets = Alphabets<TypeParam>();
  std::uint32_t seed = 100000;
  for (int shape = 0; shape < kShapeCount; ++shape) {
    for (int kind = 0; kind < kKeyKindCount; ++kind) {
      for (int repeat = 0; repeat < 2; ++repeat, ++seed) {
        this->Run(seed, static_cast<Shape>(shape), static_cast<KeyKind>(kind),
                  alphabets[seed % alphabets.size()], 1000);
        if (this->HasFailure()) return;
      }
    }
  }
}

TYPED_TEST(LineSortDifferential, FiftyThousandLines) {
  this->Run(200000, kSharedPrefixes, kEntireLine, In<TypeParam>("aAb"), 50000);
  this->Run(200001, kAnyLengths, kMadeUp, In<TypeParam>(std::string_view("a\0b", 3)), 50000);
}

TYPED_TEST(LineSortDifferential, KeysOfEveryLengthOfOneLetter) {
  for (const std::uint32_t bits : {0u, +SortIgnoreCase, +SortReverse}) {
    std::vector<Text<TypeParam>> texts;
    RandomNumbers random(7);
    for (std::size_t length = 0; length <= 40; ++length) {
      for (const char letter : {'a', 'A', '_'})
        texts.push_back(Text<TypeParam>(length, static_cast<TypeParam>(letter)));
    }
    for (std::size_t i = texts.size(); i > 1; --i) std::swap(texts[i - 1], texts[random(i)]);
    LineRecords<TypeParam> records(texts);
    SortLinesOptions options;
    options.options = SortByLine | bits;
    ExpectTheSameOrder<TypeParam>(records.lines, options);
  }
}

TYPED_TEST(LineSortDifferential, PairsThatDifferAtEachPlaceOrEndThere) {
  const auto alphabets = Alphabets<TypeParam>();
  RandomNumbers random(11);
  for (const auto& alphabet : alphabets) {
    for (std::size_t place = 0; place <= 40; ++place) {
      const auto shared = Letters(random, alphabet, place);
      std::vector<Text<TypeParam>> texts;
      for (int i = 0; i < 6; ++i) texts.push_back(shared + Letters(random, alphabet, random(3)));
      LineRecords<TypeParam> records(texts);
      for (const std::uint32_t bits : {0u, +SortIgnoreCase}) {
        SortLinesOptions options;
        options.options = SortByLine | bits;
        ExpectTheSameOrder<TypeParam>(records.lines, options);
      }
      if (this->HasFailure()) return;
    }
  }
}

TYPED_TEST(LineSortDifferential, KeysOfTwentyThousandCharactersThatDifferLate) {
  RandomNumbers random(13);
  for (const std::uint32_t bits : {0u, +SortIgnoreCase}) {
    for (const std::size_t zeroAt : {0u, 20003u}) {
      auto base = Letters(random, In<TypeParam>("ab"), 20000);
      std::vector<Text<TypeParam>> texts;
      for (int i = 0; i < 20; ++i) {
        texts.push_back(base + Letters(random, In<TypeParam>("aAb"), random(18)));
        if (zeroAt != 0 && random.Coin() && texts.back().size() > zeroAt) texts.back()[zeroAt] = TypeParam();
      }
      texts.push_back(base.substr(0, 10000));
      texts.push_back({});
      LineRecords<TypeParam> records(texts);
      SortLinesOptions options;
      options.options = SortByLine | bits;
      ExpectTheSameOrder<TypeParam>(records.lines, options);
    }
  }
}

TYPED_TEST(LineSortDifferential, NumbersAndDatesOfAllSizes) {
  const std::vector<std::int64_t> values = {INT64_MIN, INT64_MIN + 1, INT32_MIN,     -256,     -1, 0, 1, 255,
                                            65536,     INT32_MAX,     INT64_MAX - 1, INT64_MAX};
  RandomNumbers random(17);
  std::vector<std::size_t> sizes = kSizes;
  sizes.insert(sizes.end(), {1000, 50000});
  for (const std::size_t size : sizes) {
    for (const std::uint32_t method : {SortAsNumber, SortAsDate}) {
      for (const std::uint32_t turn : {0u, +SortReverse}) {
        LineRecords<TypeParam> records(std::vector<Text<TypeParam>>(size, In<TypeParam>("x")));
        const bool narrow = random.Coin();
        for (SortLine& line : records.lines) {
          const std::int64_t any =
              static_cast<std::int64_t>(std::uint64_t{random(0xFFFFFFFF)} << 32 | random(0xFFFFFFFF));
          line.numericKey = narrow ? random(7) : (random.Coin() ? random.Of(values) : any);
        }
        SortLinesOptions options;
        options.options = SortBySubstring | method | turn;
        options.keepLinesTop = random(3);
        ExpectTheSameOrder<TypeParam>(records.lines, options);
        if (this->HasFailure()) return;
      }
    }
  }
}

TYPED_TEST(LineSortDifferential, NumbersReadFromLines) {
  RandomNumbers random(19);
  std::vector<Text<TypeParam>> texts;
  for (int i = 0; i < 1000; ++i) texts.push_back(Letters(random, In<TypeParam>("-09 1x"), random(25)));
  LineRecords<TypeParam> records(texts);
  SortLinesOptions options;
  options.options = SortBySubstring | SortAsNumber;
  ComputeSortKeys<TypeParam>(records.lines, options);
  ExpectTheSameOrder<TypeParam>(records.lines, options);
}

TYPED_TEST(LineSortDifferential, EightyLinesThatDifferAfterEachPosition) {
  RandomNumbers random(29);
  for (const auto& alphabet : Alphabets<TypeParam>()) {
    for (std::size_t place = 0; place <= 72; ++place) {
      const auto shared = Letters(random, alphabet, place);
      std::vector<Text<TypeParam>> texts;
      for (int i = 0; i < 80; ++i) texts.push_back(shared + Letters(random, alphabet, random(4)));
      LineRecords<TypeParam> records(texts);
      for (const std::uint32_t bits : {0u, +SortIgnoreCase}) {
        SortLinesOptions options;
        options.options = SortByLine | bits;
        ExpectTheSameOrder<TypeParam>(records.lines, options);
      }
      if (this->HasFailure()) return;
    }
  }
}

TYPED_TEST(LineSortDifferential, PairsOfOneLetterWithAnotherAtOnePlaceOfOne) {
  RandomNumbers random(41);
  for (std::size_t place = 0; place < 110; ++place) {
    std::vector<Text<TypeParam>> texts;
    for (int pair = 0; pair < 40; ++pair) {
      const Text<TypeParam> name = In<TypeParam>("pair " + std::to_string(10 + pair));
      const std::size_t first = texts.size();
      for (int i = 0; i < 2; ++i) texts.push_back(name + Text<TypeParam>(110, 'b'));
      texts[first + random(2)][name.size() + place] = static_cast<TypeParam>(random.Coin() ? 'a' : 'c');
    }
    LineRecords<TypeParam> records(texts);
    SortLinesOptions options;
    options.options = SortByLine;
    ExpectTheSameOrder<TypeParam>(records.lines, options);
  }
}

namespace {

// Returns a line as in a file of records: most begin with one of a few words followed by shared text, some
// share less, and some are prefixes of others.
template <typename CharT>
Text<CharT> LineOfARecord(RandomNumbers& random) {
  const auto of = [](std::string_view text) { return In<CharT>(text); };
  const Text<CharT> rest = Letters(random, of("ab"), random(14));
  switch (random(100)) {
    case 0:
      return of("Filename: pool/main/").substr(0, random(21));
    case 1:
      return of("Filename: POOL/main/").substr(0, random(21)) + rest;
    case 2:
      return of("Fil").append(rest);
    case 3:
      return random(40) == 0 ? of("Filename: pool/contrib/") + rest : of("Filenan") + rest;
    case 4:
      return of(std::string_view("Package\0: ", 10)) + rest;
    case 5:
      return of("Package").substr(0, random(8)) + of(std::string_view("\0", 1)) + rest;
    case 6:
      return of("Package");
    case 7:
      return of(" ") + rest;
    default:
      break;
  }
  switch (random(5)) {
    case 0:
      return of("Package: ") + rest;
    case 1:
      return of("Priority: optional");
    case 2:
      return of("Description: ") + Letters(random, of("a"), 20) + rest + rest;
    default:
      return of("Filename: pool/main/") + rest;
  }
}

}  // namespace

TYPED_TEST(LineSortDifferential, LinesThatBeginWithAFewWords) {
  RandomNumbers random(31);
  for (const std::size_t size : {4095u, 4096u, 5000u, 20000u, kUnderSanitizers ? 20001u : 60000u}) {
    std::vector<Text<TypeParam>> texts;
    for (std::size_t i = 0; i < size; ++i) texts.push_back(LineOfARecord<TypeParam>(random));
    LineRecords<TypeParam> records(texts);
    for (const std::uint32_t bits : {0u, +SortIgnoreCase, +SortReverse}) {
      for (const std::uint32_t offset : {0u, 3u}) {
        SortLinesOptions options;
        options.options = SortByLine | bits;
        options.lineOffset = offset;
        options.keepLinesTop = offset;
        options.keepLinesBottom = 2 * offset;
        ComputeSortKeys<TypeParam>(records.lines, options);
        SCOPED_TRACE(std::to_string(size) + " lines, options " + std::to_string(bits) + ", offset " +
                     std::to_string(offset));
        ExpectTheSameOrder<TypeParam>(records.lines, options);
        if (this->HasFailure()) return;
      }
    }
  }
}

TYPED_TEST(LineSortDifferential, LinesWithOneCommonPrefix) {
  RandomNumbers random(37);
  for (const std::size_t shared : {7u, 8u, 20u, 60u}) {
    std::vector<Text<TypeParam>> texts;
    for (std::size_t i = 0; i < 30000; ++i) {
      texts.push_back(Text<TypeParam>(shared, 'x') + Letters(random, In<TypeParam>("ab"), random(18)));
    }
    LineRecords<TypeParam> records(texts);
    SortLinesOptions options;
    options.options = SortByLine;
    ExpectTheSameOrder<TypeParam>(records.lines, options);
    // A line that differs early and is not part of any sample.
    texts[29999] = Text<TypeParam>(shared - 1, 'x') + Text<TypeParam>(1, 'w');
    texts[29998] = Text<TypeParam>(shared - 2, 'x');
    LineRecords<TypeParam> others(texts);
    ExpectTheSameOrder<TypeParam>(others.lines, options);
    if (this->HasFailure()) return;
  }
}

TEST(LineSortDifferentialAtScale, AMillionShortLines) {
  RandomNumbers random(23);
  std::vector<std::string> texts;
  texts.reserve(1000000);
  for (int i = 0; i < 1000000; ++i) {
    // At most eight letters, each one of eight, from three bits.
    const std::uint32_t bits = random(9 << 24);
    char letters[8];
    for (unsigned at = 0; at < 8; ++at) letters[at] = static_cast<char>('a' + (bits >> (3 * at) & 7));
    texts.emplace_back(letters, bits >> 24);
  }
  LineRecords<char> records(texts);
  SortLinesOptions options;
  options.options = SortByLine;
  std::vector<SortLine> expected = records.lines;
  SortByThePlainRule<char>(expected, {0, expected.size()}, options);
  SortLineRange<char>(records.lines, {0, records.lines.size()}, options);
  EXPECT_EQ(FirstDifference(records.lines, expected), expected.size());
}
