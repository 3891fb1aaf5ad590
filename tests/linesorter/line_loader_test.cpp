// Loading line records from the bytes of a reader.
#include "linesorter/engine/line_loader.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <new>
#include <type_traits>

#include "data/thrown.h"
#include "linesorter/loaded_lines.h"
#include "linesorter/scripted_reader.h"
#include "platform/windows_api.h"
#include "support/scratch_folder.h"

using namespace WQLineSorter;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

using Lines = std::vector<LoadedLine>;

// Checks the invariants of loaded data: each line and its ending lie in one block, the blocks are followed by
// zeros, and keys are not set.
void CheckData(const SortableLinesData& data) {
  EXPECT_EQ(data.reserved, 0u);
  for (const TextBlock& block : data.blocks) {
    ASSERT_TRUE(block);
    EXPECT_TRUE(std::all_of(block.get() + kBlockSize, block.get() + kBlockSize + kBlockGuard,
                            [](char byte) { return byte == 0; }));
  }
  for (const SortLine& line : data.lines) {
    ASSERT_NE(line.text, nullptr);
    EXPECT_TRUE(std::any_of(data.blocks.begin(), data.blocks.end(), [&](const TextBlock& block) {
      const auto start = reinterpret_cast<std::uintptr_t>(block.get());
      const auto text = reinterpret_cast<std::uintptr_t>(line.text);
      // An odd last byte of 16-bit text is completed by one of the zeros after the block.
      return text >= start && text + line.length + line.endingSize <= start + kBlockSize;
    }));
    EXPECT_EQ(line.keyOffset, 0u);
    EXPECT_EQ(line.keyLength, 0u);
    EXPECT_EQ(line.numericKey, 0);
  }
}

template <typename CharT>
Lines Read(WQDR::DataReader& reader) {
  const std::shared_ptr<SortableLinesData> data = ReadLines<CharT>(reader);
  if (!data) {
    ADD_FAILURE() << "no data";
    return {};
  }
  CheckData(*data);
  return LinesOf(*data);
}

template <typename CharT>
Lines ReadBytes(const std::string& bytes) {
  WQDR::MemoryDataReader reader(bytes.data(), bytes.size());
  return Read<CharT>(reader);
}

Lines ReadWide(WStringView text) { return ReadBytes<WCHAR>(WideBytes(text)); }

LoadedLine None(std::string text) { return {std::move(text), "", LineEnding::None}; }
LoadedLine Lf(std::string text) { return {std::move(text), "\n", LineEnding::Lf}; }
LoadedLine CrLf(std::string text) { return {std::move(text), "\r\n", LineEnding::CrLf}; }
LoadedLine WideNone(WStringView text) { return {WideBytes(text), "", LineEnding::None}; }
LoadedLine WideLf(WStringView text) { return {WideBytes(text), Bytes("\n\0"), LineEnding::Lf}; }
LoadedLine WideCrLf(WStringView text) { return {WideBytes(text), Bytes("\r\0\n\0"), LineEnding::CrLf}; }

std::string A(std::size_t count) { return std::string(count, 'a'); }
WString WideA(std::size_t count) { return WString(count, W('a')); }

// Returns the lines of a text that contains no line endings except line feeds.
Lines SplitAtLineFeeds(const std::string& text) {
  Lines lines;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = text.find('\n', start);
    if (end == std::string::npos) {
      lines.push_back(None(text.substr(start)));
      break;
    }
    lines.push_back(Lf(text.substr(start, end - start)));
    start = end + 1;
  }
  return lines;
}

Lines SplitAtWideLineFeeds(const WString& text) {
  Lines lines;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = text.find(W('\n'), start);
    if (end == WString::npos) {
      lines.push_back(WideNone(WStringView(text).substr(start)));
      break;
    }
    lines.push_back(WideLf(WStringView(text).substr(start, end - start)));
    start = end + 1;
  }
  return lines;
}

