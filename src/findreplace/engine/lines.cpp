#include "findreplace/engine/lines.h"

#include "findreplace/engine/text_document_loader.h"

namespace QXFindAndReplace {

template <typename CharT>
std::shared_ptr<Lines> Lines::Load(WQDR::DataReader& reader) {
  auto lines = std::make_shared<Lines>();
  WQDR::LineReader<CharT> blocks(reader, TextDocumentLoader().blockSize, lines->blocks,
                                 WQDR::OddByte::kSeparate);
  blocks.ReadAll([&](const WQDR::ScannedLine<CharT>& line, const WQDR::LoadProgress& progress) {
    WQDR::MakeRoomForLine(lines->items, progress);
    lines->items.push_back(
        {reinterpret_cast<const char*>(line.text), line.length, line.ending, line.endingSize});
  });
  return lines;
}

template std::shared_ptr<Lines> Lines::Load<char>(WQDR::DataReader&);
template std::shared_ptr<Lines> Lines::Load<WCHAR>(WQDR::DataReader&);

}  // namespace QXFindAndReplace
