// How the format of a text file is detected by its first 1024 bytes.
#include "data/text_format.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "data/thrown.h"
#include "platform/outcome.h"
#include "support/scratch_folder.h"

using WQDR::DetectTextFormat;
using WQDR::TextFormat;
using WQDR::WQDataReaderException;

namespace {

// Returns the bytes of a literal, including zeros.
template <std::size_t kSize>
std::string Bytes(const char (&literal)[kSize]) {
  return {literal, kSize - 1};
}

// Detects the format by the first `valid` bytes of a head that contains more.
TextFormat DetectPart(const std::string& bytes, std::uint32_t valid) {
  std::array<unsigned char, WQDR::kFileHeadSize> head{};
  EXPECT_LE(bytes.size(), head.size());
  std::copy(bytes.begin(), bytes.end(), head.begin());
  return DetectTextFormat(head.data(), valid);
}

TextFormat Detect(const std::string& bytes) {
  return DetectPart(bytes, static_cast<std::uint32_t>(bytes.size()));
}

// Returns `size` bytes that end in `strange` bytes which are not text.
std::string WithStrangeBytes(std::size_t size, std::size_t strange) {
  return std::string(size - strange, 'a') + std::string(strange, '\x01');
}

bool IsTextByte(int byte) {
  return (byte >= 0x20 && byte <= 0x7E) || (byte >= 0xB0 && byte <= 0xDF) || byte == 0x09 || byte == 0x0A ||
         byte == 0x0D;
}

struct Head {
  std::unique_ptr<unsigned char[]> block;
  std::uint32_t bytesRead = 0xDDDDDDDD;
};

Head ReadHead(const WString& path) {
  Head head;
  head.block = WQDR::ReadFileHead(path, &head.bytesRead);
  return head;
}

// Returns the valid bytes. Fails the test if the rest of the block is not zero.
std::string ValidBytes(const Head& head) {
  if (!head.block || head.bytesRead > 1024) {
    ADD_FAILURE() << head.bytesRead;
    return {};
  }
  for (std::uint32_t i = head.bytesRead; i < 1024; ++i) EXPECT_EQ(head.block[i], 0) << i;
  return {head.block.get(), head.block.get() + head.bytesRead};
}

Thrown HeadFailure(const WString& path) {
  const Thrown ofHead = ThrownBy<WQDataReaderException>([&] { ReadHead(path); });
  const Thrown ofFormat = ThrownBy<WQDataReaderException>([&] { DetectTextFormat(path); });
  EXPECT_EQ(ofHead, ofFormat);
  return ofHead;
}

}  // namespace

TEST(TextFormat, NumbersAreThoseThatCallersCompareWith) {
  EXPECT_EQ(static_cast<int>(TextFormat::Ansi), 1);
  EXPECT_EQ(static_cast<int>(TextFormat::Utf16), 2);
  EXPECT_EQ(static_cast<int>(TextFormat::Utf8), 3);
  EXPECT_EQ(static_cast<int>(TextFormat::Binary), 4);
}

TEST(TextFormat, EmptyHeadIsAnsi) { EXPECT_EQ(Detect(""), TextFormat::Ansi); }

TEST(TextFormat, LittleEndianMarkIsUtf16WhateverFollows) {
  EXPECT_EQ(Detect("\xFF\xFE"), TextFormat::Utf16);
  EXPECT_EQ(Detect(Bytes("\xFF\xFE"
                         "a\0b\0")),
            TextFormat::Utf16);
  EXPECT_EQ(Detect("\xFF\xFE" + std::string(1000, '\x01')), TextFormat::Utf16);
  EXPECT_EQ(Detect("\xFF\xFE plain text"), TextFormat::Utf16);
}

TEST(TextFormat, HalfAMarkIsBinary) {
  EXPECT_EQ(Detect("\xFF"), TextFormat::Binary);
  EXPECT_EQ(DetectPart("\xFF\xFE", 1), TextFormat::Binary);
}

TEST(TextFormat, BigEndianMarkIsNotKnown) {
  EXPECT_EQ(Detect("\xFE\xFF"), TextFormat::Binary);
  EXPECT_EQ(Detect(Bytes("\xFE\xFF\0a\0b\0c\0d\0e")), TextFormat::Binary);
  // Two of ten bytes are not text.
  EXPECT_EQ(Detect("\xFE\xFF"
                   "abcdefgh"),
            TextFormat::Ansi);
}

