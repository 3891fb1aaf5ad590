// Loading the lines of a document from bytes.
#include "findreplace/engine/text_document_loader.h"

#include <gmock/gmock.h>

#include <new>
#include <tuple>
#include <vector>

#include "data/thrown.h"
#include "findreplace/documents.h"
#include "linesorter/scripted_reader.h"
#include "platform/windows_api.h"

using namespace QXFindAndReplace;
using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

struct Line {
  std::string text;
  LineEnding ending;
  unsigned endingCharacters;
  friend bool operator==(const Line&, const Line&) = default;
};
void PrintTo(const Line& line, std::ostream* out) {
  *out << '"' << line.text << "\" " << static_cast<int>(line.ending) << " " << line.endingCharacters;
}

Line None(std::string text) { return {std::move(text), LineEnding::None, 0}; }
Line Lf(std::string text) { return {std::move(text), LineEnding::Lf, 1}; }
Line CrLf(std::string text) { return {std::move(text), LineEnding::CrLf, 2}; }

// Returns the lines and checks the invariants of lines that were just loaded.
template <typename CharT>
std::vector<Line> LinesOf(const TextDocumentT<CharT>& document) {
  std::vector<Line> lines;
  EXPECT_EQ(document.GetLineCount(), document.lines.size());
  for (const TextLine& line : document.lines) {
    EXPECT_EQ(line.kind, kFileText);
    EXPECT_EQ(line.lineFollows, 0);
    EXPECT_EQ(line.originOffset, 0u);
    EXPECT_EQ(line.next, nullptr);
    EXPECT_EQ(line.removed, 0);
    EXPECT_EQ(line.length, line.fileLength);
    EXPECT_EQ(line.fileLength % sizeof(CharT), 0u);
    EXPECT_EQ(line.endingSize % sizeof(CharT), 0u);
    lines.push_back(
        {Narrow<CharT>({reinterpret_cast<const CharT*>(line.text), line.fileLength / sizeof(CharT)}),
         line.ending, static_cast<unsigned>(line.endingSize / sizeof(CharT))});
  }
  EXPECT_EQ(document.changeCount, 0u);
  EXPECT_FALSE(document.replaceAll);
  EXPECT_THAT(document.parts, IsEmpty());
  EXPECT_THAT(document.insertedLines, IsEmpty());
  EXPECT_THAT(document.regexCache, IsEmpty());
  return lines;
}

template <typename CharT>
class TextDocumentLoaderTest : public testing::Test {
 protected:
  static std::vector<Line> Load(std::string_view text, std::uint32_t block = kUsualBlock<CharT>) {
    return LinesOf(*MakeDocument<CharT>(text, block));
  }
  // Returns the text after loading and writing it.
  static std::string Rewrite(std::string_view text, std::uint32_t block = kUsualBlock<CharT>) {
    return Written(*MakeDocument<CharT>(text, block));
  }
};
TYPED_TEST_SUITE(TextDocumentLoaderTest, BothWidths);

// Delivers the letter x without end.
class EndlessReader final : public WQDR::DataReader {
 public:
  EndlessReader() { size = std::uint64_t{1} << 40; }
  void Read(void* buffer, std::uint32_t toRead, std::uint32_t* bytesRead) override {
    if (++reads > 1000) throw std::string("too many reads");
    std::memset(buffer, 'x', toRead);
    *bytesRead = toRead;
  }
  void Close() override {}
  int reads = 0;
};

}  // namespace

TYPED_TEST(TextDocumentLoaderTest, EmptyFileHasNoLinesNoChangesAndNoOutput) {
  EXPECT_THAT(this->Load(""), IsEmpty());
  EXPECT_EQ(this->Rewrite(""), "");
}

TYPED_TEST(TextDocumentLoaderTest, LinesEndWithLfOrCrLf) {
  EXPECT_THAT(this->Load("a\nb\n"), ElementsAre(Lf("a"), Lf("b")));
  EXPECT_THAT(this->Load("a\nb"), ElementsAre(Lf("a"), None("b")));
  EXPECT_THAT(this->Load("a\r\nb\nc\r\n"), ElementsAre(CrLf("a"), Lf("b"), CrLf("c")));
  EXPECT_THAT(this->Load("\n\r\n\n"), ElementsAre(Lf(""), CrLf(""), Lf("")));
  EXPECT_THAT(this->Load("a"), ElementsAre(None("a")));
}

