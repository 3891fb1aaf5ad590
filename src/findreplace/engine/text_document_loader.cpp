#include "findreplace/engine/text_document_loader.h"

namespace QXFindAndReplace {

template <typename CharT>
std::shared_ptr<TextDocumentT<CharT>> TextDocumentLoader::Load(WQDR::DataReader& reader,
                                                               WQDR::TextFormat format) const {
  auto document = std::make_shared<TextDocumentT<CharT>>();
  document->format = format;
  std::vector<TextLine>& lines = document->lines;
  auto& spans = document->spans;
  WQDR::ReserveFirstLines(lines, reader.size);
  WQDR::LineReader<CharT> blocks(reader, blockSize, document->blocks, WQDR::OddByte::kSeparate);
  blocks.ReadAll([&](const WQDR::ScannedLine<CharT>& line, const WQDR::LoadProgress& progress) {
    const std::size_t block = document->blocks.size() - 1;
    if (spans.empty() || spans.back().block != block) {
      spans.push_back({static_cast<std::uint32_t>(lines.size()), block, nullptr});
    }
    spans.back().end = line.text + line.length / sizeof(CharT);
    WQDR::MakeRoomForLine(lines, progress);
    lines.push_back({{kFileText, 0, 0, line.length, reinterpret_cast<const char*>(line.text), nullptr},
                     line.length,
                     line.endingSize,
                     line.ending,
                     0});
  });
  document->separateByte = blocks.SeparateByte();
  return document;
}

template std::shared_ptr<TextDocumentT<char>> TextDocumentLoader::Load(WQDR::DataReader&,
                                                                       WQDR::TextFormat) const;
template std::shared_ptr<TextDocumentT<WCHAR>> TextDocumentLoader::Load(WQDR::DataReader&,
                                                                        WQDR::TextFormat) const;

}  // namespace QXFindAndReplace
