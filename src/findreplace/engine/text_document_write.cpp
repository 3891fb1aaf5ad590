// Writes the text of a document to its file, and the context of a match for a question.
#include <algorithm>
#include <cstring>

#include "findreplace/engine/text_document.h"

namespace QXFindAndReplace {

namespace {

// The number of bytes passed to the writer at a time.
constexpr std::size_t kOutputBytes = 128 * 1024;

// Collects the output, so that the writer is called with large blocks.
class Output {
 public:
  explicit Output(WQDR::DataWriter& writer)
      : writer_(writer), buffer_(std::make_unique_for_overwrite<char[]>(kOutputBytes)) {}

  void Add(const char* bytes, std::size_t size) {
    while (size > kOutputBytes - filled_) {
      const std::size_t room = kOutputBytes - filled_;
      std::memcpy(buffer_.get() + filled_, bytes, room);
      filled_ = kOutputBytes;
      Flush();
      bytes += room;
      size -= room;
    }
    if (size != 0) std::memcpy(buffer_.get() + filled_, bytes, size);
    filled_ += size;
  }

  std::uint64_t Flush() {
    written_ += writer_.WriteBlock(buffer_.get(), static_cast<std::uint32_t>(filled_));
    filled_ = 0;
    return written_;
  }

 private:
  WQDR::DataWriter& writer_;
  std::unique_ptr<char[]> buffer_;
  std::size_t filled_ = 0;
  std::uint64_t written_ = 0;
};

// Calls `onPart` for the parts of a line and of the lines inserted after it, in order, and `onEnding` at the
// position of each ending.
template <typename OnPart, typename OnEnding>
void WalkLine(const TextLine& first, OnPart&& onPart, OnEnding&& onEnding) {
  for (const TextLine* line = &first; line;) {
    const TextPart* part = line;
    onPart(*part);
    while (part->lineFollows == 0 && part->next) {
      part = part->next;
      onPart(*part);
    }
    const bool lineFollows = part->lineFollows != 0;
    if (line->ending != LineEnding::None || lineFollows) onEnding();
    line = lineFollows ? static_cast<const TextLine*>(part->next) : nullptr;
  }
}

bool IsUnchanged(const TextLine& line) { return !line.next && line.removed == 0; }

// A range in the file text of a line, in bytes.
struct FileRange {
  std::uint64_t start;
  std::uint64_t end;
};

// Finds the offset of a range of a line in a text that is being written, in bytes.
struct RangeFinder {
  FileRange range;
  std::optional<std::uint64_t> offset;