TYPED_TEST(TextDocumentLoaderTest, RewritingAddsNoEndingToALastLineWithoutOne) {
  EXPECT_EQ(this->Rewrite("a\nb"), "a\nb");
  EXPECT_EQ(this->Rewrite("a\nb\n"), "a\nb\n");
  EXPECT_EQ(this->Rewrite("a"), "a");
}

// Intended, although it looks like a mistake.
TYPED_TEST(TextDocumentLoaderTest, LoneCrSeparatesLinesAndIsLost) {
  EXPECT_THAT(this->Load("a\rb"), ElementsAre(None("a"), None("b")));
  EXPECT_EQ(this->Rewrite("a\rb"), "ab");
  EXPECT_THAT(this->Load("a\r"), ElementsAre(None("a")));
  EXPECT_THAT(this->Load("\r"), ElementsAre(None("")));
  EXPECT_THAT(this->Load("a\r\rb"), ElementsAre(None("a"), None(""), None("b")));
  EXPECT_THAT(this->Load("a\r\r\nb"), ElementsAre(None("a"), CrLf(""), None("b")));
  EXPECT_EQ(this->Rewrite("a\r\r\nb"), "a\r\nb");
  EXPECT_THAT(this->Load("a\n\rb"), ElementsAre(Lf("a"), None(""), None("b")));
}

TYPED_TEST(TextDocumentLoaderTest, ZeroCharactersAreText) {
  const auto text = "\0a\0\n\0"sv;
  EXPECT_THAT(this->Load(text), ElementsAre(Lf(std::string("\0a\0", 3)), None(std::string(1, '\0'))));
  EXPECT_EQ(this->Rewrite(text), text);
}

TEST(TextDocumentLoaderBytes, Utf8MarkIsTextOfTheFirstLineAndIsWrittenBack) {
  const auto document = MakeDocument<char>(
      "\xEF\xBB\xBF"
      "a\nb\n");
  EXPECT_THAT(LinesOf(*document), ElementsAre(Lf("\xEF\xBB\xBF"
                                                 "a"),
                                              Lf("b")));
  EXPECT_EQ(Written(*document),
            "\xEF\xBB\xBF"
            "a\nb\n");
}

TEST(TextDocumentLoaderWide, Utf16MarkIsTextOfTheFirstLineAndIsWrittenBack) {
  const std::string bytes(
      "\xFF\xFE"
      "a\0\n\0b\0",
      8);
  const auto document = MakeDocumentOfBytes<WCHAR>(bytes);
  EXPECT_THAT(LinesOf(*document), ElementsAre(Lf("{FEFF}a"), None("b")));
  EXPECT_EQ(WrittenBytes(*document), bytes);
}

TEST(TextDocumentLoaderWide, UnitsThatHoldTheBytesOfLineEndsAreText) {
  const WString text = {0x0A0D, 0x0D0A, 0x0A00, 0x0D00, W('\r'), W('\n'), 0x010A, 0x0D01, 0x0A0D};
  const std::string bytes = RawBytes<WCHAR>(WStringView(text));
  for (const std::uint32_t block : {8u, 9u, 10u, 11u, 16384u}) {
    const auto document = MakeDocumentOfBytes<WCHAR>(bytes, block);
    EXPECT_THAT(LinesOf(*document), ElementsAre(CrLf("{0A0D}{0D0A}{0A00}{0D00}"), None("{010A}{0D01}{0A0D}")))
        << block;
    EXPECT_EQ(WrittenBytes(*document), bytes);
  }
}

TYPED_TEST(TextDocumentLoaderTest, KeepsTheFormat) {
  for (const WQDR::TextFormat format :
       {WQDR::TextFormat::Ansi, WQDR::TextFormat::Utf16, WQDR::TextFormat::Utf8}) {
    const std::string bytes = BytesOf<TypeParam>("a");
    WQDR::MemoryDataReader reader(bytes.data(), bytes.size());
    EXPECT_EQ(TextDocumentLoader().Load<TypeParam>(reader, format)->format, format);
  }
}