// A simple generator with the same numbers on every platform.
struct Numbers {
  std::uint32_t state;
  std::uint32_t Below(std::uint32_t limit) {
    state = state * 1664525 + 1013904223;
    return (state >> 8) % limit;
  }
};

// Returns lines of at most `longest` bytes, about `bytes` in total, with all byte values except CR and LF.
std::string ManyLines(std::uint32_t seed, std::size_t bytes, std::uint32_t longest) {
  Numbers numbers{seed};
  std::string text;
  while (text.size() < bytes) {
    for (std::uint32_t left = numbers.Below(longest + 1); left > 0; --left) {
      const auto byte = static_cast<char>(numbers.Below(256));
      text += byte == '\r' || byte == '\n' ? 'x' : byte;
    }
    text += '\n';
  }
  return text;
}

// Like ManyLines, in 16-bit units, many of which contain the byte of a CR or LF.
WString ManyWideLines(std::uint32_t seed, std::size_t units, std::uint32_t longest) {
  Numbers numbers{seed};
  WString text;
  constexpr WCHAR kUnits[] = {W('a'), 0x0A0A, 0x0D0D, 0x0A00, 0x0D00, 0x0A0D,
                              0x0D0A, 0x010A, 0x0D01, 0xFFFE, 0};
  while (text.size() < units) {
    for (std::uint32_t left = numbers.Below(longest + 1); left > 0; --left) text += kUnits[numbers.Below(11)];
    text += W('\n');
  }
  return text;
}

template <typename CharT>
class LineLoader : public testing::Test {};
using CharTypes = testing::Types<char, WCHAR>;
struct CharTypeName {
  template <typename CharT>
  static std::string GetName(int) {
    return std::is_same_v<CharT, char> ? "Bytes" : "Wide";
  }
};
TYPED_TEST_SUITE(LineLoader, CharTypes, CharTypeName);

}  // namespace

TYPED_TEST(LineLoader, EmptyFileIsOneEmptyBlockWithoutARead) {
  ScriptedReader reader("");
  const auto data = ReadLines<TypeParam>(reader);
  CheckData(*data);
  EXPECT_THAT(data->lines, IsEmpty());
  ASSERT_THAT(data->blocks, SizeIs(1));
  EXPECT_TRUE(std::all_of(data->blocks[0].get(), data->blocks[0].get() + kBlockSize + kBlockGuard,
                          [](char byte) { return byte == 0; }));
  EXPECT_THAT(reader.requests, IsEmpty());
}

TYPED_TEST(LineLoader, BlocksAreZeroAfterTheData) {
  ScriptedReader reader("abcd");
  const auto data = ReadLines<TypeParam>(reader);
  ASSERT_THAT(data->blocks, SizeIs(1));
  EXPECT_EQ(std::string(data->blocks[0].get(), 4), "abcd");
  EXPECT_TRUE(std::all_of(data->blocks[0].get() + 4, data->blocks[0].get() + kBlockSize + kBlockGuard,
                          [](char byte) { return byte == 0; }));
}

TYPED_TEST(LineLoader, FailureOfTheReaderPasses) {
  for (const int failAt : {1, 2, 3}) {
    std::string lines;
    for (int i = 0; i < 40000; ++i) lines += Bytes("\n\0");
    ScriptedReader reader(lines, {30000});
    reader.failAt = failAt;
    reader.fail = [] { throw WQDR::WQDataReaderException(1117, "Failed to read file"); };
    try {
      ReadLines<TypeParam>(reader);
      ADD_FAILURE() << failAt;
    } catch (const WQDR::WQDataReaderException& exception) {
      EXPECT_EQ(exception.errorCode, DWORD{ERROR_IO_DEVICE});
      EXPECT_STREQ(exception.what(), "Failed to read file");
    }
    EXPECT_THAT(reader.requests, SizeIs(failAt));
  }
}

TYPED_TEST(LineLoader, ExhaustedMemoryOfTheReaderPasses) {
  ScriptedReader reader("abcd");
  reader.failAt = 1;
  reader.fail = [] { throw std::bad_alloc(); };
  EXPECT_THROW(ReadLines<TypeParam>(reader), std::bad_alloc);
}