TEST(TextFormat, FiveWesternUnitsAreUtf16WithoutAMark) {
  EXPECT_EQ(Detect(Bytes("A\0B\0C\0D\0E\0")), TextFormat::Utf16);
  EXPECT_EQ(Detect(Bytes("\x01\0\xFF\0\n\0\r\0\x80\0")), TextFormat::Utf16);
  // The bytes after the first five characters have no effect.
  EXPECT_EQ(Detect(Bytes("A\0B\0C\0D\0E\0") + std::string(500, '\x01')), TextFormat::Utf16);
}

TEST(TextFormat, NineBytesOfWesternUnitsAreBinary) {
  EXPECT_EQ(Detect(Bytes("A\0B\0C\0D\0E")), TextFormat::Binary);
  EXPECT_EQ(DetectPart(Bytes("A\0B\0C\0D\0E\0F\0"), 9), TextFormat::Binary);
}

TEST(TextFormat, EachOfTheFirstFiveUnitsMustBeAWesternOne) {
  for (std::size_t unit = 0; unit < 5; ++unit) {
    std::string zero = Bytes("A\0B\0C\0D\0E\0");
    zero[2 * unit] = '\0';
    EXPECT_EQ(Detect(zero), TextFormat::Binary) << unit;
    std::string wide = Bytes("A\0B\0C\0D\0E\0");
    wide[2 * unit + 1] = '\x20';
    EXPECT_EQ(Detect(wide), TextFormat::Binary) << unit;
  }
}

TEST(TextFormat, BigEndianUnitsAreBinary) {
  EXPECT_EQ(Detect(Bytes("\0A\0B\0C\0D\0E\0F")), TextFormat::Binary);
}

TEST(TextFormat, Utf8MarkIsUtf8WhateverFollows) {
  EXPECT_EQ(Detect("\xEF\xBB\xBF"), TextFormat::Utf8);
  EXPECT_EQ(Detect("\xEF\xBB\xBFtext"), TextFormat::Utf8);
  EXPECT_EQ(Detect("\xEF\xBB\xBF" + std::string(1000, '\x01')), TextFormat::Utf8);
}

TEST(TextFormat, PartOfTheUtf8MarkIsBinary) {
  EXPECT_EQ(Detect("\xEF\xBB"), TextFormat::Binary);
  EXPECT_EQ(DetectPart("\xEF\xBB\xBF", 2), TextFormat::Binary);
  EXPECT_EQ(Detect("\xEF\xBB\xBEtext"), TextFormat::Ansi);  // one of seven bytes is not text
}

TEST(TextFormat, XmlDeclarationThatNamesUtf8IsUtf8) {
  EXPECT_EQ(Detect("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a/>"), TextFormat::Utf8);
  EXPECT_EQ(Detect("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a/>"), TextFormat::Utf8);
  EXPECT_EQ(Detect("<?xml UTF-8\n"), TextFormat::Utf8);
  EXPECT_EQ(Detect("<?xml version=\"1.0\"?><a>UTF-88</a>\n"), TextFormat::Utf8);
}

TEST(TextFormat, XmlDeclarationIsUtf8AlsoBeforeBytesThatAreNoText) {
  EXPECT_EQ(Detect("<?xml UTF-8\n" + std::string(1000, '\x01')), TextFormat::Utf8);
}

TEST(TextFormat, XmlDeclarationOfAnyOtherWordingIsJudgedByItsBytes) {
  for (const char* text : {
           "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n",
           "<?xml version=\"1.0\" encoding=\"Utf-8\"?>\n",
           "<?xml version=\"1.0\" encoding=\"UTF8\"?>\n",
           "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n",
           "<?xml version=\"1.0\"?>\n",
           "<?xml version=\"1.0\"?>\nUTF-8\n",                // on the second line
           "<?xml version=\"1.0\" encoding=\"UTF-8\"?>",      // no line feed
           "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r",    //
           "<?XML version=\"1.0\" encoding=\"UTF-8\"?>\n",    //
           "<?xml\tversion=\"1.0\" encoding=\"UTF-8\"?>\n",   // a blank is required after "<?xml"
           " <?xml version=\"1.0\" encoding=\"UTF-8\"?>\n",   //
           "\n<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n",  //
           "<?xml \nUTF-8",
           "<?xml ",
           "<?xml",
           "UTF-8\n",
       }) {
    EXPECT_EQ(Detect(text), TextFormat::Ansi) << text;
  }
}

TEST(TextFormat, XmlDeclarationAfterWhichTheBytesAreNoTextIsBinaryWithoutItsWord) {
  EXPECT_EQ(Detect("<?xml utf-8\n" + std::string(100, '\x01')), TextFormat::Binary);
}

TEST(TextFormat, ZeroByteEndsTheSearchForTheDeclarationsEnd) {
  EXPECT_EQ(Detect(Bytes("<?xml \0encoding=\"UTF-8\"?>\n")), TextFormat::Ansi);
  EXPECT_EQ(Detect(Bytes("<?xml encoding=\"UTF-8\"\0?>\n")), TextFormat::Ansi);
}

