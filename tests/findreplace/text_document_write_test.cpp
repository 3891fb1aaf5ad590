// A document is written with the same line ending throughout.
#include <gmock/gmock.h>

#include "findreplace/documents.h"
#include "findreplace/engine/text_document.h"
#include "platform/windows_api.h"

using namespace QXFindAndReplace;
using namespace std::string_view_literals;

namespace {

template <typename CharT>
class TextDocumentWrite : public testing::Test {
 protected:
  static std::string Rewrite(std::string_view text) { return Written(*MakeDocument<CharT>(text)); }
  static LineEnding EndingOf(std::string_view text) {
    return MakeDocument<CharT>(text)->GetEndingForOutput();
  }
  static void Replace(TextDocumentT<CharT>& document, const TextRange& range, std::string_view replacement) {
    document.ReplaceRange(range, *MakeLines<CharT>(replacement));
  }
};
TYPED_TEST_SUITE(TextDocumentWrite, BothWidths);

// Fails at a chosen write.
class FailingWriter final : public WQDR::DataWriter {
 public:
  explicit FailingWriter(int failAt) : failAt_(failAt) {}
  void Write(const void*, std::uint32_t size, std::uint32_t* written) override {
    if (++writes == failAt_) throw WQDR::WQDataReaderException(112, "Failed to write data to file");
    if (written) *written = size;
  }
  int writes = 0;

 private:
  int failAt_;
};

}  // namespace

TYPED_TEST(TextDocumentWrite, TheFirstEndedLineGivesTheWholeOutputItsEnding) {
  EXPECT_EQ(this->Rewrite("a\r\nb\nc\r\n"), "a\r\nb\r\nc\r\n");
  EXPECT_EQ(this->Rewrite("a\nb\r\nc\r\n"), "a\nb\nc\n");
  EXPECT_EQ(this->Rewrite("a\rb\r\nc\nd"), "ab\r\nc\r\nd");
  EXPECT_EQ(this->Rewrite("\r\n\n\n"), "\r\n\r\n\r\n");
  EXPECT_EQ(this->EndingOf("a\r\nb\n"), LineEnding::CrLf);
  EXPECT_EQ(this->EndingOf("a\nb\r\n"), LineEnding::Lf);
}

TYPED_TEST(TextDocumentWrite, WithoutAnEndedLineTheOutputEndingIsLf) {
  EXPECT_EQ(this->EndingOf(""), LineEnding::Lf);
  EXPECT_EQ(this->EndingOf("a"), LineEnding::Lf);
  EXPECT_EQ(this->EndingOf("a\rb\r"), LineEnding::Lf);
}

TYPED_TEST(TextDocumentWrite, FileWithoutAnEndingIsWrittenWithoutAnyWhenChanged) {
  const auto document = MakeDocument<TypeParam>("abc");
  this->Replace(*document, InLine(0, 1, 2), "x");
  EXPECT_EQ(Written(*document), "axc");
}

TYPED_TEST(TextDocumentWrite, LoneCrIsLostWhenTheFileIsChangedElsewhere) {
  const auto document = MakeDocument<TypeParam>("a\rb\nc");
  this->Replace(*document, InLine(2, 0, 1), "x");
  EXPECT_EQ(Written(*document), "ab\nx");
}

TYPED_TEST(TextDocumentWrite, EndingThatOnlyARecordNamesIsKnownToo) {
  const auto document = MakeDocument<TypeParam>("a\nb\r\n");
  document->lines[0].ending = LineEnding::Cr;
  EXPECT_EQ(document->GetEndingForOutput(), LineEnding::Cr);
  EXPECT_EQ(Written(*document), "a\rb\r");
  document->lines[0].ending = LineEnding::Inserted;
  EXPECT_EQ(document->GetEndingForOutput(), LineEnding::CrLf);
}

TYPED_TEST(TextDocumentWrite, RemovedLinesCountForTheOutputEnding) {
  const auto document = MakeDocument<TypeParam>("a\rb\r\nc\nd\n");
  this->Replace(*document, {{0, 0}, {2, 1}}, "x\ny\nz");
  ASSERT_EQ(document->lines[1].removed, 1);
  EXPECT_EQ(document->GetEndingForOutput(), LineEnding::CrLf);
  EXPECT_EQ(Written(*document), "x\r\ny\r\nz\r\nd\r\n");
}

TYPED_TEST(TextDocumentWrite, LinesWhoseTextIsGoneKeepTheirEnding) {
  const auto document = MakeDocument<TypeParam>("a\nb\nc");
  for (const std::uint32_t line : {0u, 1u, 2u}) this->Replace(*document, InLine(line, 0, 1), "\n");
  EXPECT_EQ(Written(*document), "\n\n");
}

TYPED_TEST(TextDocumentWrite, WriterWithoutAnEndingGetsNone) {
  const auto document = MakeDocument<TypeParam>("a\nb\r\n");
  RecordingWriter writer;
  EXPECT_EQ(document->WriteLines(writer), 2 * sizeof(TypeParam));
  EXPECT_EQ(writer.bytes, BytesOf<TypeParam>("ab"));
}

