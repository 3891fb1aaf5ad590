// The sample of the first file in the Sort Lines dialog.
#include "linesorter/tool/sort_lines_sample.h"

#include <gtest/gtest.h>

#include "support/scratch_folder.h"

namespace WQLineSorter {
namespace {

// Returns the sample for these bytes, which may contain zeros.
WString Sample(std::string_view bytes) { return SampleText(bytes); }

TEST(SortLinesSample, BytesAreTextOfTheCodePage) {
  EXPECT_EQ(Sample("abc \xE4\x80"), W("abc \u00E4\u20AC"));
  EXPECT_EQ(Sample(""), W(""));
}

TEST(SortLinesSample, Utf8IsShownByteByByte) {
  EXPECT_EQ(Sample("\xEF\xBB\xBF\xC3\xA4"), W("\u00EF\u00BB\u00BF\u00C3\u00A4"));
}

TEST(SortLinesSample, TextAfterTheSixteenBitMarkIsWide) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Sample("\xFF\xFE\x61\0\xE4\0\x2D\x4E"sv), W("a\u00E4\u4E2D"));
  EXPECT_EQ(Sample("\xFF\xFE"sv), W(""));
}

TEST(SortLinesSample, ByteWithoutItsOtherHalfIsLeftOut) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Sample("\xFF\xFE\x61\0\x62"sv), W("a"));
}

TEST(SortLinesSample, HalfAMarkAndTheMarkOfTheOtherOrderAreBytes) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Sample("\xFF"sv), W("\u00FF"));
  EXPECT_EQ(Sample("\xFF\xFE"sv.substr(0, 1)), W("\u00FF"));
  EXPECT_EQ(Sample("\xFE\xFF\0a"sv), WString(W("\u00FE\u00FF\0a"), 4));
  EXPECT_EQ(Sample("\xFF\0"sv), WString(W("\u00FF\0"), 2));
  EXPECT_EQ(Sample("a\xFE\xFF\xFE"), W("a\u00FE\u00FF\u00FE"));
}

TEST(SortLinesSample, LinesEndInCrLfWhateverTheyEndedIn) {
  EXPECT_EQ(Sample("a\nb\r\nc\r\r\nd"), W("a\r\nb\r\nc\r\nd"));
  EXPECT_EQ(Sample("\n\n"), W("\r\n\r\n"));
}

TEST(SortLinesSample, LoneCrsAreDeleted) { EXPECT_EQ(Sample("a\rb\r"), W("ab")); }

TEST(SortLinesSample, WideLinesEndInCrLfToo) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Sample("\xFF\xFE\x61\0\r\0\n\0\x62\0\n\0"sv), W("a\r\nb\r\n"));
}

TEST(SortLinesSample, FourThousandAndNinetySixBytesAreRead) {
  const ScratchFolder folder;
  const WString path = folder.Write(W("long.txt"), std::string(4096, 'x') + "y");
  EXPECT_EQ(ReadSample(path), WString(4096, W('x')));
}

TEST(SortLinesSample, ShortFileIsReadWhole) {
  const ScratchFolder folder;
  EXPECT_EQ(ReadSample(folder.Write(W("short.txt"), "b\na")), W("b\r\na"));
  EXPECT_EQ(ReadSample(folder.Write(W("empty.txt"), "")), W(""));
}

TEST(SortLinesSample, UnreadableFileGivesAnEmptySample) {
  const ScratchFolder folder;
  EXPECT_EQ(ReadSample(folder.Path(W("missing.txt"))), W(""));
  EXPECT_EQ(ReadSample(folder.MakeFolder(W("folder"))), W(""));
  EXPECT_EQ(ReadSample(W("")), W(""));
  EXPECT_EQ(ReadSample(folder.Path(W("no\\such\\folder.txt"))), W(""));
}

TEST(SortLinesSample, FileThatIsHeldAloneGivesAnEmptySample) {
  const ScratchFolder folder;
  const WString path = folder.Write(W("held.txt"), "text");
  const HANDLE held = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  EXPECT_EQ(ReadSample(path), W(""));
  CloseHandle(held);
  EXPECT_EQ(ReadSample(path), W("text"));
}

}  // namespace
}  // namespace WQLineSorter
