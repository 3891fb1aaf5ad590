#include <ctime>
#include <memory>
#include <optional>
#include <string>

#include "filetools/file_streams.h"
#include "filetools/text_conversion.h"
#include "frame/host/host_objects.h"
#include "frame/services/format_text.h"
#include "frame/services/language_text.h"
#include "frame/services/leading_number.h"
#include "frame/services/message_texts.h"
#include "frame/services/selected_paths.h"

using namespace Velmora::SDK;

namespace {

// The rows of the question how many blanks replace a tab, and the index of the default row.
constexpr const WCHAR* kTabWidths[] = {W("1"), W("2"), W("3"), W("4"), W("5"), W("6"), W("7"), W("8")};
constexpr s32 kFirstTabWidth = 3;

// The least width that is refused. Negative widths are refused too, because they convert to larger unsigned
// numbers.
constexpr std::uint32_t kTabWidthLimit = 21;

bool MayConvert(IHostApp& host, std::size_t count) {
  const WString text =
      FormatCount(LanguageText(host, kTextConvertQuestion), static_cast<std::uint32_t>(count));
  const WString caption = LanguageText(host, kTextConvertCaption);
  return MessageBoxW(nullptr, text.c_str(), caption.c_str(), MB_YESNO | MB_ICONQUESTION) == IDYES;
}

// Asks the user for the width; std::nullopt ends the command.
std::optional<std::uint32_t> AskTabWidth(IHostApp& host) {
  const HostObject<IHostStringList> rows(host.CreateStringList());
  if (!rows) return std::nullopt;
  for (const WCHAR* row : kTabWidths) rows->Add(row);
  AskChoiceRecord record;
  const WString caption = LanguageText(host, kTextTabCaption);
  const WString prompt = LanguageText(host, kTextTabPrompt);
  CopyPadded(record.caption, std::size(record.caption), WStringView(caption));
  CopyPadded(record.prompt, std::size(record.prompt), WStringView(prompt));
  record.selected = kFirstTabWidth;
  record.choices = rows.Get();
  if (!host.AskChoice(&record)) return std::nullopt;
  const WStringView result(record.result, std::size(record.result));
  const auto width = static_cast<std::uint32_t>(LeadingNumber(result.substr(0, result.find(WCHAR()))));
  return width < kTabWidthLimit ? std::optional(width) : std::nullopt;
}

bool CopyBytes(FileInput& from, FileOutput& to) {
  const auto buffer = std::make_unique_for_overwrite<char[]>(kStreamBytes);
  for (std::size_t size = kStreamBytes; size == kStreamBytes;) {
    if (!from.Read(buffer.get(), kStreamBytes, &size) || !to.Add(buffer.get(), size)) return false;
  }
  return to.Flush();
}

// Copies a file to a name that must not exist. If that fails, returns false and leaves no file there.
bool CopyToFreeName(const WString& source, const WString& target) {
  FileInput from;
  if (!from.Open(source)) return false;
  {
    FileOutput to;
    if (!to.Create(target, false)) return false;
    if (CopyBytes(from, to)) return true;
  }
  DeleteFileW(target.c_str());
  return false;
}

// Renames the temporary file to `path`, which has been deleted, or copies it there.
void PutInPlace(const WString& temporary, const WString& path) {
  if (MoveFileW(temporary.c_str(), path.c_str())) return;
  // A file that another program has open often cannot be renamed but can be read.
  if (CopyToFreeName(temporary, path)) {
    DeleteFileW(temporary.c_str());
    return;
  }
  const WString text =
      W("Failed to save text file\n") + path + W("\n\nThe converted text is in\n") + temporary;
  MessageBoxW(nullptr, text.c_str(), W("Error"), MB_OK | MB_ICONERROR);
}

}  // namespace

void ConvertTextFileInPlace(IHostApp& host, const WString& path, s32 conversion, std::uint32_t tabWidth) {
  const WString temporary = path + W(".temp") + FromUtf8(std::to_string(std::time(nullptr)));
  const HostService<IHostFileOperation> files(host, kServiceFileOperation);
  if (!files || files->FileExists(path.c_str()) == 0) return;
  const ConvertedText result = ConvertText(path, temporary, conversion, tabWidth);
  if (!result.isWhole) {
    // Keep a file with the temporary name that existed before: it is not ours.
    if (result.isTargetNew) DeleteFileW(temporary.c_str());
    return;
  }
  // If the file cannot be deleted, the converted text remains under the temporary name (C-446).
  if (DeleteFileW(path.c_str())) PutInPlace(temporary, path);
}

void ConvertTextCommand(IHostApp& host, s32 number) {
  const std::vector<WString> paths = SelectedPaths(host);
  if (paths.empty() || !MayConvert(host, paths.size())) return;
  std::uint32_t tabWidth = 0;
  if (number == kCommandTabsToBlanks) {
    const std::optional<std::uint32_t> answer = AskTabWidth(host);
    if (!answer) return;
    tabWidth = *answer;
  }
  for (const WString& path : paths) {
    if (!path.empty()) ConvertTextFileInPlace(host, path, number, tabWidth);
  }
}
