// MultiByteToWideChar and WideCharToMultiByte.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "platform/outcome.h"
#include "platform/text.h"

namespace {

WString Decode(UINT codePage, std::string_view bytes) {
  WCHAR target[100];
  const int size =
      MultiByteToWideChar(codePage, 0, bytes.data(), static_cast<int>(bytes.size()), target, 100);
  EXPECT_EQ(MultiByteToWideChar(codePage, 0, bytes.data(), static_cast<int>(bytes.size()), nullptr, 0), size);
  return WString(target, static_cast<std::size_t>(size));
}

std::string Encode(UINT codePage, WStringView text) {
  char target[100];
  const int count = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(codePage, 0, text.data(), count, target, 100, nullptr, nullptr);
  EXPECT_EQ(WideCharToMultiByte(codePage, 0, text.data(), count, nullptr, 0, nullptr, nullptr), size);
  return std::string(target, static_cast<std::size_t>(size));
}

// The units for the bytes 0x80 to 0x9F of code page 1252; five of them are control characters.
constexpr WCHAR kSpecials[] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                               0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

TEST(CodePagesTest, EveryByteOfTheCodePageGoesThereAndBack) {
  for (int i = 0; i < 256; ++i) {
    const std::string byte(1, static_cast<char>(i));
    const WString unit(1, i >= 0x80 && i < 0xA0 ? kSpecials[i - 0x80] : static_cast<WCHAR>(i));
    for (const UINT codePage : {UINT{CP_ACP}, UINT{CP_THREAD_ACP}, UINT{1252}}) {
      EXPECT_EQ(Decode(codePage, byte), unit) << i;
      EXPECT_EQ(Encode(codePage, unit), byte) << i;
    }
  }
}

TEST(CodePagesTest, CharactersOutsideTheCodePageBecomeTheirLikes) {
  const struct {
    WCHAR unit;
    char byte;
  } rows[] = {
      {0x0100, 'A'},    {0x0107, 'c'}, {0x0141, 'L'}, {0x0131, 'i'},    {0x0393, 'G'},
      {0x03B2, '\xDF'}, {0x2010, '-'}, {0x2011, '-'}, {0x2212, '-'},    {0x2032, '\''},
      {0x2044, '/'},    {0x221E, '8'}, {0x2264, '='}, {0x0301, '\xB4'}, {0x3000, ' '},
      {0xFF01, '!'},    {0xFF21, 'A'}, {0xFF5E, '~'}, {0x2003, ' '},    {0x2074, '4'},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Encode(CP_ACP, WString(1, row.unit)), std::string(1, row.byte)) << std::hex << int{row.unit};
  }
}

// For all 65536 units. The numbers are those of Windows' best-fit table: for each page of 256 units, how many
// have a byte, and a digest (FNV-1a) over the low byte and the mapped byte of these units.
TEST(CodePagesTest, EveryUnitHasTheLikeThatWindowsGivesIt) {
  struct Page {
    unsigned page;
    unsigned count;
    std::uint32_t digest;
    bool operator==(const Page&) const = default;
  };
  constexpr Page kPages[] = {
      {0x00, 229, 0x1FA0C631}, {0x01, 164, 0x9571A058}, {0x02, 13, 0x8024650E}, {0x03, 27, 0x55F0B71B},
      {0x04, 1, 0x5EC665B6},   {0x05, 1, 0x144AB2BA},   {0x06, 1, 0xA83FD888},  {0x20, 50, 0xBAC56BBF},
      {0x21, 31, 0xA30C8926},  {0x22, 21, 0x2290F3FC},  {0x23, 7, 0x39601933},  {0x25, 49, 0x3A9A2A3E},
      {0x26, 1, 0x2DF67F8D},   {0x27, 1, 0x5513C941},   {0x30, 8, 0x1D61CC3A},  {0xFF, 93, 0x76BA34B1}};
  constexpr std::uint32_t kBasis = 2166136261;
  for (unsigned page = 0; page < 256; ++page) {
    Page found = {page, 0, kBasis};
    const auto take = [&found](unsigned byte) { found.digest = (found.digest ^ byte) * 16777619; };
    for (unsigned low = 0; low < 256; ++low) {
      const auto unit = static_cast<WCHAR>(page << 8 | low);
      char byte = 0;
      BOOL used = FALSE;
      ASSERT_EQ(WideCharToMultiByte(1252, 0, &unit, 1, &byte, 1, nullptr, &used), 1);
      if (used) continue;
      ++found.count;
      take(low);
      take(static_cast<unsigned char>(byte));
    }
    const auto* const expected = std::ranges::find(kPages, page, &Page::page);
    EXPECT_EQ(found, (expected != std::end(kPages) ? *expected : Page{page, 0, kBasis})) << std::hex << page;
  }
}

