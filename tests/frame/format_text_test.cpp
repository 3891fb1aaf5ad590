// Inserting numbers into a format from outside.
#include "frame/services/format_text.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <limits>
#include <vector>

namespace {

std::string Filled(const std::string& format, std::uint32_t value = 7) {
  return ToUtf8(FormatCount(FromUtf8(format), value));
}

void ExpectAsTheLibrary(const char* format) {
  for (const std::uint32_t value : {0u, 1u, 9u, 10u, 42u, 99999u, 1000000u, 0x7FFFFFFFu}) {
    char expected[64];
    std::snprintf(expected, sizeof expected, format, value);
    ASSERT_EQ(Filled(format, value), expected) << format << " of " << value;
  }
}

}  // namespace

TEST(FormatText, ReplacesTheNumber) {
  EXPECT_EQ(Filled("Rename %d items?"), "Rename 7 items?");
  EXPECT_EQ(Filled("%d"), "7");
  EXPECT_EQ(Filled("%u|"), "7|");
  EXPECT_EQ(Filled("%i"), "7");
  EXPECT_EQ(Filled("%x", 255), "ff");
  EXPECT_EQ(Filled("%X", 255), "FF");
}

TEST(FormatText, TextWithoutANumberStaysAsItIs) {
  EXPECT_EQ(Filled(""), "");
  EXPECT_EQ(Filled("Rename all items?"), "Rename all items?");
}

TEST(FormatText, GivesWhatTheLibraryGivesForPlainIntegers) {
  for (const char* format : {"%d", "%5d", "%05d", "%-5d|", "%+d", "% d", "%i", "%u", "%05u", "%-12u|", "%1d",
                             "%x", "%X", "%08x", "a%db", "%-+6d|", "%+06d", "%20d"}) {
    ExpectAsTheLibrary(format);
  }
}

TEST(FormatText, GivesWhatTheLibraryGivesForTheAlternateForm) {
  for (const char* format : {"%#x", "%#X", "%#010x", "%#10x"}) ExpectAsTheLibrary(format);
}

TEST(FormatText, PrecisionIsTheLeastNumberOfDigits) {
  EXPECT_EQ(Filled("%.3d"), "007");
  EXPECT_EQ(Filled("%5.2d"), "   07");
  EXPECT_EQ(Filled("%-6.3u|"), "007   |");
  EXPECT_EQ(Filled("%05.2d"), "   07");
  EXPECT_EQ(Filled("%+.3d"), "+007");
  EXPECT_EQ(Filled("%.0d", 0), "");
  EXPECT_EQ(Filled("%.d", 0), "");
  EXPECT_EQ(Filled("%3.0d|", 0), "   |");
  EXPECT_EQ(Filled("%.1d", 70000), "70000");
}

TEST(FormatText, OctalNumbers) {
  EXPECT_EQ(Filled("%o", 8), "10");
  EXPECT_EQ(Filled("%#o", 8), "010");
  EXPECT_EQ(Filled("%#o", 0), "0");
  EXPECT_EQ(Filled("%#.0o", 0), "0");
  EXPECT_EQ(Filled("%#.3o", 8), "010");
}

TEST(FormatText, GivesWhatTheLibraryGivesForAllFlagsWidthsAndPrecisions) {
  constexpr std::string_view kFlags = "-+ 0#";
  for (const char letter : {'d', 'u', 'o', 'x', 'X'}) {
    for (unsigned chosen = 0; chosen < 1u << kFlags.size(); ++chosen) {
      std::string flags;
      for (std::size_t i = 0; i < kFlags.size(); ++i) {
        if ((chosen >> i & 1) != 0) flags += kFlags[i];
      }
      // The alternate form is defined for bases 8 and 16, and a sign for signed numbers only.
      const bool isSigned = letter == 'd';
      const bool isDecimal = isSigned || letter == 'u';
      if (isDecimal && flags.find('#') != flags.npos) continue;
      if (!isSigned && flags.find_first_of("+ ") != flags.npos) continue;
      for (const char* width : {"", "1", "4", "14"}) {
        for (const char* precision : {"", ".", ".0", ".1", ".3", ".12"}) {
          const std::string format = "%" + flags + width + precision + letter;
          // Some libraries omit the single zero for an octal zero; the test OctalNumbers covers this case.
          const bool isOctalNothing =
              letter == 'o' && flags.find('#') != flags.npos &&
              (precision == std::string_view(".") || precision == std::string_view(".0"));
          for (const std::uint32_t value : {0u, 1u, 7u, 2147483647u}) {
            if (isOctalNothing && value == 0) continue;
            char expected[64];
            std::snprintf(expected, sizeof expected, format.c_str(), value);
            ASSERT_EQ(Filled(format, value), expected) << format << " of " << value;
          }
        }
      }
    }
  }
}

