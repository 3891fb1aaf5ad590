#include "linesorter/engine/line_loader.h"

#include "linesorter/engine/line_sort.h"
#include "linesorter/engine/sort_keys.h"

namespace WQLineSorter {

template <typename CharT>
std::shared_ptr<SortableLinesData> ReadLines(WQDR::DataReader& reader) {
  auto data = std::make_shared<SortableLinesData>();
  std::vector<SortLine>& lines = data->lines;
  WQDR::ReserveFirstLines(lines, reader.size);
  WQDR::LineReader<CharT> blocks(reader, kBlockSize, data->blocks, WQDR::OddByte::kPadded);
  blocks.ReadAll([&lines](const WQDR::ScannedLine<CharT>& scanned, const WQDR::LoadProgress& progress) {
    WQDR::MakeRoomForLine(lines, progress);
    SortLine line = {};
    line.text = reinterpret_cast<const char*>(scanned.text);
    line.length = scanned.length;
    line.endingSize = scanned.endingSize;
    line.endingKind = scanned.ending;
    lines.push_back(line);
  });
  return data;
}

namespace {

template <typename CharT>
std::shared_ptr<SortableLinesData> ReadLinesWithKeys(WQDR::DataReader& reader,
                                                     const SortLinesOptions& options) {
  auto data = ReadLines<CharT>(reader);
  ComputeSortKeys<CharT>(data->lines, options);
  return data;
}

template <typename CharT>
void SortRecords(std::vector<SortLine>& lines, const SortLinesOptions& options) {
  const LineRange range = MovableRange(lines, options);
  SortLineRange<CharT>(lines, range, options);
  if ((options.options & SortRemoveBlank) != 0) RemoveBlankLines(lines, range);
}

}  // namespace

template <typename CharT>
std::shared_ptr<SortableLinesData> LoadLines(WQDR::DataReader& reader, const SortLinesOptions& options) {
  auto data = ReadLinesWithKeys<CharT>(reader, options);
  SortRecords<CharT>(data->lines, options);
  return data;
}

template <typename CharT>
OrderedLines LoadOrderedLines(WQDR::DataReader& reader, const SortLinesOptions& options) {
  OrderedLines ordered = {ReadLinesWithKeys<CharT>(reader, options), std::nullopt};
  std::vector<SortLine>& lines = ordered.data->lines;
  const LineRange range = MovableRange(lines, options);
  ordered.order = FindLineOrder<CharT>(lines, range, options);
  if (!ordered.order) {
    SortRecords<CharT>(lines, options);
  } else if ((options.options & SortRemoveBlank) != 0) {
    RemoveBlankLines(*ordered.order, lines, range);
  }
  return ordered;
}

template std::shared_ptr<SortableLinesData> ReadLines<char>(WQDR::DataReader&);
template std::shared_ptr<SortableLinesData> ReadLines<WCHAR>(WQDR::DataReader&);
template std::shared_ptr<SortableLinesData> LoadLines<char>(WQDR::DataReader&, const SortLinesOptions&);
template std::shared_ptr<SortableLinesData> LoadLines<WCHAR>(WQDR::DataReader&, const SortLinesOptions&);
template OrderedLines LoadOrderedLines<char>(WQDR::DataReader&, const SortLinesOptions&);
template OrderedLines LoadOrderedLines<WCHAR>(WQDR::DataReader&, const SortLinesOptions&);

}  // namespace WQLineSorter