TEST(CodePagesTest, CharactersWithoutALikeBecomeTheDefault) {
  char target[10] = {};
  BOOL used = 7;
  const WString text = W("a\u4E2Db\u0416");
  EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, text.data(), 4, target, 10, nullptr, &used), 4);
  EXPECT_EQ(std::string(target), "a?b?");
  EXPECT_EQ(used, TRUE);
  EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, text.data(), 4, target, 10, "#", &used), 4);
  EXPECT_EQ(std::string(target), "a#b#");
  EXPECT_EQ(used, TRUE);
}

TEST(CodePagesTest, ControlCharactersThatTheCodePageLacksBecomeTheDefault) {
  EXPECT_EQ(Encode(CP_ACP, WString{0x80, 0x81, 0x82, 0x9F}), "?\x81??");
}

TEST(CodePagesTest, EachHalfOfASurrogatePairBecomesTheDefault) {
  EXPECT_EQ(Encode(CP_ACP, W("a\U0001F600z")), "a??z");
}

TEST(CodePagesTest, ADefaultThatWasNotNeededIsNotReported) {
  char target[10] = {};
  BOOL used = 7;
  EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, W("a?\u0100"), 3, target, 10, nullptr, &used), 3);
  EXPECT_EQ(std::string(target), "a?A");
  EXPECT_EQ(used, FALSE);
}

TEST(CodePagesTest, Utf8GoesThereAndBack) {
  const struct {
    const char* bytes;
    const WCHAR* text;
  } rows[] = {
      {"abc", W("abc")},
      {"\xC3\xA9", W("\u00E9")},
      {"\x7F", W("\x7F")},
      {"\xC2\x80", W("\x80")},
      {"\xDF\xBF", W("\u07FF")},
      {"\xE0\xA0\x80", W("\u0800")},
      {"\xE2\x82\xAC", W("\u20AC")},
      {"\xED\x9F\xBF", W("\uD7FF")},
      {"\xEE\x80\x80", W("\uE000")},
      {"\xEF\xBB\xBF", W("\uFEFF")},
      {"\xEF\xBF\xBF", W("\uFFFF")},
      {"\xF0\x90\x80\x80", W("\U00010000")},
      {"\xF0\x9F\x98\x80z", W("\U0001F600z")},
      {"\xF0\x92\x8D\x85", W("\U00012345")},
      {"\xF4\x8F\xBF\xBF", W("\U0010FFFF")},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Decode(CP_UTF8, row.bytes), row.text) << row.bytes;
    EXPECT_EQ(Encode(CP_UTF8, row.text), row.bytes) << row.bytes;
  }
}

// Encodes by division, as the standard defines UTF-8 and UTF-16.
std::string PlainUtf8(unsigned point) {
  std::string text;
  const auto add = [&text](unsigned byte) { text += static_cast<char>(byte); };
  if (point <= 0x7F) {
    add(point);
  } else if (point <= 0x7FF) {
    add(192 + point / 64);
    add(128 + point % 64);
  } else if (point <= 0xFFFF) {
    add(224 + point / 4096);
    add(128 + point / 64 % 64);
    add(128 + point % 64);
  } else {
    add(240 + point / 262144);
    add(128 + point / 4096 % 64);
    add(128 + point / 64 % 64);
    add(128 + point % 64);
  }
  return text;
}

WString PlainUtf16(unsigned point) {
  if (point <= 0xFFFF) return WString(1, static_cast<WCHAR>(point));
  return {static_cast<WCHAR>(0xD800 + (point - 0x10000) / 1024), static_cast<WCHAR>(0xDC00 + point % 1024)};
}