TYPED_TEST(TextDocumentWrite, MayBeWrittenTwice) {
  const auto document = MakeDocument<TypeParam>("1a2\n3");
  this->Replace(*document, InLine(0, 1, 2), "x\ny");
  EXPECT_EQ(Written(*document), "1x\ny2\n3");
  EXPECT_EQ(Written(*document), "1x\ny2\n3");
}

TYPED_TEST(TextDocumentWrite, IntoAMemoryWriter) {
  const auto document = MakeDocument<TypeParam>("a\r\nbc\r\nd");
  const std::string expected = BytesOf<TypeParam>("a\r\nbc\r\nd");
  WQDR::MemoryDataWriter<TypeParam> writer(64);
  SetWriterEnding<TypeParam>(writer, document->GetEndingForOutput());
  EXPECT_EQ(document->WriteLines(writer), expected.size());
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(writer.buffer.get()), expected.size()), expected);
}

TYPED_TEST(TextDocumentWrite, FailureOfTheWriterPasses) {
  for (const int failAt : {1, 2, 3}) {
    // More than any intermediate buffer holds, so that there are several writes.
    std::string text;
    for (int i = 0; i < 60000; ++i) text += "line " + std::to_string(i) + "\n";
    const auto document = MakeDocument<TypeParam>(text);
    FailingWriter writer(failAt);
    SetWriterEnding<TypeParam>(writer, LineEnding::Lf);
    EXPECT_EQ(DataError([&] { document->WriteLines(writer); }),
              (Thrown{ERROR_DISK_FULL, "Failed to write data to file"}));
    EXPECT_EQ(writer.writes, failAt);
  }
}

TYPED_TEST(TextDocumentWrite, LargeTextIsWrittenWhole) {
  std::string text;
  for (int i = 0; i < 60000; ++i) text += "line " + std::to_string(i) + "\n";
  EXPECT_EQ(this->Rewrite(text), text);
}

TEST(TextDocumentWriteWide, OddByteIsNotLostWhenTheLastLineIsReplaced) {
  for (const std::string_view bytes : {"a\0b\0!"sv, "a\0\n\0b\0!"sv, "b\0\n\0!"sv}) {
    const auto document = MakeDocumentOfBytes<WCHAR>(std::string(bytes));
    const std::uint32_t last = document->GetLineCount() - 1;
    const std::uint32_t length = document->lines[last].fileLength / 2;
    document->ReplaceRange(InLine(last, 0, length), *MakeLines<WCHAR>("xyz"));
    std::string expected(bytes);
    const auto from = static_cast<std::size_t>(document->lines[last].text - document->lines[0].text);
    EXPECT_EQ(WrittenBytes(*document), expected.replace(from, length * 2, "x\0y\0z\0"sv));
  }
}

TEST(TextDocumentWriteWide, OddByteStaysAfterInsertedLines) {
  const auto document = MakeDocumentOfBytes<WCHAR>(std::string("a\0b\0!", 5));
  document->ReplaceRange(InLine(0, 0, 1), *MakeLines<WCHAR>("x\ny"));
  EXPECT_EQ(WrittenBytes(*document), "x\0\n\0y\0b\0\n\0!"sv);
}

// --- endings

TYPED_TEST(TextDocumentWrite, TextsOfTheEndings) {
  const auto text = [](LineEnding ending) { return Narrow<TypeParam>(EndingText<TypeParam>(ending)); };
  EXPECT_EQ(text(LineEnding::None), "");
  EXPECT_EQ(text(LineEnding::Cr), "\r");
  EXPECT_EQ(text(LineEnding::Lf), "\n");
  EXPECT_EQ(text(LineEnding::CrLf), "\r\n");
}

TYPED_TEST(TextDocumentWrite, WriterGetsItsEndingInTheWidthOfTheTextAndZeroTerminated) {
  for (const auto& [ending, text] :
       {std::pair{LineEnding::Cr, "\r"sv}, {LineEnding::Lf, "\n"sv}, {LineEnding::CrLf, "\r\n"sv}}) {
    RecordingWriter writer;
    SetWriterEnding<TypeParam>(writer, ending);
    const std::string expected = BytesOf<TypeParam>(text);
    ASSERT_EQ(writer.lineEndingLength, expected.size());
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(writer.lineEnding.get()), expected.size()), expected);
    EXPECT_EQ(reinterpret_cast<const TypeParam*>(writer.lineEnding.get())[text.size()], TypeParam());
    EXPECT_EQ(writer.WriteLineEnding(), expected.size());
  }
}

TYPED_TEST(TextDocumentWrite, WriterOfNoEndingWritesNone) {
  RecordingWriter writer;
  SetWriterEnding<TypeParam>(writer, LineEnding::None);
  EXPECT_EQ(writer.WriteLineEnding(), 0u);
  EXPECT_EQ(writer.bytes, "");
}
