// Reading language tables: the accepted forms, and that of a damaged table only the bad lines are ignored.
#include "host/services/language_table.h"

#include <gmock/gmock.h>

#include <random>

using QxHost::LanguageTable;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

struct Parsed {
  explicit Parsed(std::string_view bytes) : table(LanguageTable::Parse(bytes, warnings)) {}

  WString First(std::string_view section, Velmora::SDK::TextId id) const {
    const QxHost::LanguageText* const text = table.Find(section, id);
    return text ? text->first : W("(none)");
  }
  WString Second(std::string_view section, Velmora::SDK::TextId id) const {
    const QxHost::LanguageText* const text = table.Find(section, id);
    return text ? text->second : W("(none)");
  }

  std::vector<std::string> warnings;
  LanguageTable table;
};

TEST(LanguageTable, TextsAreBelowTheHeadingOfTheirModule) {
  const Parsed parsed("[A]\n0x00010063\tone\n[B]\n0x00010063\tother\n[A]\n0x00020063\ttwo\n");
  EXPECT_EQ(parsed.First("A", 0x00010063), W("one"));
  EXPECT_EQ(parsed.First("A", 0x00020063), W("two"));
  EXPECT_EQ(parsed.First("B", 0x00010063), W("other"));
  EXPECT_EQ(parsed.First("B", 0x00020063), W("(none)"));
  EXPECT_EQ(parsed.First("C", 0x00010063), W("(none)"));
  EXPECT_THAT(parsed.warnings, IsEmpty());
}

TEST(LanguageTable, TheSecondTextIsOptional) {
  const Parsed parsed("[A]\n0x1\tfirst\tsecond\n0x2\tfirst\n0x3\t\tsecond\n");
  EXPECT_EQ(parsed.Second("A", 1), W("second"));
  EXPECT_EQ(parsed.Second("A", 2), W(""));
  EXPECT_EQ(parsed.First("A", 3), W(""));
  EXPECT_EQ(parsed.Second("A", 3), W("second"));
}

TEST(LanguageTable, EscapesCommentsBlankLinesAndBothLineEnds) {
  const Parsed parsed("\xEF\xBB\xBF# comment\r\n\r\n[A]\r\n0x1\ta\\nb\\tc\\\\n\r\n# 0x2\tno\n0XAbC\tlast");
  EXPECT_EQ(parsed.First("A", 1), W("a\nb\tc\\n"));
  EXPECT_EQ(parsed.First("A", 2), W("(none)"));
  EXPECT_EQ(parsed.First("A", 0xABC), W("last"));
  EXPECT_THAT(parsed.warnings, IsEmpty());
}

TEST(LanguageTable, TextsAreUtf8) {
  EXPECT_EQ(Parsed("[A]\n0x1\tGr\xC3\xB6\xC3\x9F"
                   "e \xE6\x97\xA5\n")
                .First("A", 1),
            W("Gr\u00F6\u00DFe \u65E5"));
  EXPECT_EQ(Parsed("[A]\n0x1\ta\xFFz\n").First("A", 1), W("a\uFFFDz"));
}

TEST(LanguageTable, ALineThatIsNoneIsNamedAndPassedOver) {
  const Parsed parsed(
      "0x1\tbefore a heading\n"
      "[A]\n"
      "no id\ttext\n"
      "0x\ttext\n"
      "0x123456789\ttoo long\n"
      "12\tno hexadecimal\n"
      "0x2\tone\ttwo\tthree\n"
      "0x3\tbad \\x escape\n"
      "0x4\tescape at the end\\\n"
      "0x5\tfirst of two\n"
      "0x5\tsecond of two\n"
      "0x6\tgood\n");
  EXPECT_THAT(parsed.warnings, ElementsAre(StartsWith("1: "), StartsWith("3: "), StartsWith("4: "),
                                           StartsWith("5: "), StartsWith("6: "), StartsWith("7: "),
                                           StartsWith("8: "), StartsWith("9: "), StartsWith("11: ")));
  EXPECT_EQ(parsed.First("A", 5), W("first of two"));
  EXPECT_EQ(parsed.First("A", 6), W("good"));
  EXPECT_EQ(parsed.First("A", 2), W("(none)"));
}

TEST(LanguageTable, ADamagedHeadingGivesItsTextsToNobody) {
  const Parsed parsed("[A]\n0x1\tone\n[B\n0x2\ttwo\n[]\n0x3\tthree\n[A]\n0x4\tfour\n");
  EXPECT_EQ(parsed.First("A", 1), W("one"));
  EXPECT_EQ(parsed.First("A", 2), W("(none)"));
  EXPECT_EQ(parsed.First("A", 3), W("(none)"));
  EXPECT_EQ(parsed.First("A", 4), W("four"));
  EXPECT_EQ(parsed.warnings.size(), 4u);
}

TEST(LanguageTable, AZeroByteIsNoText) {
  const Parsed parsed(std::string_view("[A]\n0x1\ta\0b\n0x2\tc\n", 17));
  EXPECT_EQ(parsed.First("A", 1), W("(none)"));
  EXPECT_EQ(parsed.First("A", 2), W("c"));
}

TEST(LanguageTable, AnIdWithoutATabHasTheEmptyText) {
  const Parsed parsed("[A]\n0x1\n0x2 \tblank behind the id\n");
  EXPECT_EQ(parsed.First("A", 1), W(""));
  EXPECT_EQ(parsed.First("A", 2), W("blank behind the id"));
}

TEST(LanguageTable, HostileBytesGiveWarningsAndNoHarm) {
  std::mt19937 random(20260101);
  constexpr std::string_view kPieces[] = {"[",   "]",  "[A]", "\n", "\r",   "\t",   "0x",
                                          "0x1", "\\", "\\n", "#",  "\xFF", "text", "\xEF\xBB\xBF"};
  for (int round = 0; round < 2000; ++round) {
    std::string bytes;
    for (int piece = 0; piece < 40; ++piece) bytes += kPieces[random() % std::size(kPieces)];
    const Parsed parsed(bytes + "\n[good]\n0x7\tstill here\n");
    ASSERT_EQ(parsed.First("good", 7), W("still here")) << bytes;
  }
}

}  // namespace