TEST(CodePagesTest, EachCharacterGoesToUtf8AndBack) {
  for (unsigned point = 1; point <= 0x10FFFF; point += point < 0x10400 || point > 0x10FC00 ? 1 : 61) {
    if (point >= 0xD800 && point <= 0xDFFF) continue;
    const std::string bytes = PlainUtf8(point);
    const WString units = PlainUtf16(point);
    WCHAR wide[4];
    char narrow[8];
    const int unitCount = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(),
                                              static_cast<int>(bytes.size()), wide, 4);
    ASSERT_EQ(WString(wide, static_cast<std::size_t>(unitCount)), units) << std::hex << point;
    const int byteCount = WideCharToMultiByte(CP_UTF8, 0, units.data(), static_cast<int>(units.size()),
                                              narrow, 8, nullptr, nullptr);
    ASSERT_EQ(std::string(narrow, static_cast<std::size_t>(byteCount)), bytes) << std::hex << point;
  }
}

// The first two bytes of a character, from tables 3-6 and 3-7 of the Unicode standard.
TEST(CodePagesTest, TheFirstTwoBytesDecideWhetherTheyBeginACharacter) {
  for (unsigned first = 0x80; first <= 0xFF; ++first) {
    for (unsigned second = 1; second <= 0xFF; ++second) {
      const unsigned least = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
      const unsigned most = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
      const bool begins = first >= 0xC2 && first <= 0xF4 && second >= least && second <= most;
      std::string bytes = {static_cast<char>(first), static_cast<char>(second)};
      if (first >= 0xE0) bytes += '\x80';
      if (first >= 0xF0) bytes += '\x80';
      WCHAR wide[8];
      const int count = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(),
                                            static_cast<int>(bytes.size()), wide, 8);
      EXPECT_EQ(count != 0, begins) << std::hex << first << " " << second;
    }
  }
}

TEST(CodePagesTest, BytesThatAreNoUtf8BecomeReplacements) {
  const struct {
    const char* bytes;
    const WCHAR* text;
  } rows[] = {
      {"a\xFF"
       "b",
       W("a\uFFFDb")},
      {"\x80\x80", W("\uFFFD\uFFFD")},
      {"\xC3", W("\uFFFD")},
      {"\xC3"
       "a",
       W("\uFFFDa")},
      {"\xC0\x80", W("\uFFFD\uFFFD")},
      {"\xC1\xBF", W("\uFFFD\uFFFD")},
      {"\xE2\x82", W("\uFFFD")},
      {"\xE2\x82"
       "a",
       W("\uFFFDa")},
      {"\xE2\x28\xA1", W("\uFFFD(\uFFFD")},
      {"\xE0\x80\x80", W("\uFFFD\uFFFD")},
      {"\xE0\xC0\x80", W("\uFFFD\uFFFD\uFFFD")},
      {"\xE0\x9F\xBF", W("\uFFFD\uFFFD")},
      {"\xED\xA0\x80", W("\uFFFD\uFFFD")},
      {"\xED\xA0\x80\xED\xB0\x80", W("\uFFFD\uFFFD\uFFFD\uFFFD")},
      {"\xF0\x9F\x98", W("\uFFFD")},
      {"\xF0\x9F\x98\xFF", W("\uFFFD\uFFFD")},
      {"\xF0\x80\x80\x80", W("\uFFFD\uFFFD\uFFFD")},
      {"\xF0\x90\xE2\x82\xAC", W("\uFFFD\u20AC")},
      {"\xF4\x90\x80\x80", W("\uFFFD\uFFFD\uFFFD")},
      {"\xF5\x80", W("\uFFFD\uFFFD")},
      {"\xF8\x88\x80\x80\x80", W("\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD")},
  };
  for (const auto& row : rows) {
    const int size = static_cast<int>(std::string_view(row.bytes).size());
    EXPECT_EQ(Decode(CP_UTF8, row.bytes), row.text) << testing::PrintToString(std::string(row.bytes));
    WCHAR target[20];
    EXPECT_EQ(FailureOf(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, row.bytes, size, target, 20)),
              1113u);
  }
}

TEST(CodePagesTest, StrictDecodingTakesWhatIsUtf8) {
  WCHAR target[20];
  EXPECT_EQ(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, "\xF0\x9F\x98\x80", 4, target, 20), 2);
  EXPECT_EQ(MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, "\x81\x80", 2, target, 20), 2);
}