  void Visit(const TextPart& part, std::uint64_t written) {
    if (part.kind != kFileText || part.originOffset > range.start ||
        range.end > std::uint64_t{part.originOffset} + part.length) {
      return;
    }
    offset = written - part.originOffset;
  }
};

}  // namespace

template <typename CharT>
const CharT* EndingText(LineEnding ending) {
  static constexpr CharT kNone[] = {0};
  static constexpr CharT kCr[] = {'\r', 0};
  static constexpr CharT kLf[] = {'\n', 0};
  static constexpr CharT kCrLf[] = {'\r', '\n', 0};
  static constexpr const CharT* kTexts[] = {kNone, kCr, kLf, kCrLf, kNone};
  return kTexts[static_cast<std::uint32_t>(ending)];
}

template <typename CharT>
void SetWriterEnding(WQDR::DataWriter& writer, LineEnding ending) {
  const std::basic_string_view<CharT> text(EndingText<CharT>(ending));
  const std::size_t bytes = text.size() * sizeof(CharT);
  writer.lineEnding = std::make_unique<unsigned char[]>(bytes + sizeof(CharT));
  std::memcpy(writer.lineEnding.get(), text.data(), bytes);
  writer.lineEndingLength = bytes;
}

template <typename CharT>
LineEnding TextDocumentT<CharT>::GetEndingForOutput() const {
  const auto line = std::ranges::find_if(lines, [](const TextLine& candidate) {
    return candidate.ending != LineEnding::None && candidate.ending != LineEnding::Inserted;
  });
  return line != lines.end() ? line->ending : LineEnding::Lf;
}

template <typename CharT>
std::uint64_t TextDocumentT<CharT>::WriteLines(WQDR::DataWriter& writer) const {
  Output output(writer);
  const std::string_view ending(reinterpret_cast<const char*>(writer.lineEnding.get()),
                                static_cast<std::size_t>(writer.lineEndingLength));
  const auto isOutputEnding = [&](LineEnding candidate) {
    const CharT* const text = EndingText<CharT>(candidate);
    return ending == std::string_view(reinterpret_cast<const char*>(text),
                                      std::char_traits<CharT>::length(text) * sizeof(CharT));
  };
  const bool keepsLf = isOutputEnding(LineEnding::Lf);
  const bool keepsCrLf = isOutputEnding(LineEnding::CrLf);
  // Adjacent unchanged lines whose endings need no change are written together, directly from their block.
  const char* run = nullptr;
  const char* runEnd = nullptr;
  const auto addRun = [&] {
    if (run != runEnd) output.Add(run, static_cast<std::size_t>(runEnd - run));
    run = runEnd = nullptr;
  };
  for (const TextLine& line : lines) {
    const bool keepsEnding = line.ending == LineEnding::None || (line.ending == LineEnding::Lf && keepsLf) ||
                             (line.ending == LineEnding::CrLf && keepsCrLf);
    if (keepsEnding && IsUnchanged(line)) {
      if (line.text != runEnd) {
        addRun();
        run = line.text;
      }
      runEnd = line.text + line.fileLength + line.endingSize;
      continue;
    }
    addRun();
    if (line.removed != 0) continue;
    WalkLine(
        line, [&](const TextPart& part) { output.Add(part.text, part.length); },
        [&] { output.Add(ending.data(), ending.size()); });
  }
  addRun();
  if (separateByte) output.Add(&*separateByte, 1);
  return output.Flush();
}

template <typename CharT>
std::unique_ptr<CharT[]> TextDocumentT<CharT>::GetContextText(const TextRange& range, Highlight& highlight,
                                                              LineEnding ending) const {
  highlight = {};
  if (range.start.line >= lines.size()) return std::make_unique<CharT[]>(1);
  const std::uint32_t firstLine = range.start.line == 0 ? 0 : range.start.line - 1;
  const std::uint64_t lastLine = std::min<std::uint64_t>(std::uint64_t{range.end.line} + 1, lines.size() - 1);
  if (ending == LineEnding::Inserted) ending = GetEndingForOutput();
  const std::size_t endingBytes = std::char_traits<CharT>::length(EndingText<CharT>(ending)) * sizeof(CharT);
  const auto forEachLine = [&](auto&& visit) {
    for (std::uint64_t number = firstLine; number <= lastLine; ++number) {
      if (lines[number].removed == 0) visit(lines[number], number);
    }
  };

  constexpr std::size_t kSpareBytes = 256;
  std::size_t size = kSpareBytes;
  forEachLine([&](const TextLine& line, std::uint64_t) {
    WalkLine(
        line, [&](const TextPart& part) { size += part.length; }, [&] { size += endingBytes; });
  });

  WQDR::MemoryDataWriter<CharT> writer(size);
  SetWriterEnding<CharT>(writer, ending);
  const bool isOneLine = range.start.line == range.end.line;
  const std::uint64_t startColumn = std::uint64_t{range.start.column} * sizeof(CharT);
  const std::uint64_t endColumn = std::uint64_t{range.end.column} * sizeof(CharT);
  RangeFinder start = {{startColumn, isOneLine ? endColumn : lines[range.start.line].fileLength}, {}};
  RangeFinder end = {{isOneLine ? startColumn : 0, endColumn}, {}};
  std::uint64_t written = 0;
  forEachLine([&](const TextLine& line, std::uint64_t number) {
    WalkLine(
        line,
        [&](const TextPart& part) {
          if (number == range.start.line) start.Visit(part, written);
          if (number == range.end.line) end.Visit(part, written);
          written += writer.WriteBlock(part.text, part.length);
        },
        [&] { written += writer.WriteLineEnding(); });
  });
  if (start.offset && end.offset) {
    highlight.start = static_cast<std::uint32_t>((*start.offset + startColumn) / sizeof(CharT));
    highlight.end = static_cast<std::uint32_t>((*end.offset + endColumn) / sizeof(CharT));
  }
  return std::move(writer.buffer);
}

template const char* EndingText<char>(LineEnding);
template const WCHAR* EndingText<WCHAR>(LineEnding);
template void SetWriterEnding<char>(WQDR::DataWriter&, LineEnding);
template void SetWriterEnding<WCHAR>(WQDR::DataWriter&, LineEnding);
template LineEnding TextDocumentT<char>::GetEndingForOutput() const;
template LineEnding TextDocumentT<WCHAR>::GetEndingForOutput() const;
template std::uint64_t TextDocumentT<char>::WriteLines(WQDR::DataWriter&) const;
template std::uint64_t TextDocumentT<WCHAR>::WriteLines(WQDR::DataWriter&) const;
template std::unique_ptr<char[]> TextDocumentT<char>::GetContextText(const TextRange&, Highlight&,
                                                                     LineEnding) const;
template std::unique_ptr<WCHAR[]> TextDocumentT<WCHAR>::GetContextText(const TextRange&, Highlight&,
                                                                       LineEnding) const;

}  // namespace QXFindAndReplace