TEST(TextFormat, DeclarationEndsWithinTheHead) {
  const std::string start = "<?xml UTF-8";
  // The last byte of the head is a line feed.
  EXPECT_EQ(Detect(start + std::string(1023 - start.size(), ' ') + "\n"), TextFormat::Utf8);
  EXPECT_EQ(Detect(start + std::string(1024 - start.size(), ' ')), TextFormat::Ansi);
  // A line feed after the valid bytes is ignored.
  EXPECT_EQ(DetectPart(start + "\n", static_cast<std::uint32_t>(start.size())), TextFormat::Ansi);
  EXPECT_EQ(DetectPart(start + "\n", static_cast<std::uint32_t>(start.size()) + 1), TextFormat::Utf8);
}

TEST(TextFormat, EncodingMayBeAtTheVeryEndOfALongDeclaration) {
  const std::string start = "<?xml ";
  EXPECT_EQ(Detect(start + std::string(1018 - start.size(), ' ') + "UTF-8\n"), TextFormat::Utf8);
}

TEST(TextFormat, EachByteAloneIsTextOrBinary) {
  for (int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(Detect(std::string(1, static_cast<char>(byte))),
              IsTextByte(byte) ? TextFormat::Ansi : TextFormat::Binary)
        << byte;
  }
}

TEST(TextFormat, EdgesOfTheTextBytesAreByDesign) {
  for (const char byte : {'\x09', '\x0A', '\x0D', '\x20', '\x7E', '\xB0', '\xC0', '\xDF'}) {
    EXPECT_EQ(Detect(std::string(3, byte)), TextFormat::Ansi) << int{byte};
  }
  for (const char byte : {'\x08', '\x0B', '\x0C', '\x0E', '\x1F', '\x7F', '\x80', '\xAF', '\xE0', '\xFE'}) {
    EXPECT_EQ(Detect(std::string(3, byte)), TextFormat::Binary) << int{byte};
  }
}

TEST(TextFormat, UpTo204StrangeBytesOf1024AreAllowed) {
  EXPECT_EQ(Detect(WithStrangeBytes(1024, 204)), TextFormat::Ansi);
  EXPECT_EQ(Detect(WithStrangeBytes(1024, 205)), TextFormat::Binary);
}

TEST(TextFormat, AFifthOfTheBytesMayBeStrangeRoundedDown) {
  const struct {
    std::size_t size;
    std::size_t allowed;
  } rows[] = {{1, 0},    {2, 0},    {4, 0},    {5, 1},      {9, 1},      {10, 2},
              {14, 2},   {15, 3},   {19, 3},   {20, 4},     {35, 7},     {99, 19},
              {100, 20}, {101, 20}, {115, 23}, {1000, 200}, {1015, 203}, {1023, 204}};
  for (const auto& row : rows) {
    EXPECT_EQ(Detect(WithStrangeBytes(row.size, row.allowed)), TextFormat::Ansi) << row.size;
    EXPECT_EQ(Detect(WithStrangeBytes(row.size, row.allowed + 1)), TextFormat::Binary) << row.size;
  }
}

TEST(TextFormat, OnlyTheValidBytesAreCounted) {
  EXPECT_EQ(DetectPart("text" + std::string(1000, '\x01'), 4), TextFormat::Ansi);
  EXPECT_EQ(DetectPart("\x01" + std::string(1000, 'a'), 4), TextFormat::Binary);
}

TEST(TextFormat, WesternLowerCaseAccentsAreStrangeAndUpperCaseOnesAreText) {
  EXPECT_EQ(Detect("\xC0\xC9\xD6\xDC\xDF"), TextFormat::Ansi);
  EXPECT_EQ(Detect("\xE0\xE9\xF6\xFC"), TextFormat::Binary);
  EXPECT_EQ(Detect("caf\xE9!"), TextFormat::Ansi);  // one in five
  EXPECT_EQ(Detect("caf\xE9"), TextFormat::Binary);
}

TEST(TextFormat, Utf8WithoutAMarkIsJudgedAsBytes) {
  EXPECT_EQ(Detect("Gr\xC3\xBC\xC3\x9F"
                   "e"),
            TextFormat::Ansi);                                 // only 9F, of seven
  EXPECT_EQ(Detect("\xE4\xB8\xAD"), TextFormat::Binary);       // E4 and AD of three
  EXPECT_EQ(Detect("UTF-8 \xE4\xB8\xAD!"), TextFormat::Ansi);  // two of ten
}