TEST(CodePagesTest, ASurrogateAloneBecomesAReplacement) {
  const WString rows[] = {WString(1, WCHAR(0xD800)), WString(1, WCHAR(0xDC00))};
  for (const WString& text : rows) EXPECT_EQ(Encode(CP_UTF8, text), "\xEF\xBF\xBD");
  EXPECT_EQ(Encode(CP_UTF8, WString{0xDE00, 0xD83D}), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(Encode(CP_UTF8, WString{W('a'), 0xD800, W('z')}), "a\xEF\xBF\xBDz");
}

TEST(CodePagesTest, ASourceWithoutSizeIsConvertedWithItsTerminator) {
  WCHAR wide[10] = {1, 1, 1, 1, 1};
  char bytes[10] = {1, 1, 1, 1, 1};
  for (const UINT codePage : {UINT{CP_ACP}, UINT{CP_UTF8}}) {
    EXPECT_EQ(MultiByteToWideChar(codePage, 0, "abc", -1, wide, 10), 4);
    EXPECT_EQ(WString(wide), W("abc"));
    EXPECT_EQ(WideCharToMultiByte(codePage, 0, W("abc"), -1, bytes, 10, nullptr, nullptr), 4);
    EXPECT_EQ(std::string(bytes), "abc");
    EXPECT_EQ(MultiByteToWideChar(codePage, 0, "abc", -1, nullptr, 0), 4);
    EXPECT_EQ(WideCharToMultiByte(codePage, 0, W("abc"), -1, nullptr, 0, nullptr, nullptr), 4);
  }
}

TEST(CodePagesTest, ATargetTooSmallFailsAndHoldsWhatFits) {
  WCHAR wide[4] = {};
  EXPECT_EQ(FailureOf(MultiByteToWideChar(CP_ACP, 0, "abc", 3, wide, 2)), 122u);
  EXPECT_EQ(WString(wide), W("ab"));
  EXPECT_EQ(FailureOf(MultiByteToWideChar(CP_UTF8, 0, "abc", -1, wide, 3)), 122u);
  EXPECT_EQ(WString(wide), W("abc"));
  char bytes[4] = {};
  EXPECT_EQ(FailureOf(WideCharToMultiByte(CP_ACP, 0, W("abc"), 3, bytes, 2, nullptr, nullptr)), 122u);
  EXPECT_EQ(std::string(bytes), "ab");
  char utf8[4] = {};
  EXPECT_EQ(FailureOf(WideCharToMultiByte(CP_UTF8, 0, W("a\u20AC"), 2, utf8, 3, nullptr, nullptr)), 122u);
  EXPECT_EQ(std::string(utf8), "a");
}

TEST(CodePagesTest, WrongArgumentsAreRefused) {
  WCHAR wide[4];
  char bytes[4];
  EXPECT_EQ(FailureOf(MultiByteToWideChar(CP_ACP, 0, nullptr, 3, wide, 4)), 87u);
  EXPECT_EQ(FailureOf(MultiByteToWideChar(CP_ACP, 0, "abc", 0, wide, 4)), 87u);
  EXPECT_EQ(FailureOf(MultiByteToWideChar(CP_UTF8, 0, "abc", 0, wide, 4)), 87u);
  EXPECT_EQ(FailureOf(MultiByteToWideChar(CP_ACP, 0, "abc", 3, nullptr, 4)), 87u);
  EXPECT_EQ(FailureOf(MultiByteToWideChar(CP_ACP, 0, "abc", 3, wide, -1)), 87u);
  EXPECT_EQ(FailureOf(MultiByteToWideChar(99999, 0, "abc", 3, wide, 4)), 87u);
  EXPECT_EQ(FailureOf(MultiByteToWideChar(CP_ACP, 0x100, "abc", 3, wide, 4)), 1004u);
  EXPECT_EQ(FailureOf(WideCharToMultiByte(CP_ACP, 0, nullptr, 3, bytes, 4, nullptr, nullptr)), 87u);
  EXPECT_EQ(FailureOf(WideCharToMultiByte(CP_ACP, 0, W("abc"), 0, bytes, 4, nullptr, nullptr)), 87u);
  EXPECT_EQ(FailureOf(WideCharToMultiByte(CP_ACP, 0, W("abc"), 3, nullptr, 4, nullptr, nullptr)), 87u);
  EXPECT_EQ(FailureOf(WideCharToMultiByte(CP_ACP, 0, W("abc"), 3, bytes, -1, nullptr, nullptr)), 87u);
  EXPECT_EQ(FailureOf(WideCharToMultiByte(99999, 0, W("abc"), 3, bytes, 4, nullptr, nullptr)), 87u);
  EXPECT_EQ(FailureOf(WideCharToMultiByte(CP_UTF8, 1, W("abc"), 3, bytes, 4, nullptr, nullptr)), 1004u);
}

}  // namespace
