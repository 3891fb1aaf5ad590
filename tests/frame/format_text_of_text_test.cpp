// Inserting a text into a format from outside.
#include <gtest/gtest.h>

#include "frame/services/format_text.h"

namespace {

std::string Filled(const std::string& format, const std::string& text = "t", std::size_t limit = 32768) {
  return ToUtf8(FormatText(FromUtf8(format), FromUtf8(text), limit));
}

}  // namespace

TEST(FormatTextOfText, ReplacesTheFirstTextConversion) {
  EXPECT_EQ(Filled("Replace %s?", "C:\\a.b64"), "Replace C:\\a.b64?");
  EXPECT_EQ(Filled("%s"), "t");
  EXPECT_EQ(Filled("%S|%ls"), "t|%ls");
  EXPECT_EQ(Filled("%ls"), "t");
  EXPECT_EQ(Filled("%s", ""), "");
  EXPECT_EQ(Filled("%s", "\xC3\xA4\xF0\x9F\x98\x80"), "\xC3\xA4\xF0\x9F\x98\x80");
}

TEST(FormatTextOfText, ContentsOfTheTextAreNotAFormat) {
  EXPECT_EQ(Filled("<%s>", "%s%n%d%%"), "<%s%n%d%%>");
  EXPECT_EQ(Filled("%s and %s", "%s"), "%s and %s");
}

TEST(FormatTextOfText, TwoPercentSignsAreOne) {
  EXPECT_EQ(Filled("100%% of %s"), "100% of t");
  EXPECT_EQ(Filled("%%s %s"), "%s t");
}

TEST(FormatTextOfText, OtherConversionsThanOfTextAreUnchanged) {
  EXPECT_EQ(Filled("%d %n %s"), "%d %n t");
  EXPECT_EQ(Filled("100%"), "100%");
  EXPECT_EQ(Filled("%"), "%");
  EXPECT_EQ(Filled("none"), "none");
  EXPECT_EQ(Filled(""), "");
}

TEST(FormatTextOfText, IsCutOneBelowTheLimit) {
  EXPECT_EQ(Filled("<%s>", "abcdef", 9), "<abcdef>");
  EXPECT_EQ(Filled("<%s>", "abcdef", 8), "<abcdef");
  EXPECT_EQ(Filled("<%s>", "abcdef", 4), "<ab");
  EXPECT_EQ(Filled("<%s>", "abcdef", 1), "");
  EXPECT_EQ(Filled("<%s>", "abcdef", 0), "");
  EXPECT_EQ(Filled("%s", std::string(40000, 'x')).size(), 32767u);
}