TEST(FormatText, LengthsAreAccepted) {
  EXPECT_EQ(Filled("%I64d|", 70000), "70000|");
  EXPECT_EQ(Filled("%I32u|", 70000), "70000|");
  EXPECT_EQ(Filled("%Iu|", 70000), "70000|");
  EXPECT_EQ(Filled("%ld", 70000), "70000");
  EXPECT_EQ(Filled("%lu", 70000), "70000");
  EXPECT_EQ(Filled("%lld", 70000), "70000");
}

TEST(FormatText, DoubledPercentSignIsOne) {
  EXPECT_EQ(Filled("100%%"), "100%");
  EXPECT_EQ(Filled("%%d"), "%d");
  EXPECT_EQ(Filled("%%%d%%"), "%7%");
  EXPECT_EQ(Filled("%%%%"), "%%");
}

TEST(FormatText, HostileConversionsAreUnchanged) {
  for (const char* format :
       {"%s", "%n", "%p", "%c", "%f", "%S", "%hs", "%*d", "%1$d", "%q", "% ", "%\xC3\xA4"}) {
    EXPECT_EQ(Filled(std::string("a") + format + "b"), std::string("a") + format + "b") << format;
  }
}

TEST(FormatText, NumberAfterAHostileConversionIsStillFilled) {
  EXPECT_EQ(Filled("%s %d"), "%s 7");
  EXPECT_EQ(Filled("%n%n%d"), "%n%n7");
  EXPECT_EQ(Filled("% % %d").back(), '7');
}

TEST(FormatText, OnlyTheFirstNumberIsFilled) {
  EXPECT_EQ(Filled("%d of %d"), "7 of %d");
  EXPECT_EQ(Filled("%u %x %i"), "7 %x %i");
}

TEST(FormatText, LonePercentSignAtTheEndStays) {
  EXPECT_EQ(Filled("%"), "%");
  EXPECT_EQ(Filled("100%"), "100%");
  EXPECT_EQ(Filled("%d%"), "7%");
  EXPECT_EQ(Filled("%5"), "%5");
  EXPECT_EQ(Filled("%-"), "%-");
  EXPECT_EQ(Filled("%l"), "%l");
}

TEST(FormatText, HugeWidthsStayWithinTheLimit) {
  for (const char* format : {"%99999999d", "%4294967295d", "%18446744073709551616d",
                             "%099999999999999999999d", "%-2147483648d", "%2000d"}) {
    EXPECT_LE(Filled(format).size(), 1023u) << format;
  }
  EXPECT_EQ(Filled("%1023d"), std::string(1022, ' ') + "7");
}

TEST(FormatText, ResultIsCutAsIntoABufferOfTheLimit) {
  EXPECT_EQ(FormatCount(WString(3000, W('t')), 7), WString(1023, W('t')));
  EXPECT_EQ(FormatCount(W("abcdef"), 7, 4), W("abc"));
  EXPECT_EQ(FormatCount(W("ab%d"), 123, 5), W("ab12"));
  EXPECT_EQ(FormatCount(W("abc"), 7, 4), W("abc"));
  EXPECT_EQ(FormatCount(W("abc"), 7, 1), W(""));
  EXPECT_EQ(FormatCount(W("abc"), 7, 0), W(""));
}

TEST(FormatText, LargestCountIsShown) { EXPECT_EQ(Filled("%u", 0xFFFFFFFFu), "4294967295"); }

namespace {

std::string FilledText(const std::string& format, std::uint32_t value = 7) {
  return ToUtf8(FormatCountText(FromUtf8(format), value));
}

}  // namespace

TEST(FormatCountText, TakesTheNumberAsTextOrAsANumber) {
  EXPECT_EQ(FilledText("%s files were sorted."), "7 files were sorted.");
  EXPECT_EQ(FilledText("%d files"), "7 files");
  EXPECT_EQ(FilledText("%ls|%%"), "7|%");
  EXPECT_EQ(FilledText("%S|"), "7|");
  EXPECT_EQ(FilledText("%hs|"), "7|");
  EXPECT_EQ(FilledText("%ws|"), "7|");
  EXPECT_EQ(FilledText("%X", 255), "FF");
  EXPECT_EQ(FilledText("%s", 4294967295u), "4294967295");
}

TEST(FormatCountText, TextsHaveWidthAndPrecision) {
  EXPECT_EQ(FilledText("%5s|", 12), "   12|");
  EXPECT_EQ(FilledText("%-5s|", 12), "12   |");
  EXPECT_EQ(FilledText("%.1s|", 12), "1|");
  EXPECT_EQ(FilledText("%3.1s|", 12), "  1|");
  EXPECT_EQ(FilledText("%.0s|", 12), "|");
  EXPECT_EQ(FilledText("%1s|", 12), "12|");
}

