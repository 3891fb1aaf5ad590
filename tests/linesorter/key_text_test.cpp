// The text of a key as it is passed to comparators.
#include "linesorter/engine/sort_keys.h"

#include <gtest/gtest.h>

#include "linesorter/sort_keys_helper.h"

namespace WQLineSorter {

namespace {

// Returns a line of 12 bytes with the given key.
SortLine LineWithKey(const char* text, std::uint32_t keyOffset, std::uint32_t keyLength,
                     std::uint32_t length = 12) {
  SortLine line{};
  line.text = text;
  line.length = length;
  line.keyOffset = keyOffset;
  line.keyLength = keyLength;
  return line;
}

struct Place {
  std::ptrdiff_t bytes;
  std::uint32_t length;
  bool operator==(const Place&) const = default;
  friend void PrintTo(const Place& place, std::ostream* out) {
    *out << place.length << " characters " << place.bytes << " bytes in";
  }
};

alignas(2) constexpr char kText[12] = {};

template <typename CharT>
Place PlaceOfKey(std::uint32_t keyOffset, std::uint32_t keyLength, std::uint32_t length = 12) {
  const KeyText<CharT> key = KeyOf<CharT>(LineWithKey(kText, keyOffset, keyLength, length));
  return {reinterpret_cast<const char*>(key.text) - kText, key.length};
}

}  // namespace

TEST(SortKeysBytes, AreComparedFromTheOffsetOverTheLength) {
  EXPECT_EQ(PlaceOfKey<char>(0, 5), (Place{0, 5}));
  EXPECT_EQ(PlaceOfKey<char>(3, 5), (Place{3, 5}));
  EXPECT_EQ(PlaceOfKey<char>(3, 1), (Place{3, 1}));
}

TEST(SortKeysBytes, OfNoLengthAreComparedToTheLinesEnd) {
  EXPECT_EQ(PlaceOfKey<char>(0, 0), (Place{0, 12}));
  EXPECT_EQ(PlaceOfKey<char>(11, 0), (Place{11, 1}));
  EXPECT_EQ(PlaceOfKey<char>(12, 0), (Place{12, 0}));
  EXPECT_EQ(PlaceOfKey<char>(0, 0, 0), (Place{0, 0}));
}

TEST(SortKeysBytes, BeyondTheLinesEndAreEmpty) {
  for (const std::uint32_t offset : {13u, 14u, 0x80000000u, kMax}) {
    EXPECT_EQ(PlaceOfKey<char>(offset, 0).length, 0u) << offset;
  }
}

TEST(SortKeysUnits, AreComparedFromTheOffsetInBytesOverHalfTheLengthByDesign) {
  EXPECT_EQ(PlaceOfKey<WCHAR>(4, 6), (Place{4, 3}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(3, 5), (Place{3, 2}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(0, 2), (Place{0, 1}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(1, 3), (Place{1, 1}));
}

TEST(SortKeysUnits, OfOneCharacterAreEmptyByDesign) {
  EXPECT_EQ(PlaceOfKey<WCHAR>(0, 1), (Place{0, 0}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(2, 1), (Place{2, 0}));
}

TEST(SortKeysUnits, OfNoLengthAreComparedToTheLinesEndByBytesByDesign) {
  EXPECT_EQ(PlaceOfKey<WCHAR>(0, 0), (Place{0, 6}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(2, 0), (Place{2, 5}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(3, 0), (Place{3, 4}));
  // Offset 6 is after the last of the six characters, but in the middle of the bytes.
  EXPECT_EQ(PlaceOfKey<WCHAR>(6, 0), (Place{6, 3}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(11, 0), (Place{11, 0}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(12, 0), (Place{12, 0}));
}

TEST(SortKeysUnits, BeyondTheLinesEndInBytesAreEmpty) {
  for (const std::uint32_t offset : {13u, 14u, 0x80000000u, kMax}) {
    EXPECT_EQ(PlaceOfKey<WCHAR>(offset, 0).length, 0u) << offset;
  }
}

TEST(SortKeysBytes, OfEmptyItemsAreTheRestOfTheLineAndOfMissingOnesNothing) {
  LineRecords<char> records = LinesOf<char>({"a;;c", "a;b;c"});
  ComputeSortKeys<char>(records.lines, Item(2));
  const KeyText<char> rest = KeyOf<char>(records.lines[0]);
  EXPECT_EQ(std::string(rest.text, rest.length), ";c");
  const KeyText<char> item = KeyOf<char>(records.lines[1]);
  EXPECT_EQ(std::string(item.text, item.length), "b");
  ComputeSortKeys<char>(records.lines, Item(4));
  EXPECT_EQ(KeyOf<char>(records.lines[0]).length, 0u);
}

}  // namespace WQLineSorter