// The remainder of a file that is truncated during the read must not be taken for the whole file.
const Thrown kCutFile = {ERROR_HANDLE_EOF, "Failed to read file"};

template <typename CharT>
Thrown ThrownForCutFile(const std::string& bytes) {
  ScriptedReader reader(bytes);
  reader.size = 100000;
  reader.maxReads = 10;
  return ThrownBy<WQDR::WQDataReaderException>([&] { ReadLines<CharT>(reader); });
}

TYPED_TEST(LineLoader, FileThatShrankToNothingIsRefused) {
  EXPECT_EQ(ThrownForCutFile<TypeParam>(""), kCutFile);
}

TYPED_TEST(LineLoader, FileThatGrewEndsWithWhatItsSizeSaid) {
  // One read returns more bytes than the reader announced in total.
  ScriptedReader reader(Bytes("a\0\n\0b\0\n\0"));
  reader.size = 4;
  reader.maxReads = 10;
  const auto data = ReadLines<TypeParam>(reader);
  ASSERT_FALSE(data->lines.empty());
  EXPECT_EQ(data->lines[0].text[0], 'a');
}

TEST(LineLoaderBytes, EachLineHasItsOwnEnding) {
  EXPECT_THAT(ReadBytes<char>("a\r\nb\nc"), ElementsAre(CrLf("a"), Lf("b"), None("c")));
  EXPECT_THAT(ReadBytes<char>("a"), ElementsAre(None("a")));
  EXPECT_THAT(ReadBytes<char>("a\n"), ElementsAre(Lf("a")));
  EXPECT_THAT(ReadBytes<char>("a\r\n"), ElementsAre(CrLf("a")));
}

TEST(LineLoaderBytes, LoneCrEndsALineAndIsLost) {
  EXPECT_THAT(ReadBytes<char>("a\rb\r"), ElementsAre(None("a"), None("b")));
  EXPECT_THAT(ReadBytes<char>("\r"), ElementsAre(None("")));
  EXPECT_THAT(ReadBytes<char>("\r\r\n"), ElementsAre(None(""), CrLf("")));
  EXPECT_THAT(ReadBytes<char>("a\rb\nc\r\nd"), ElementsAre(None("a"), Lf("b"), CrLf("c"), None("d")));
}

TEST(LineLoaderBytes, EmptyLinesAreLines) {
  EXPECT_THAT(ReadBytes<char>("\n\n"), ElementsAre(Lf(""), Lf("")));
  EXPECT_THAT(ReadBytes<char>("\r\n\r\n"), ElementsAre(CrLf(""), CrLf("")));
  EXPECT_THAT(ReadBytes<char>("\n\r\n"), ElementsAre(Lf(""), CrLf("")));
}

TEST(LineLoaderBytes, AllOtherBytesAreText) {
  std::string text;
  for (int byte = 0; byte < 256; ++byte) {
    if (byte != '\r' && byte != '\n') text += static_cast<char>(byte);
  }
  EXPECT_THAT(ReadBytes<char>(text + "\n" + text), ElementsAre(Lf(text), None(text)));
  EXPECT_THAT(ReadBytes<char>("\xEF\xBB\xBF\n"), ElementsAre(Lf("\xEF\xBB\xBF")));
}

TEST(LineLoaderBytes, EndingsAreFoundAtEveryDistance) {
  for (std::size_t first = 0; first < 70; ++first) {
    for (std::size_t second = 0; second < 70; second += 3) {
      EXPECT_THAT(ReadBytes<char>(A(first) + "\n" + A(second) + "\r\nb"),
                  ElementsAre(Lf(A(first)), CrLf(A(second)), None("b")));
      EXPECT_THAT(ReadBytes<char>(A(first) + "\r" + A(second)),
                  second == 0 ? Lines{None(A(first))} : Lines({None(A(first)), None(A(second))}));
    }
  }
}

