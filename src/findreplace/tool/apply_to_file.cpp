#include "findreplace/tool/apply_to_file.h"

#include <array>
#include <exception>

#include "data/code_pages.h"
#include "data/data_reader.h"
#include "data/data_writer.h"
#include "data/text_format.h"
#include "findreplace/engine/find_and_replace_callback.h"
#include "findreplace/engine/modes.h"
#include "findreplace/engine/text_document_loader.h"
#include "frame/services/backup_names.h"
#include "frame/services/path_exists.h"

namespace QXFindAndReplace {

namespace {

using WQDR::TextFormat;
using WQDR::WQDataReaderException;

// Returns a text in the encoding of a document. Characters that an ANSI code page lacks are replaced by
// others (C-231). Throws if the conversion of a text fails, since an empty find or replace text would make
// changes that were not requested.
std::string EncodeText(const WString& text, TextFormat format) {
  std::string bytes = WQDR::ToCodePage(format == TextFormat::Utf8 ? CP_UTF8 : CP_THREAD_ACP, text);
  if (bytes.empty() && !text.empty()) throw WQDataReaderException(GetLastError(), "Failed to convert text");
  return bytes;
}

void Replace(TextDocumentT<char>& document, FindAndReplaceOptions& options) {
  const std::string find = EncodeText(options.find, document.format);
  const std::string replace = EncodeText(options.replace, document.format);
  ApplyToDocument<char>(document, options, find.c_str(), replace.c_str());
}

void Replace(TextDocumentT<WCHAR>& document, FindAndReplaceOptions& options) {
  ApplyToDocument<WCHAR>(document, options, options.find.c_str(), options.replace.c_str());
}

// Writes the target by the save mode. Moves an existing target away and creates the new one at the first
// write, so that an allocation that fails before leaves the existing target in place.
class TargetWriter final : public WQDR::DataWriter {
 public:
  TargetWriter(const WString& target, std::uint32_t flags) : target_(target), flags_(flags) {}

  // Creates the target if it has not been created yet. Needed for a text without any bytes.
  void Open() {
    if (isOpen_) return;
    const bool mayOverwrite = Has(SaveAsNew) && Has(OverwriteTarget);
    if (Has(SaveAsNew) && !mayOverwrite && PathExists(target_)) {
      throw WQDataReaderException(ERROR_FILE_EXISTS, "Target file already exists");
    }
    if (Has(KeepBackup | ReplaceFile)) hasMoved_ = MoveToBackup(target_.c_str(), backup_);
    file_.Open(target_, mayOverwrite);
    isOpen_ = true;
  }

  void Write(const void* data, std::uint32_t size, std::uint32_t* written) override {
    Open();
    file_.Write(data, size, written);
  }

  // Deletes the backup after all has been written. If the target did not exist, MoveToBackup has stored the
  // target's own path (C-011) and moved nothing, so the file that was just written is not deleted, unlike in
  // the sorter (C-131).
  void DropBackup() {
    if (hasMoved_ && Has(ReplaceFile)) DeleteBackup(backup_);
  }

 private:
  bool Has(std::uint32_t bits) const { return (flags_ & bits) != 0; }

  const WString& target_;
  std::uint32_t flags_;
  bool isOpen_ = false;
  bool hasMoved_ = false;
  std::array<WCHAR, kBackupPathSize> backup_ = {};
  WQDR::FileDataWriter file_;
};

template <typename CharT>
void WriteTarget(const TextDocumentT<CharT>& document, const WString& target, std::uint32_t flags) {
  TargetWriter writer(target, flags);
  SetWriterEnding<CharT>(writer, document.GetEndingForOutput());
  document.WriteLines(writer);
  writer.Open();
  writer.DropBackup();
}

template <typename CharT>
std::int64_t ApplyToText(const WString& source, const WString& target, FindAndReplaceOptions& options,
                         TextFormat format) {
  WQDR::FileDataReader reader(source);
  const auto document = TextDocumentLoader().Load<CharT>(reader, format);
  Replace(*document, options);
  reader.Close();
  // Checked before the number of changes, since a cancelled Multiline run counts as one change (C-233).
  if (options.callback && options.callback->IsCancelled()) return 1;
  if (document->changeCount == 0) return 0;
  WriteTarget(*document, target, options.flags);
  return document->changeCount;
}

std::int64_t ApplyToAnyFile(const WString& source, const WString& target, FindAndReplaceOptions& options) {
  switch (WQDR::DetectTextFormat(source)) {
    case TextFormat::Ansi:
      return ApplyToText<char>(source, target, options,
                               (options.flags & ForceUtf8) != 0 ? TextFormat::Utf8 : TextFormat::Ansi);
    case TextFormat::Utf8:
      return ApplyToText<char>(source, target, options, TextFormat::Utf8);
    case TextFormat::Utf16:
      return ApplyToText<WCHAR>(source, target, options, TextFormat::Utf16);
    default:
      if (options.callback) {
        options.callback->ReportError(W("File is not detected as a text file. Unsupported file format"),
                                      ERROR_BAD_FORMAT);
      }
      return 0;
  }
}

// Reports a failure to the callback. If there is no memory for the report it is lost, but the result of the
// run still shows the failure.
void ReportFailure(IFindAndReplaceCallback* callback, const char* text, DWORD code) {
  if (!callback) return;
  try {
    callback->ReportError(text, code);
    callback->EndFile();
  } catch (const std::exception&) {
  }
}

}  // namespace

std::int64_t ApplyToFile(const WString& source, const WString& target, FindAndReplaceOptions& options) {
  IFindAndReplaceCallback* const callback = options.callback;
  try {
    if (callback) callback->BeginFile(source.c_str());
    const std::int64_t result = ApplyToAnyFile(source, target, options);
    if (callback) callback->EndFile();
    return result;
  } catch (const WQDataReaderException& failure) {
    if (callback && failure.errorCode == ERROR_CANCELLED) return kCancelled;
    ReportFailure(callback, failure.what(), failure.errorCode);
  } catch (const std::exception& failure) {
    const char* const text = failure.what();
    ReportFailure(callback, text && *text ? text : "Out of memory", ERROR_OUTOFMEMORY);
  }
  return kFailed;
}

}  // namespace QXFindAndReplace
