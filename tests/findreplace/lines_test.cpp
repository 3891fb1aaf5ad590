// A find or replace text, split into lines.
#include "findreplace/engine/lines.h"

#include <gmock/gmock.h>

#include <new>

#include "findreplace/documents.h"
#include "linesorter/scripted_reader.h"

using namespace QXFindAndReplace;
using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Item {
  std::string text;
  LineEnding ending;
  unsigned endingCharacters;
  friend bool operator==(const Item&, const Item&) = default;
};
void PrintTo(const Item& item, std::ostream* out) {
  *out << '"' << item.text << "\" " << static_cast<int>(item.ending) << " " << item.endingCharacters;
}

Item None(std::string text) { return {std::move(text), LineEnding::None, 0}; }
Item Lf(std::string text) { return {std::move(text), LineEnding::Lf, 1}; }
Item CrLf(std::string text) { return {std::move(text), LineEnding::CrLf, 2}; }

template <typename CharT>
std::vector<Item> ItemsOf(const Lines& lines) {
  std::vector<Item> items;
  for (const LineItem& item : lines.items) {
    EXPECT_EQ(item.length % sizeof(CharT), 0u);
    EXPECT_EQ(item.endingSize % sizeof(CharT), 0u);
    items.push_back({Narrow<CharT>({TextOf<CharT>(item), LengthOf<CharT>(item)}), item.ending,
                     static_cast<unsigned>(item.endingSize / sizeof(CharT))});
  }
  return items;
}

template <typename CharT>
class LinesTest : public testing::Test {
 protected:
  static std::vector<Item> Split(std::string_view text) { return ItemsOf<CharT>(*MakeLines<CharT>(text)); }
};
TYPED_TEST_SUITE(LinesTest, BothWidths);

}  // namespace

TYPED_TEST(LinesTest, EmptyTextHasNoItems) { EXPECT_THAT(this->Split(""), IsEmpty()); }

TYPED_TEST(LinesTest, LineEndAtTheEndBeginsNoFurtherItem) {
  EXPECT_THAT(this->Split("a\nb\n"), ElementsAre(Lf("a"), Lf("b")));
  EXPECT_THAT(this->Split("a\nb"), ElementsAre(Lf("a"), None("b")));
  EXPECT_THAT(this->Split("\n"), ElementsAre(Lf("")));
  EXPECT_THAT(this->Split("a\r\n"), ElementsAre(CrLf("a")));
}

TYPED_TEST(LinesTest, EmptyLineInTheMiddleIsAnItemOfNoLength) {
  EXPECT_THAT(this->Split("a\n\nb"), ElementsAre(Lf("a"), Lf(""), None("b")));
  EXPECT_THAT(this->Split("a\r\n\r\nb"), ElementsAre(CrLf("a"), CrLf(""), None("b")));
  EXPECT_THAT(this->Split("\na"), ElementsAre(Lf(""), None("a")));
}

TYPED_TEST(LinesTest, LoneCrSeparatesItemsAndIsNotKept) {
  EXPECT_THAT(this->Split("a\rb"), ElementsAre(None("a"), None("b")));
  EXPECT_THAT(this->Split("a\r"), ElementsAre(None("a")));
  EXPECT_THAT(this->Split("\r\r"), ElementsAre(None(""), None("")));
  EXPECT_THAT(this->Split("a\r\r\nb"), ElementsAre(None("a"), CrLf(""), None("b")));
  EXPECT_THAT(this->Split("a\n\rb"), ElementsAre(Lf("a"), None(""), None("b")));
}

TYPED_TEST(LinesTest, ZeroCharactersAreText) {
  EXPECT_THAT(this->Split("a\0b\n\0"sv), ElementsAre(Lf(std::string("a\0b", 3)), None(std::string(1, '\0'))));
}

TYPED_TEST(LinesTest, AnItemIsFollowedByItsEndAndTheLastOneByAZero) {
  const auto lines = MakeLines<TypeParam>("ab\ncd\r\nef");
  ASSERT_EQ(lines->items.size(), 3u);
  const auto behind = [&](std::size_t item, std::size_t character) {
    return TextOf<TypeParam>(lines->items[item])[2 + character];
  };
  EXPECT_EQ(behind(0, 0), TypeParam('\n'));
  EXPECT_EQ(behind(1, 0), TypeParam('\r'));
  EXPECT_EQ(behind(1, 1), TypeParam('\n'));
  EXPECT_EQ(behind(2, 0), TypeParam());
}

// Items are not terminated: reading an item up to a zero reads the rest of the list.
TYPED_TEST(LinesTest, ItemReadToAZeroIsTheRestOfTheText) {
  const auto lines = MakeLines<TypeParam>("ab\ncd\n");
  ASSERT_EQ(lines->items.size(), 2u);
  EXPECT_EQ(Narrow<TypeParam>(TextOf<TypeParam>(lines->items[0])), "ab\ncd\n");
  EXPECT_EQ(Narrow<TypeParam>(TextOf<TypeParam>(lines->items[1])), "cd\n");
}

TYPED_TEST(LinesTest, TextOfSeveralBlocks) {
  std::string text;
  std::vector<Item> expected;
  for (int i = 0; i < 3000; ++i) {
    const std::string line = "line number " + std::to_string(i);
    text += line + "\n";
    expected.push_back(Lf(line));
  }
  ASSERT_GT(text.size(), kUsualBlock<TypeParam>);
  EXPECT_EQ(this->Split(text), expected);
  EXPECT_GE(MakeLines<TypeParam>(text)->blocks.size(), 2u);
}

TYPED_TEST(LinesTest, CrLfCutByTheBlocksBorderGivesAnEmptyItemMore) {
  const std::string fill(kUsualBlock<TypeParam> - 1, 'x');
  EXPECT_EQ(this->Split(fill + "\r\nb"), (std::vector{None(fill), Lf(""), None("b")}));
  const std::string shorter(kUsualBlock<TypeParam> - 2, 'x');
  EXPECT_EQ(this->Split(shorter + "\r\nb"), (std::vector{CrLf(shorter), None("b")}));
}

TYPED_TEST(LinesTest, LineOfExactlyOneBlockLoadsIfNothingFollows) {
  const std::string fill(kUsualBlock<TypeParam>, 'x');
  EXPECT_EQ(this->Split(fill), std::vector{None(fill)});
  EXPECT_EQ(this->Split("a\n" + fill), (std::vector{Lf("a"), None(fill)}));
  EXPECT_THROW(this->Split(fill + "\n"), std::bad_alloc);
  EXPECT_THROW(this->Split(fill + "x"), std::bad_alloc);
}

TYPED_TEST(LinesTest, FailureOfTheReaderPasses) {
  ScriptedReader reader(BytesOf<TypeParam>("abc"));
  reader.failAt = 1;
  reader.fail = [] { throw WQDR::WQDataReaderException(23, "Failed to read file"); };
  EXPECT_EQ(DataError([&] { Lines::Load<TypeParam>(reader); }), (Thrown{23, "Failed to read file"}));
}

TEST(LinesWide, UnitsThatHoldTheBytesOfLineEndsAreText) {
  const WString text = {0x0A0D, 0x0D0A, 0x0A00, 0x0D00, W('\n'), 0x010A, 0x0D01};
  WQDR::MemoryDataReader reader(text.data(), text.size() * 2);
  const auto lines = Lines::Load<WCHAR>(reader);
  EXPECT_THAT(ItemsOf<WCHAR>(*lines), ElementsAre(Lf("{0A0D}{0D0A}{0A00}{0D00}"), None("{010A}{0D01}")));
}