TEST(LineLoaderBytes, WholeBlockIsAskedForAndThenWhatIsFree) {
  ScriptedReader reader("x\n" + A(32766) + "y\nz\n");
  EXPECT_THAT(Read<char>(reader), ElementsAre(Lf("x"), Lf(A(32766) + "y"), Lf("z")));
  // The second block starts with the 32766 bytes that were carried over; the third is empty.
  EXPECT_THAT(reader.requests, ElementsAre(32768, 2, 32768));
}

TEST(LineLoaderBytes, NothingIsCarriedFromALineEndAtTheBlocksEnd) {
  ScriptedReader reader(A(32767) + "\nb\n");
  EXPECT_THAT(Read<char>(reader), ElementsAre(Lf(A(32767)), Lf("b")));
  EXPECT_THAT(reader.requests, ElementsAre(32768, 32768));
}

TEST(LineLoaderBytes, LineOfAWholeBlockWithItsEndingLoads) {
  EXPECT_THAT(ReadBytes<char>(A(32767) + "\n"), ElementsAre(Lf(A(32767))));
  EXPECT_THAT(ReadBytes<char>(A(32767) + "\n" + A(32767) + "\n"), ElementsAre(Lf(A(32767)), Lf(A(32767))));
  EXPECT_THAT(ReadBytes<char>(A(32766) + "\r\nb"), ElementsAre(CrLf(A(32766)), None("b")));
}

TEST(LineLoaderBytes, LastLineOfExactlyABlockWithoutAnEndingLoads) {
  ScriptedReader reader(A(32768));
  EXPECT_THAT(Read<char>(reader), ElementsAre(None(A(32768))));
  EXPECT_THAT(reader.requests, ElementsAre(32768));
  EXPECT_THAT(ReadBytes<char>("x\n" + A(32768)), ElementsAre(Lf("x"), None(A(32768))));
}

TEST(LineLoaderBytes, LineThatFillsABlockIsOutOfMemoryAtOnceIfMoreFollows) {
  for (const std::string& more : {std::string("\n"), std::string("b"), std::string("\r\n"), A(100000)}) {
    ScriptedReader reader(A(32768) + more);
    reader.maxReads = 10;
    EXPECT_THROW(ReadLines<char>(reader), std::bad_alloc);
    EXPECT_THAT(reader.requests, ElementsAre(32768));
  }
}

TEST(LineLoaderBytes, LineThatFillsALaterBlockIsOutOfMemoryAtOnce) {
  ScriptedReader reader("x\n" + A(32768) + "\n");
  reader.maxReads = 10;
  EXPECT_THROW(ReadLines<char>(reader), std::bad_alloc);
  EXPECT_THAT(reader.requests, ElementsAre(32768, 2));
}

TEST(LineLoaderBytes, LoneCrAsTheLastByteOfTheFileAndOfTheBlock) {
  EXPECT_THAT(ReadBytes<char>(A(32767) + "\r"), ElementsAre(None(A(32767))));
}

// What follows the CR is not yet known, and files sorted by earlier versions depend on this.
TEST(LineLoaderBytes, CrLfAcrossTwoBlocksIsALoneCrAndAnEmptyLineByDesign) {
  EXPECT_THAT(ReadBytes<char>(A(32767) + "\r\nb\n"), ElementsAre(None(A(32767)), Lf(""), Lf("b")));
  EXPECT_THAT(ReadBytes<char>("x\n" + A(32765) + "\r\nb\n"),
              ElementsAre(Lf("x"), None(A(32765)), Lf(""), Lf("b")));
}

TEST(LineLoaderBytes, CrLfJustBeforeTheBlocksEndIsOneEnding) {
  EXPECT_THAT(ReadBytes<char>(A(32766) + "\r\nb\n"), ElementsAre(CrLf(A(32766)), Lf("b")));
}

