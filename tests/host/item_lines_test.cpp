// Lists of items, one per line, read in pieces of any size.
#include "host/command_line/item_lines.h"

#include <gmock/gmock.h>

#include "host/output/failures.h"
#include "support/scratch_folder.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace QxHost {
namespace {

// Returns the text in pieces of that many bytes.
ItemLines::Source Pieces(std::string text, std::size_t pieceBytes) {
  return [text = std::move(text), pieceBytes, at = std::size_t{0}](
             char* buffer, std::size_t size) mutable -> std::optional<std::size_t> {
    const std::size_t count = text.copy(buffer, std::min(size, pieceBytes), at);
    at += count;
    return count;
  };
}

std::vector<std::string> AllLines(ItemLines lines) {
  std::vector<std::string> all;
  while (std::optional<std::string> line = lines.Next()) all.push_back(*line);
  return all;
}

TEST(ItemLines, AreTheSameInPiecesOfAnySize) {
  const std::string text =
      "\xEF\xBB\xBF"
      "a.txt\r\n\n/b/c d\n\r\n\xC3\xA4\n last";
  for (std::size_t size = 1; size <= text.size(); ++size) {
    EXPECT_THAT(AllLines(ItemLines(Pieces(text, size))), ElementsAre("a.txt", "/b/c d", "\xC3\xA4", " last"))
        << size;
  }
}

TEST(ItemLines, OfAnEmptyListAreNone) {
  for (const char* text : {"", "\n", "\r\n\n", "\xEF\xBB\xBF", "\xEF\xBB\xBF\n"}) {
    EXPECT_THAT(AllLines(ItemLines(Pieces(text, 1))), IsEmpty()) << text;
  }
}

TEST(ItemLines, OnlyTheFirstMayHaveAByteOrderMark) {
  EXPECT_THAT(AllLines(ItemLines(Pieces("\xEF\xBB\xBF"
                                        "a\n\xEF\xBB\xBF"
                                        "b",
                                        2))),
              ElementsAre("a",
                          "\xEF\xBB\xBF"
                          "b"));
  EXPECT_THAT(AllLines(ItemLines(Pieces("\xEF\xBB", 1))), ElementsAre("\xEF\xBB"));
}

TEST(ItemLines, StayWholeAcrossBlocks) {
  std::string text;
  std::vector<std::string> expected;
  for (int number = 0; number < 20000; ++number) {
    expected.push_back("line " + std::to_string(number));
    text += expected.back() + "\n";
  }
  EXPECT_EQ(AllLines(ItemLines(Pieces(text, 1 << 20))), expected);
}

TEST(ItemLines, OneThatIsTooLongIsAWrongCall) {
  EXPECT_THAT(AllLines(ItemLines(Pieces(std::string(100000, 'x'), 65536))),
              ElementsAre(std::string(100000, 'x')));
  EXPECT_THROW(AllLines(ItemLines(Pieces(std::string(3 << 20, 'x'), 65536))), BadCall);
}

TEST(ItemLines, ThatCannotBeReadAreAWrongCall) {
  ItemLines lines([first = true](char* buffer, std::size_t) mutable -> std::optional<std::size_t> {
    if (!first) return std::nullopt;
    first = false;
    *buffer = '\n';
    return 1;
  });
  EXPECT_THROW(lines.Next(), BadCall);
  EXPECT_THROW(OpenItemLines("/nosuchfolder/nosuchfile"), BadCall);
  EXPECT_THROW(OpenItemLines(""), BadCall);
}

TEST(ItemLines, OfAFileAreItsLines) {
  const ScratchFolder scratch;
  EXPECT_THAT(AllLines(OpenItemLines(ToUtf8(scratch.Write(W("list"), "a\nb\n")))), ElementsAre("a", "b"));
}

}  // namespace
}  // namespace QxHost