TEST(TextDocumentLoaderSettings, BlocksAre32768BytesByDefault) {
  EXPECT_EQ(TextDocumentLoader().blockSize, 32768u);
}

// --- block boundaries

TYPED_TEST(TextDocumentLoaderTest, LineCutByABlocksBorderIsCarriedOver) {
  const auto document = MakeDocument<TypeParam>("abc\ndefgh\nij", 8);
  EXPECT_THAT(LinesOf(*document), ElementsAre(Lf("abc"), Lf("defgh"), None("ij")));
  EXPECT_THAT(document->blocks, SizeIs(2));
  EXPECT_EQ(Written(*document), "abc\ndefgh\nij");
}

TYPED_TEST(TextDocumentLoaderTest, OneLineIsCarriedOverSeveralBorders) {
  // Each block repeats the beginning of the longest line.
  EXPECT_THAT(
      this->Load("a\nb\nc\nd\nefghijk\nl\nm\nnopqrst\n", 8),
      ElementsAre(Lf("a"), Lf("b"), Lf("c"), Lf("d"), Lf("efghijk"), Lf("l"), Lf("m"), Lf("nopqrst")));
}

TYPED_TEST(TextDocumentLoaderTest, EveryTextComesBackFromEveryBlockSizeThatHoldsItsLines) {
  const std::string text = "one\n\ntwo two\nx\n\n\nthree\nfour four\nfive";
  for (std::uint32_t block = 10; block < 48; ++block) {
    EXPECT_THAT(this->Load(text, block), ElementsAre(Lf("one"), Lf(""), Lf("two two"), Lf("x"), Lf(""),
                                                     Lf(""), Lf("three"), Lf("four four"), None("five")))
        << block;
    EXPECT_EQ(this->Rewrite(text, block), text) << block;
  }
}

TYPED_TEST(TextDocumentLoaderTest, SpansNameTheBlockTheFirstLineAndTheEndOfTheText) {
  using Span = std::tuple<std::uint32_t, std::size_t, std::ptrdiff_t>;
  const auto spansOf = [](const DocumentPointer<TypeParam>& document) {
    std::vector<Span> spans;
    for (const auto& span : document->spans) {
      const char* const block = document->blocks.at(span.block).get();
      spans.emplace_back(span.firstLine, span.block, span.end - reinterpret_cast<const TypeParam*>(block));
    }
    return spans;
  };
  // The blocks contain "abc\ndefg", "defgh\nij" and "ijk\n\nl".
  EXPECT_THAT(spansOf(MakeDocument<TypeParam>("abc\ndefgh\nijk\n\nl", 8)),
              ElementsAre(Span(0, 0, 3), Span(1, 1, 5), Span(2, 2, 6)));
  EXPECT_THAT(spansOf(MakeDocument<TypeParam>("a\n\nb\r\n", 8)), ElementsAre(Span(0, 0, 4)));
  EXPECT_THAT(spansOf(MakeDocument<TypeParam>("", 8)), IsEmpty());
}

TYPED_TEST(TextDocumentLoaderTest, CrLfThatEndsWithItsBlockIsOneEnding) {
  EXPECT_THAT(this->Load("ab\r\ncd\r\n", 4), ElementsAre(CrLf("ab"), CrLf("cd")));
  EXPECT_THAT(this->Load("a\nbcdefg\r\nh", 10), ElementsAre(Lf("a"), CrLf("bcdefg"), None("h")));
  EXPECT_THAT(this->Load("a\nbcdefg\r\nh", 8), ElementsAre(Lf("a"), CrLf("bcdefg"), None("h")));
}

TYPED_TEST(TextDocumentLoaderTest, CrLfCutByABlocksBorderShiftsTheLineNumbersByOne) {
  EXPECT_THAT(this->Load("abc\r\nd\n", 4), ElementsAre(None("abc"), Lf(""), Lf("d")));
  EXPECT_EQ(this->Rewrite("abc\r\nd\n", 4), "abc\nd\n");
  // After a line with an ending the text is written unchanged.
  EXPECT_THAT(this->Load("\r\nabc\r\nd", 6), ElementsAre(CrLf(""), None("abc"), Lf(""), None("d")));
  EXPECT_EQ(this->Rewrite("\r\nabc\r\nd", 6), "\r\nabc\r\nd");
}