TEST(FileHead, HoldsAShortFileAndZeros) {
  const ScratchFolder scratch;
  EXPECT_EQ(ValidBytes(ReadHead(scratch.Write(W("a"), "abc"))), "abc");
  EXPECT_EQ(ValidBytes(ReadHead(scratch.Write(W("b"), ""))), "");
  EXPECT_EQ(ValidBytes(ReadHead(scratch.Write(W("c"), Bytes("\0\xFF\r\n")))), Bytes("\0\xFF\r\n"));
}

TEST(FileHead, HoldsTheFirst1024BytesOfALongFile) {
  const ScratchFolder scratch;
  const std::string first(1023, 'a');
  EXPECT_EQ(ValidBytes(ReadHead(scratch.Write(W("a"), first + "b"))), first + "b");
  EXPECT_EQ(ValidBytes(ReadHead(scratch.Write(W("b"), first + "bc"))), first + "b");
  EXPECT_EQ(ValidBytes(ReadHead(scratch.Write(W("c"), first + "b" + std::string(5000, 'c')))), first + "b");
}

TEST(FileHead, FormatOfAFileIsThatOfItsHead) {
  const ScratchFolder scratch;
  EXPECT_EQ(DetectTextFormat(scratch.Write(W("empty"), "")), TextFormat::Ansi);
  EXPECT_EQ(DetectTextFormat(scratch.Write(W("one"), "a")), TextFormat::Ansi);
  EXPECT_EQ(DetectTextFormat(scratch.Write(W("mark"), "\xFF\xFE")), TextFormat::Utf16);
  EXPECT_EQ(DetectTextFormat(scratch.Write(W("big"), "\xFE\xFF")), TextFormat::Binary);
  EXPECT_EQ(DetectTextFormat(scratch.Write(W("units"), Bytes("A\0B\0C\0D\0E\0"))), TextFormat::Utf16);
  EXPECT_EQ(DetectTextFormat(scratch.Write(W("utf8"), "\xEF\xBB\xBFtext")), TextFormat::Utf8);
  EXPECT_EQ(DetectTextFormat(scratch.Write(W("xml"), "<?xml encoding=\"UTF-8\"?>\n")), TextFormat::Utf8);
}

TEST(FileHead, BytesAfterTheHeadDoNotCount) {
  const ScratchFolder scratch;
  const std::string text(1024, 'a');
  EXPECT_EQ(DetectTextFormat(scratch.Write(W("a"), text + std::string(5000, '\x01'))), TextFormat::Ansi);
  EXPECT_EQ(DetectTextFormat(scratch.Write(W("b"), WithStrangeBytes(1024, 205) + std::string(5000, 'a'))),
            TextFormat::Binary);
  // The end of the declaration is after the head.
  EXPECT_EQ(DetectTextFormat(scratch.Write(W("c"), "<?xml UTF-8" + text + "\n")), TextFormat::Ansi);
}

TEST(FileHead, PathThatIsNotThereIsNumberTwoWhateverTheSystemSays) {
  const ScratchFolder scratch;
  const Thrown notFound{2, "File not found"};
  EXPECT_EQ(HeadFailure(scratch.Path(W("none"))), notFound);
  // The system's error is ERROR_PATH_NOT_FOUND (3) in this case.
  EXPECT_EQ(HeadFailure(scratch.Path(W("none\\a"))), notFound);
  EXPECT_EQ(HeadFailure(W("")), notFound);
}

TEST(FileHead, FolderCannotBeOpened) {
  const ScratchFolder scratch;
  EXPECT_EQ(HeadFailure(scratch.MakeFolder(W("folder"))),
            (Thrown{ERROR_ACCESS_DENIED, "Unable to open file"}));
}

TEST(FileHead, FileThatAnotherKeepsForItselfCannotBeOpened) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a"), "abc");
  const HANDLE holder = OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING, 0);
  ASSERT_NE(holder, INVALID_HANDLE_VALUE);
  EXPECT_EQ(HeadFailure(path), (Thrown{ERROR_SHARING_VIOLATION, "Unable to open file"}));
  CloseHandle(holder);
}

TEST(FileHead, FileThatIsOpenForWritingElsewhereIsRead) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a"), "abc");
  const HANDLE writer = OpenFor(path.c_str(), GENERIC_WRITE, OPEN_EXISTING);
  ASSERT_NE(writer, INVALID_HANDLE_VALUE);
  EXPECT_EQ(ValidBytes(ReadHead(path)), "abc");
  CloseHandle(writer);
}

TEST(FileHead, FileIsLetGo) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a"), "abc");
  const Head head = ReadHead(path);
  EXPECT_EQ(FailureOf(DeleteFileW(path.c_str())), kNoFailure);
}
