#include "linesorter/engine/sort_file.h"

#include <array>
#include <new>

#include "data/text_format.h"
#include "frame/services/backup_names.h"
#include "frame/services/path_exists.h"
#include "linesorter/engine/line_loader.h"
#include "linesorter/engine/sort_lines_exception.h"
#include "linesorter/engine/sorted_lines_writer.h"

namespace WQLineSorter {

namespace {

void FailIfExists(const WString& target) {
  if (!PathExists(target)) return;
  throw QXLineSorterException(ERROR_FILE_EXISTS, "Target file already exists");
}

template <typename CharT>
OrderedLines LoadFile(const WString& source, const SortLinesOptions& options) {
  WQDR::FileDataReader reader(source);
  OrderedLines ordered = LoadOrderedLines<CharT>(reader, options);
  reader.Close();
  return ordered;
}

template <typename CharT>
void SortTextFile(const WString& source, const WString& target, const SortLinesOptions& options) {
  const auto has = [&options](std::uint32_t bits) { return (options.options & bits) != 0; };
  const OrderedLines ordered = LoadFile<CharT>(source, options);
  if (has(SaveAsNewFile) && !has(SaveOverwrite)) FailIfExists(target);
  std::array<WCHAR, kBackupPathSize> backup = {};
  // Continues even if the backup cannot be made (C-132).
  if (has(SaveKeepBackup | SaveDeleteBackup)) MoveToBackup(target.c_str(), backup);
  const std::vector<SortLine>& lines = ordered.data->lines;
  if (ordered.order) {
    WriteSortedLines(target, lines, *ordered.order, has(SaveOverwrite));
  } else {
    WriteSortedLines(target, lines, has(SaveOverwrite));
  }
  // If the target did not exist, MoveToBackup has stored the target's own path, so this deletes the file that
  // was just written (C-131). The source is never deleted, even if MoveToBackup did not find it.
  if (has(SaveDeleteBackup) && source != backup.data()) DeleteBackup(backup);
}

void SortAnyFile(const WString& source, const WString& target, const SortLinesOptions& options) {
  switch (WQDR::DetectTextFormat(source)) {
    case WQDR::TextFormat::Ansi:
      return SortTextFile<char>(source, target, options);
    case WQDR::TextFormat::Utf16:
      return SortTextFile<WCHAR>(source, target, options);
    default:
      throw QXLineSorterException(ERROR_UNSUPPORTED_TYPE, "Text format not supported");
  }
}

// Stores a failure in `result`. If the failed call has set no error number, uses ERROR_GEN_FAILURE; if there
// is no memory for the text, stores only the number.
void Report(SortResult& result, DWORD errorCode, const char* text) {
  result.errorCode = errorCode != ERROR_SUCCESS ? errorCode : ERROR_GEN_FAILURE;
  try {
    result.message = text;
  } catch (const std::bad_alloc&) {
    result.message.clear();
  }
}

}  // namespace

DWORD SortFile(SortResult& result, const WString& source, const WString& target,
               const SortLinesOptions& options) {
  result = {};
  try {
    SortAnyFile(source, target, options);
  } catch (const WQDR::WQDataReaderException& failure) {
    Report(result, failure.errorCode, failure.what());
  } catch (const QXLineSorterException& failure) {
    Report(result, failure.errorCode, failure.what());
  } catch (const std::bad_alloc& failure) {
    Report(result, ERROR_OUTOFMEMORY, failure.what());
  }
  return result.errorCode;
}

}  // namespace WQLineSorter