TEST(LineLoaderBytes, LineFeedAsTheFirstByteOfABlockEndsTheCarriedLine) {
  EXPECT_THAT(ReadBytes<char>("x\n" + A(32766) + "\nb"), ElementsAre(Lf("x"), Lf(A(32766)), None("b")));
  EXPECT_THAT(ReadBytes<char>("x\n" + A(32766) + "\r\nb"), ElementsAre(Lf("x"), CrLf(A(32766)), None("b")));
  EXPECT_THAT(ReadBytes<char>("x\n" + A(32766) + "\rb"), ElementsAre(Lf("x"), None(A(32766)), None("b")));
}

TEST(LineLoaderBytes, ManyBlocksHoldThePlainLines) {
  const struct {
    std::size_t bytes;
    std::uint32_t longest;
  } rows[] = {{400000, 3}, {400000, 80}, {1000000, 700}, {3000000, 20000}, {500000, 32767}};
  for (const auto& row : rows) {
    for (const char* end : {"", "\n", "the end", "\n\n\n"}) {
      const std::string text = ManyLines(row.longest, row.bytes, row.longest) + end;
      EXPECT_TRUE(ReadBytes<char>(text) == SplitAtLineFeeds(text)) << row.longest;
    }
  }
}

TEST(LineLoaderBytes, ShortReadsLoseNothing) {
  const std::string text = ManyLines(5, 70000, 300) + "the end";
  const Lines expected = SplitAtLineFeeds(text);
  for (const std::uint32_t portion : {7u, 100u, 1001u, 4096u, 32767u}) {
    ScriptedReader reader(text, {portion});
    EXPECT_TRUE(Read<char>(reader) == expected) << portion;
  }
  const std::string small = "one\ntwo\n\nthree";
  for (const std::uint32_t portion : {1u, 2u, 3u, 4u, 5u}) {
    ScriptedReader reader(small, {portion});
    EXPECT_THAT(Read<char>(reader), ElementsAre(Lf("one"), Lf("two"), Lf(""), None("three"))) << portion;
  }
}

TEST(LineLoaderBytes, FileThatShrankIsRefused) {
  for (const char* bytes : {"one\ntwo\n", "one\ntwo", "one"}) {
    EXPECT_EQ(ThrownForCutFile<char>(bytes), kCutFile) << bytes;
  }
}

TEST(LineLoaderBytes, FilesAreReadAsMemoryIs) {
  const ScratchFolder scratch;
  const std::string text = ManyLines(9, 200000, 100) + "the end";
  WQDR::FileDataReader reader(scratch.Write(W("a.txt"), text));
  EXPECT_TRUE(Read<char>(reader) == SplitAtLineFeeds(text));
  WQDR::FileDataReader empty(scratch.Write(W("b.txt"), ""));
  EXPECT_THAT(Read<char>(empty), IsEmpty());
}

TEST(LineLoaderWide, EachLineHasItsOwnEnding) {
  EXPECT_THAT(ReadWide(W("a\r\nb\nc")), ElementsAre(WideCrLf(W("a")), WideLf(W("b")), WideNone(W("c"))));
  EXPECT_THAT(ReadWide(W("a")), ElementsAre(WideNone(W("a"))));
  EXPECT_THAT(ReadWide(W("\n\n")), ElementsAre(WideLf(W("")), WideLf(W(""))));
}

TEST(LineLoaderWide, LengthsAreInBytes) {
  const std::string bytes = WideBytes(W("abc\r\nd\n"));
  WQDR::MemoryDataReader reader(bytes.data(), bytes.size());
  const auto data = ReadLines<WCHAR>(reader);
  ASSERT_THAT(data->lines, SizeIs(2));
  EXPECT_EQ(data->lines[0].length, 6u);
  EXPECT_EQ(data->lines[0].endingSize, 4u);
  EXPECT_EQ(data->lines[0].endingKind, LineEnding::CrLf);
  EXPECT_EQ(data->lines[1].length, 2u);
  EXPECT_EQ(data->lines[1].endingSize, 2u);
  EXPECT_EQ(data->lines[1].endingKind, LineEnding::Lf);
}