TEST(FormatCountText, FillsOnlyTheFirstConversion) {
  EXPECT_EQ(FilledText("%s of %s"), "7 of %s");
  EXPECT_EQ(FilledText("%s of %d"), "7 of %d");
  EXPECT_EQ(FilledText("%d of %s"), "7 of %s");
}

TEST(FormatCountText, OtherConversionsAreUnchanged) {
  for (const char* format : {"%n", "%p", "%c", "%f", "%*s", "%1$s"}) {
    EXPECT_EQ(FilledText(std::string("a") + format + "b"), std::string("a") + format + "b") << format;
  }
}

TEST(FormatCountText, StaysWithinTheLimit) {
  EXPECT_LE(FilledText("%99999999s").size(), 1023u);
  EXPECT_EQ(FormatCountText(W("ab%s"), 123, 5), W("ab12"));
  EXPECT_EQ(FormatCountText(W("abc"), 7, 0), W(""));
}

namespace {

std::string FilledCounts(const std::string& format, std::initializer_list<std::int64_t> values) {
  return ToUtf8(FormatCounts(FromUtf8(format), std::vector<std::int64_t>(values)));
}
std::string FilledTexts(const std::string& format, std::initializer_list<std::int64_t> values) {
  return ToUtf8(FormatCountTexts(FromUtf8(format), std::vector<std::int64_t>(values)));
}

}  // namespace

TEST(FormatCounts, EachNumberTakesTheNextConversion) {
  EXPECT_EQ(FilledCounts("(%d, %d) to (%d, %d)", {1, 22, 333, 0}), "(1, 22) to (333, 0)");
  EXPECT_EQ(FilledCounts("%u|%5d|%-3i|%x", {7, 8, 9, 10}), "7|    8|9  |a");
  EXPECT_EQ(FilledCounts("%d%%%d", {50, 60}), "50%60");
}

TEST(FormatCounts, ConversionsLeftOverStayAndNumbersLeftOverAreNotShown) {
  EXPECT_EQ(FilledCounts("%d %d %d", {1, 2}), "1 2 %d");
  EXPECT_EQ(FilledCounts("%d", {1, 2}), "1");
  EXPECT_EQ(FilledCounts("plain", {1, 2}), "plain");
  EXPECT_EQ(FilledCounts("%d %%", {}), "%d %");
}

TEST(FormatCounts, HostileConversionsBetweenNumbersAreUnchanged) {
  EXPECT_EQ(FilledCounts("%n %d %s %d %p", {1, 2}), "%n 1 %s 2 %p");
}

TEST(FormatCounts, NumbersBeyondThirtyTwoBitsAndBelowZeroAreShown) {
  EXPECT_EQ(FilledCounts("%I64d", {5000000000}), "5000000000");
  EXPECT_EQ(FilledCounts("%d|%5d|%05d|%+d|%u", {-1, -2, -3, -4, -5}), "-1|   -2|-0003|-4|-5");
  EXPECT_EQ(FilledCounts("%d %d", {std::numeric_limits<std::int64_t>::min(), 9223372036854775807}),
            "-9223372036854775808 9223372036854775807");
  EXPECT_EQ(FilledCounts("%x", {-1}), "ffffffffffffffff");
  EXPECT_EQ(FilledCounts("%o", {-1}), "1777777777777777777777");
}

TEST(FormatCounts, StaysWithinTheLimit) {
  EXPECT_EQ(FilledCounts("%1000d%1000d", {1, 2}).size(), 1023u);
  EXPECT_EQ(FormatCounts(W("%d-%d"), std::vector<std::int64_t>{12, 34}, 5), W("12-3"));
}

TEST(FormatCountTexts, TakesEachNumberAsTextOrAsANumber) {
  EXPECT_EQ(FilledTexts("%s changes in %s files", {-1, 3}), "-1 changes in 3 files");
  EXPECT_EQ(FilledTexts("%s in %d, %s", {5, 3}), "5 in 3, %s");
  EXPECT_EQ(FilledTexts("%4s|%-4s|", {12, -3}), "  12|-3  |");
}

TEST(FormatText, EachFunctionCutsAtTheBufferOfItsCallers) {
  constexpr std::array<std::int64_t, 1> kSeven = {7};
  const WString longText(40000, W('t'));
  EXPECT_EQ(FormatCount(longText, 7).size(), 1023u);
  EXPECT_EQ(FormatCountText(longText, 7).size(), 1023u);
  EXPECT_EQ(FormatCounts(longText, kSeven).size(), 1023u);
  EXPECT_EQ(FormatCountTexts(longText, kSeven).size(), 1023u);
  EXPECT_EQ(FormatText(longText, W("x")).size(), 32767u);
  EXPECT_EQ(FormatText(W("%s"), longText).size(), 32767u);
}