// The first ending that the loader detects is the LF alone.
TYPED_TEST(TextDocumentLoaderTest, CrLfCutByABlocksBorderAsTheFirstEndingMakesLfTheOutputEnding) {
  const auto document = MakeDocument<TypeParam>("abc\r\nd\r\ne\r\n", 4);
  EXPECT_EQ(document->GetEndingForOutput(), LineEnding::Lf);
  EXPECT_EQ(Written(*document), "abc\nd\ne\n");
}

TYPED_TEST(TextDocumentLoaderTest, CrAsTheLastCharacterOfABlockSeparatesLines) {
  EXPECT_THAT(this->Load("abc\rdef", 4), ElementsAre(None("abc"), None("def")));
  EXPECT_THAT(this->Load("abc\r\rd", 4), ElementsAre(None("abc"), None(""), None("d")));
  EXPECT_THAT(this->Load("abc\r", 4), ElementsAre(None("abc")));
}

TYPED_TEST(TextDocumentLoaderTest, BordersOfTheUsualBlockSize) {
  const std::string fill(kUsualBlock<TypeParam> - 1, 'x');
  EXPECT_EQ(this->Load(fill + "\nab"), (std::vector{Lf(fill), None("ab")}));
  EXPECT_EQ(this->Load(fill + "\r\nab"), (std::vector{None(fill), Lf(""), None("ab")}));
  EXPECT_EQ(this->Load("ab\n" + fill + "\nab"), (std::vector{Lf("ab"), Lf(fill), None("ab")}));
  EXPECT_EQ(this->Rewrite("ab\n" + fill + "\nab"), "ab\n" + fill + "\nab");
}

// --- lines that fill a block

TYPED_TEST(TextDocumentLoaderTest, LastLineOfExactlyOneBlockLoadsIfNothingFollows) {
  EXPECT_THAT(this->Load("abcdefgh", 8), ElementsAre(None("abcdefgh")));
  EXPECT_THAT(this->Load("ab\ncdefghij", 8), ElementsAre(Lf("ab"), None("cdefghij")));
  const std::string fill(kUsualBlock<TypeParam>, 'x');
  EXPECT_EQ(this->Load(fill), std::vector{None(fill)});
  EXPECT_EQ(this->Rewrite("a\n" + fill), "a\n" + fill);
}

TYPED_TEST(TextDocumentLoaderTest, LineOfABlockOrMoreIsRefusedIfTextFollows) {
  EXPECT_THROW(this->Load("abcdefgh\n", 8), std::bad_alloc);
  EXPECT_THROW(this->Load("abcdefgh\r\n", 8), std::bad_alloc);
  EXPECT_THROW(this->Load("abcdefghi", 8), std::bad_alloc);
  EXPECT_THROW(this->Load("a\nbcdefghij\n", 8), std::bad_alloc);
  EXPECT_THROW(this->Load("a\nb\ncdefghijklmnopqrst", 8), std::bad_alloc);
  EXPECT_THROW(this->Load(std::string(kUsualBlock<TypeParam> + 1, 'x')), std::bad_alloc);
  EXPECT_THROW(this->Load(std::string(kUsualBlock<TypeParam>, 'x') + "\n"), std::bad_alloc);
}

TYPED_TEST(TextDocumentLoaderTest, LineThatFillsItsBlockIsRefusedAtOnce) {
  ScriptedReader reader(std::string(1 << 20, 'x'));
  EXPECT_THROW(ReadDocument<TypeParam>(reader), std::bad_alloc);
  EXPECT_THAT(reader.requests, SizeIs(1));

  ScriptedReader later(BytesOf<TypeParam>("ab\n") + std::string(1 << 20, 'x'));
  EXPECT_THROW(ReadDocument<TypeParam>(later, 8), std::bad_alloc);
  EXPECT_THAT(later.requests, SizeIs(2));
}