TEST(LineLoaderWide, LoneCrEndsALineAndIsLost) {
  EXPECT_THAT(ReadWide(W("a\rb\r")), ElementsAre(WideNone(W("a")), WideNone(W("b"))));
  EXPECT_THAT(ReadWide(W("\r\r\n")), ElementsAre(WideNone(W("")), WideCrLf(W(""))));
}

TEST(LineLoaderWide, MarkIsTheFirstUnitOfTheFirstLine) {
  EXPECT_THAT(ReadWide(W("\uFEFFa\nb")), ElementsAre(WideLf(W("\uFEFFa")), WideNone(W("b"))));
}

TEST(LineLoaderWide, UnitsThatHoldACrOrLfInOneByteAreText) {
  constexpr WCHAR kUnits[] = {0x0A0A, 0x0D0D, 0x0A00, 0x0D00, 0x010A, 0x0D0A, 0x0A0D, 0x0100};
  for (const WCHAR unit : kUnits) {
    const WString text(3, unit);
    EXPECT_THAT(ReadWide(text + W("\n") + text), ElementsAre(WideLf(text), WideNone(text))) << int{unit};
    EXPECT_THAT(ReadWide(W("a\r") + text), ElementsAre(WideNone(W("a")), WideNone(text))) << int{unit};
  }
  // Bytes that form an LF only if read from an odd offset.
  EXPECT_THAT(ReadBytes<WCHAR>(Bytes("a\n\0b")), ElementsAre(None(Bytes("a\n\0b"))));
}

TEST(LineLoaderWide, EndingsAreFoundAtEveryDistance) {
  for (std::size_t first = 0; first < 40; ++first) {
    for (std::size_t second = 0; second < 40; second += 3) {
      EXPECT_THAT(ReadWide(WideA(first) + W("\n") + WideA(second) + W("\r\nb")),
                  ElementsAre(WideLf(WideA(first)), WideCrLf(WideA(second)), WideNone(W("b"))));
    }
  }
}

TEST(LineLoaderWide, OddLastByteAddsAZeroByteByDesign) {
  EXPECT_THAT(ReadBytes<WCHAR>("a"), ElementsAre(WideNone(W("a"))));
  EXPECT_THAT(ReadBytes<WCHAR>(Bytes("a\0\n\0b")), ElementsAre(WideLf(W("a")), WideNone(W("b"))));
  EXPECT_THAT(ReadBytes<WCHAR>(Bytes("a\0b\0c")), ElementsAre(WideNone(W("abc"))));
}

TEST(LineLoaderWide, OddLastByteOfLaterBlocksBringsAZeroByteToo) {
  const WString line = WideA(999) + W("\n");
  WString text;
  for (int i = 0; i < 40; ++i) text += line;
  Lines expected = SplitAtWideLineFeeds(text);
  EXPECT_TRUE(ReadBytes<WCHAR>(WideBytes(text)) == expected);
  expected.push_back(WideNone(W("z")));
  EXPECT_TRUE(ReadBytes<WCHAR>(WideBytes(text) + "z") == expected);
}

TEST(LineLoaderWide, LineOfAWholeBlockWithItsEndingLoads) {
  EXPECT_THAT(ReadWide(WideA(16383) + W("\n")), ElementsAre(WideLf(WideA(16383))));
  EXPECT_THAT(ReadWide(WideA(16383) + W("\nb")), ElementsAre(WideLf(WideA(16383)), WideNone(W("b"))));
  EXPECT_THAT(ReadWide(WideA(16382) + W("\r\nb")), ElementsAre(WideCrLf(WideA(16382)), WideNone(W("b"))));
}

TEST(LineLoaderWide, LastLineOfExactlyABlockWithoutAnEndingLoads) {
  EXPECT_THAT(ReadWide(WideA(16384)), ElementsAre(WideNone(WideA(16384))));
  EXPECT_THAT(ReadWide(W("x\n") + WideA(16384)), ElementsAre(WideLf(W("x")), WideNone(WideA(16384))));
  // The odd last byte of the text is the last but one of the block, and the block's last byte completes it.
  EXPECT_THAT(ReadBytes<WCHAR>(WideBytes(WideA(16383)) + "z"), ElementsAre(WideNone(WideA(16383) + W("z"))));
}

