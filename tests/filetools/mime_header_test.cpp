// Reading a header: its lines, the name in it, and its end.
#include "filetools/mime_header.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

using namespace std::string_literals;

namespace {

constexpr std::string_view kWritten =
    "MIME-Version: 1.0\r\n"
    "Content-Type: application/octet-stream; name=\"a.txt\"\r\n"
    "Content-Transfer-Encoding: base64\r\n"
    "Content-Disposition: attachment; filename=\"b.txt\"\r\n"
    "\r\n";

std::vector<std::string> LinesOf(std::string_view text) {
  HeaderLines lines(text);
  std::vector<std::string> result;
  while (const auto line = lines.Next()) {
    result.emplace_back(*line);
    if (result.size() > text.size() + 1) break;
  }
  return result;
}

using Lines = std::vector<std::string>;

}  // namespace

TEST(HeaderLines, EndAtLfAndAtCrLf) {
  EXPECT_EQ(LinesOf("a\nbc\r\n\nd\n"), (Lines{"a", "bc", "", "d"}));
  EXPECT_EQ(LinesOf(""), Lines{});
}

TEST(HeaderLines, DoNotGetPastALoneCr) {
  for (const std::string text : {"a\rb\n", "a\r", "a\r\r\n"}) {
    const Lines lines = LinesOf(text);
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "a");
    EXPECT_LE(lines.size(), 1u);
    HeaderLines walk(text);
    walk.Next();
    EXPECT_EQ(walk.Offset(), std::nullopt);
  }
}

TEST(HeaderLines, ReturnWhereTheNextLineBegins) {
  HeaderLines lines("a\nbc\r\nd\n");
  lines.Next();
  EXPECT_EQ(lines.Offset(), 2u);
  lines.Next();
  EXPECT_EQ(lines.Offset(), 6u);
}

TEST(EncodedName, IsTheFirstOneOfTheHeader) { EXPECT_EQ(FindEncodedName(kWritten), "a.txt"); }

TEST(EncodedName, IsFoundInAnyLineButTheFirst) {
  EXPECT_EQ(FindEncodedName("MIME-Version: 1.0 name=\"no\"\nX: filename=\"b.txt\"\n"), "b.txt");
  EXPECT_EQ(FindEncodedName("MIME-Version\n\n\n\nname=\"late\"\n"), "late");
  EXPECT_EQ(FindEncodedName("MIME-Version name=\"no\"\n"), std::nullopt);
}

TEST(EncodedName, NeedsMimeVersionInTheFirstLine) {
  EXPECT_EQ(FindEncodedName("X-MIME-Version!\r\nname=\"a\"\r\n"), "a");
  EXPECT_EQ(FindEncodedName("Mime-Version\r\nname=\"a\"\r\n"), std::nullopt);
  EXPECT_EQ(FindEncodedName("\r\nMIME-Version\r\nname=\"a\"\r\n"), std::nullopt);
  EXPECT_EQ(FindEncodedName("name=\"a\"\r\n"), std::nullopt);
  EXPECT_EQ(FindEncodedName(""), std::nullopt);
}

TEST(EncodedName, NeedsItsSecondQuoteInTheSameLine) {
  EXPECT_EQ(FindEncodedName("MIME-Version\r\nname=\"a\r\nb\"\r\nname=\"c\"\r\n"), "c");
  EXPECT_EQ(FindEncodedName("MIME-Version\r\nname=\"a\r\n\"\r\n"), std::nullopt);
  EXPECT_EQ(FindEncodedName("MIME-Version\r\nname=a\r\nname='b'\r\n"), std::nullopt);
}

TEST(EncodedName, EndsAtTheNextQuote) {
  EXPECT_EQ(FindEncodedName("MIME-Version\nname=\"a b; c\"; d=\"e\"\n"), "a b; c");
}

TEST(EncodedName, ALoneCrBeforeItEndsTheSearch) {
  EXPECT_EQ(FindEncodedName("MIME-Version\rname=\"a\"\r\n"), std::nullopt);
  EXPECT_EQ(FindEncodedName("MIME-Version\r\nx\ry\r\nname=\"a\"\r\n"), std::nullopt);
  EXPECT_EQ(FindEncodedName("MIME-Version\r\nx\r\r\nname=\"a\"\r\n"), std::nullopt);
}

TEST(EncodedName, ALoneCrAfterItDoesNotMatter) {
  EXPECT_EQ(FindEncodedName("MIME-Version\r\nname=\"a\"\rx"), "a");
}

TEST(EncodedName, MayBeEmpty) {
  EXPECT_EQ(FindEncodedName("MIME-Version\r\nname=\"\"\r\nname=\"a\"\r\n"), "");
}

TEST(HeaderEnd, IsAfterTheEmptyLine) {
  EXPECT_EQ(FindHeaderEnd(std::string(kWritten) + "Zm9v"), kWritten.size());
}

TEST(HeaderEnd, TheEmptyLineIsTheFourthOrALaterOne) {
  EXPECT_EQ(FindHeaderEnd("\n\n\n\nX"), 4u);
  EXPECT_EQ(FindHeaderEnd("a\n\nc\n\nX"), 6u);
  EXPECT_EQ(FindHeaderEnd("\r\n\r\n\r\nX\n"), 0u);
  EXPECT_EQ(FindHeaderEnd("a\nb\nc\nd\n\nX"), 9u);
}

TEST(HeaderEnd, TheEmptyLineIsTheTenthAtTheLatest) {
  EXPECT_EQ(FindHeaderEnd("1\n2\n3\n4\n5\n6\n7\n8\n9\n\nX"), 19u);
  EXPECT_EQ(FindHeaderEnd("1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n\nX"), 0u);
}

TEST(HeaderEnd, WithoutAnEmptyLineThereIsNone) {
  EXPECT_EQ(FindHeaderEnd(""), 0u);
  EXPECT_EQ(FindHeaderEnd("Zm9v"), 0u);
  EXPECT_EQ(FindHeaderEnd("a\nb\nc\nd\ne\n"), 0u);
  EXPECT_EQ(FindHeaderEnd("a\nb\nc\nd"), 0u);
}

TEST(HeaderEnd, DoesNotGetPastALoneCrAndIsZeroThen) {
  EXPECT_EQ(FindHeaderEnd("a\rb\nc\nd\n\nX"), 0u);
  EXPECT_EQ(FindHeaderEnd("a\nb\nc\nd\re\n\nX"), 0u);
  EXPECT_EQ(FindHeaderEnd("a\nb\nc\nd\n\rX"), 0u);
  EXPECT_EQ(FindHeaderEnd("a\nb\nc\nd\n\r\r\nX"), 0u);
}