TYPED_TEST(TextDocumentLoaderTest, SourceWithoutAnEndIsRefusedAtOnce) {
  EndlessReader reader;
  EXPECT_THROW(ReadDocument<TypeParam>(reader), std::bad_alloc);
  EXPECT_LE(reader.reads, 1);
}

// --- readers

TYPED_TEST(TextDocumentLoaderTest, ReaderMayDeliverInAnyPortions) {
  const std::string text = "one\n\ntwo two\nx\nthree";
  const auto expected = std::vector{Lf("one"), Lf(""), Lf("two two"), Lf("x"), None("three")};
  for (const std::uint32_t portion : {1u, 2u, 3u, 5u, 7u, 16u}) {
    for (const std::uint32_t block : {8u, 9u, 16u, 1000u}) {
      ScriptedReader reader(BytesOf<TypeParam>(text), {portion});
      const auto document = ReadDocument<TypeParam>(reader, block);
      EXPECT_EQ(LinesOf(*document), expected) << portion << " " << block;
      EXPECT_EQ(Written(*document), text);
    }
  }
}

// The remainder of a file that is truncated during the read must not be taken for the whole file.
TYPED_TEST(TextDocumentLoaderTest, ReaderThatEndsEarlyIsRefused) {
  for (const char* text : {"one\ntwo\nthr", ""}) {
    for (const std::uint64_t promised : {std::uint64_t{1}, std::uint64_t{5000}, std::uint64_t{1} << 40}) {
      ScriptedReader reader(BytesOf<TypeParam>(text));
      reader.size += promised;
      reader.maxReads = 50;
      EXPECT_EQ(ThrownBy<WQDR::WQDataReaderException>([&] { ReadDocument<TypeParam>(reader, 8); }),
                (Thrown{ERROR_HANDLE_EOF, "Failed to read file"}));
    }
  }
}

TYPED_TEST(TextDocumentLoaderTest, FailureOfTheReaderPasses) {
  for (const int failAt : {1, 2, 3}) {
    ScriptedReader reader(BytesOf<TypeParam>("one\ntwo\nthree\nfour\nfive\nsix\n"));
    reader.failAt = failAt;
    reader.fail = [] { throw WQDR::WQDataReaderException(1117, "Failed to read file"); };
    EXPECT_EQ(DataError([&] { ReadDocument<TypeParam>(reader, 8); }),
              (Thrown{ERROR_IO_DEVICE, "Failed to read file"}));
    EXPECT_THAT(reader.requests, SizeIs(failAt));
  }
}

// --- 16-bit texts with an odd number of bytes

TEST(TextDocumentLoaderWide, OddLastByteIsNotPartOfTheTextAndIsWrittenAfterIt) {
  struct Case {
    std::string bytes;
    std::vector<Line> lines;
  };
  const Case cases[] = {
      {std::string("x", 1), {}},
      {std::string("a\0x", 3), {None("a")}},
      {std::string("a\0\n", 3), {None("a")}},
      {std::string("a\0\n\0x", 5), {Lf("a")}},
      {std::string("a\0\n\0b\0\0", 7), {Lf("a"), None("b")}},
  };
  for (const Case& one : cases) {
    for (const std::uint32_t block : {3u, 4u, 5u, 16384u}) {
      const auto document = MakeDocumentOfBytes<WCHAR>(one.bytes, block);
      EXPECT_EQ(LinesOf(*document), one.lines) << block;
      EXPECT_EQ(document->separateByte, one.bytes.back());
      EXPECT_EQ(WrittenBytes(*document), one.bytes);
    }
  }
}

TEST(TextDocumentLoaderWide, OddLastByteMakesNoCrLfOfACr) {
  const auto document = MakeDocumentOfBytes<WCHAR>(std::string("a\0\r\0\n", 5));
  EXPECT_THAT(LinesOf(*document), ElementsAre(None("a")));
  EXPECT_EQ(WrittenBytes(*document), "a\0\n"sv) << "the lone CR is lost, the byte is not";
}

TEST(TextDocumentLoaderWide, TextOfWholeUnitsHasNoSeparateByte) {
  EXPECT_EQ(MakeDocument<WCHAR>("ab\nc")->separateByte, std::nullopt);
  EXPECT_EQ(MakeDocument<char>("abc")->separateByte, std::nullopt);
}