TEST(LineLoaderWide, LineThatFillsABlockIsOutOfMemoryAtOnceIfMoreFollows) {
  for (const std::string& more : {std::string("b"), WideBytes(W("\n")), WideBytes(W("b")), A(100000)}) {
    ScriptedReader reader(WideBytes(WideA(16384)) + more);
    reader.maxReads = 10;
    EXPECT_THROW(ReadLines<WCHAR>(reader), std::bad_alloc);
    EXPECT_THAT(reader.requests, ElementsAre(32768));
  }
}

TEST(LineLoaderWide, CrLfAcrossTwoBlocksIsALoneCrAndAnEmptyLineByDesign) {
  EXPECT_THAT(ReadWide(WideA(16383) + W("\r\nb\n")),
              ElementsAre(WideNone(WideA(16383)), WideLf(W("")), WideLf(W("b"))));
}

TEST(LineLoaderWide, LineFeedAsTheFirstUnitOfABlockEndsTheCarriedLine) {
  EXPECT_THAT(ReadWide(W("x\n") + WideA(16382) + W("\nb")),
              ElementsAre(WideLf(W("x")), WideLf(WideA(16382)), WideNone(W("b"))));
  EXPECT_THAT(ReadWide(W("x\n") + WideA(16382) + W("\r\nb")),
              ElementsAre(WideLf(W("x")), WideCrLf(WideA(16382)), WideNone(W("b"))));
}

TEST(LineLoaderWide, ManyBlocksHoldThePlainLines) {
  const struct {
    std::size_t units;
    std::uint32_t longest;
  } rows[] = {{200000, 3}, {200000, 80}, {500000, 700}, {600000, 16383}};
  for (const auto& row : rows) {
    for (const WCHAR* end : {W(""), W("\n"), W("the end")}) {
      const WString text = ManyWideLines(row.longest, row.units, row.longest) + end;
      EXPECT_TRUE(ReadWide(text) == SplitAtWideLineFeeds(text)) << row.longest;
    }
  }
}

TEST(LineLoaderWide, ShortReadsOfOddCountsLoseAndMoveNoByte) {
  const WString text = ManyWideLines(5, 40000, 150) + W("the end");
  const Lines expected = SplitAtWideLineFeeds(text);
  const std::vector<std::vector<std::uint32_t>> scripts = {
      {7}, {1001}, {32767}, {3, 32768}, {32767, 1, 32768}, {1, 1, 1, 4096}, {2, 5, 4, 9999, 16, 333}};
  for (std::size_t script = 0; script < scripts.size(); ++script) {
    ScriptedReader reader(WideBytes(text), scripts[script]);
    EXPECT_TRUE(Read<WCHAR>(reader) == expected) << script;
  }
  for (const std::uint32_t portion : {1u, 2u, 3u, 4u, 5u}) {
    ScriptedReader reader(WideBytes(W("one\ntwo\n\nthree")), {portion});
    EXPECT_THAT(Read<WCHAR>(reader),
                ElementsAre(WideLf(W("one")), WideLf(W("two")), WideLf(W("")), WideNone(W("three"))))
        << portion;
  }
}

TEST(LineLoaderWide, FileThatShrankIsRefused) {
  const std::string bytes = WideBytes(W("one\ntw"));
  for (const std::string& left : {bytes, bytes + "o"}) EXPECT_EQ(ThrownForCutFile<WCHAR>(left), kCutFile);
}

TEST(LineLoaderWide, FilesAreReadAsMemoryIs) {
  const ScratchFolder scratch;
  const WString text = ManyWideLines(9, 100000, 100) + W("the end");
  WQDR::FileDataReader reader(scratch.Write(W("a.txt"), WideBytes(text)));
  EXPECT_TRUE(Read<WCHAR>(reader) == SplitAtWideLineFeeds(text));
}
