#include "findreplace/tool/find_and_replace_run.h"

#include <array>

#include "findreplace/tool/apply_to_file.h"
#include "findreplace/tool/host_callback.h"
#include "frame/services/format_text.h"
#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"
#include "frame/services/target_files.h"

namespace QXFindAndReplace {

using namespace Velmora::SDK;

namespace {

// Logs a line. All lines of a run have the information level, including those for failures (C-234); the
// errors themselves are logged separately.
template <typename... Arguments>
void Log(IHostApp& host, const WCHAR* format, Arguments... arguments) {
  host.LogMessage(kRunLogCategory, kLogInformation, format, arguments...);
}

TargetAnswer AskAboutTarget(IHostApp& host, const WString& target, std::uint32_t flags) {
  if ((flags & SaveAsNew) == 0) return TargetAnswer::kFree;
  const bool isSilent = (flags & Silent) != 0;
  const bool mayOverwrite = (flags & OverwriteTarget) != 0;
  return AskAboutTarget(host, target, TargetRule{kTextFindTitle, isSilent, mayOverwrite});
}

}  // namespace

FindAndReplaceRun::FindAndReplaceRun(IHostApp& hostApp, IHostFileList* sourceFiles,
                                     const FindAndReplaceOptions& runOptions, WString pattern, bool owns,
                                     ConfirmReplaceDialog show)
    : targetPattern(std::move(pattern)),
      options(runOptions),
      host(hostApp),
      files(sourceFiles),
      lists(hostApp),
      ownsFiles(owns),
      show_(std::move(show)) {}

void FindAndReplaceRun::Run() {
  HostObject<IHostFileList> owned(ownsFiles ? files : nullptr);
  const u32 count = files ? files->GetCount() : 0;
  if (count == 0) return;
  cancelled = false;
  doneCount = 0;
  totalChanges = 0;
  const auto runOne = [this](IHostFileItem& item) {
    RunOne(item);
    return !cancelled;
  };
  const auto onMissing = [this] { --totalChanges; };  // counts as failed; there is no name to log
  if (RunOverFiles(*files, count, runOne, onMissing)) {
    lists.ReportDone();
    if (lists.HasFailed()) lists.ReportFailed();
  } else {
    Log(host, W("[Find and Replace] - Operation cancelled"));
  }
  lists.Release();
  owned.Release();
  if (!cancelled) ShowSummary();
}

void FindAndReplaceRun::RunOne(IHostFileItem& item) {
  const WString source = PathOf(item, &IHostFileItem::GetFullPath);
  const WString target = TargetPath(PathOf(item, &IHostFileItem::GetParentPath), item, targetPattern);
  switch (AskAboutTarget(host, target, options.flags)) {
    case TargetAnswer::kCancel:
      cancelled = true;
      return;
    case TargetAnswer::kSkip:
      lists.AddFailed(item);
      Log(host, W("[Find and Replace] - File already exists. Do not overwrite : %s"), target.c_str());
      return;
    case TargetAnswer::kReplace:
      options.flags |= OverwriteTarget;  // also for later targets, although each is asked about (C-237)
      break;
    case TargetAnswer::kFree:
      break;
  }

  FindAndReplaceCallback callback(host, options.flags, show_);
  options.callback = &callback;
  const std::int64_t result = ApplyToFile(source, target, options);
  options.callback = nullptr;
  if (result < 0) {
    Log(host, W("[Find and Replace] - Failed to Find/Replace text in : %s"), source.c_str());
    if (result == kCancelled) {
      cancelled = true;
      return;
    }
    lists.AddFailed(item);
  } else {
    // A file without changes counts as done, and so does one that is not text (C-236).
    Log(host, W("[Find and Replace] - %I64d changes made to file : %s"), static_cast<long long>(result),
        source.c_str());
    lists.AddDone(item);
    ++doneCount;
  }
  totalChanges += result;
  options.flags |= callback.Flags() & ReplaceAll;
}

void FindAndReplaceRun::ShowSummary() {
  if ((options.flags & Silent) != 0) return;
  const WString title = LanguageText(host, kTextFindTitle);
  const std::array<std::int64_t, 2> counts = {totalChanges, doneCount};
  const bool isOneFile = doneCount == 1;
  const WString text = isOneFile ? FormatCountTexts(LanguageText(host, kTextFindChanges), {counts.data(), 1})
                                 : FormatCountTexts(LanguageText(host, kTextFindChangesIn), counts);
  host.MessageBox(title.c_str(), text.c_str(), MB_OK | MB_ICONINFORMATION);
}

void StartFindAndReplace(IHostApp& host, IHostFileList* files, const FindAndReplaceOptions& options,
                         const WString& targetPattern, bool ownsFiles) {
  HostObject<IHostFileList> owned(ownsFiles ? files : nullptr);
  if (!files || files->GetCount() == 0) return;
  FindAndReplaceRun run(host, files, options, targetPattern, ownsFiles);
  owned.Detach();
  run.Run();
}

}  // namespace QXFindAndReplace
