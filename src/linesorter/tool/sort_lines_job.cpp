#include "linesorter/tool/sort_lines_job.h"

#include "frame/host/host_objects.h"
#include "frame/services/file_run.h"
#include "frame/services/format_text.h"
#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"
#include "frame/services/target_files.h"
#include "linesorter/engine/sort_file.h"

namespace WQLineSorter {
namespace {

using namespace Velmora::SDK;

int ShowBox(IHostApp& host, const WString& text, u32 style) {
  const WString title = LanguageText(host, kTextSortTitle);
  return host.MessageBox(title.c_str(), text.c_str(), style);
}

TargetAnswer AskAboutTarget(SortLinesJob& job, const WString& target) {
  const auto has = [&job](std::uint32_t bits) { return (job.options.options & bits) != 0; };
  if (!has(SaveAsNewFile)) return TargetAnswer::kFree;
  return AskAboutTarget(job.host, target, TargetRule{kTextSortTitle, has(SortSilent), has(SaveOverwrite)});
}

// Skipped files are counted as not sorted and are in neither list (C-134).
struct Outcome {
  explicit Outcome(IHostApp& host) : lists(host) {}

  FileRunLists lists;
  u32 notSorted = 0;
};

// Returns false if the user has cancelled the run.
bool RunOne(SortLinesJob& job, IHostFileItem& item, Outcome& outcome) {
  IHostApp& host = job.host;
  const WString source = PathOf(item, &IHostFileItem::GetFullPath);
  const WString target = TargetPath(PathOf(item, &IHostFileItem::GetFolderPath), item, job.targetPattern);
  switch (AskAboutTarget(job, target)) {
    case TargetAnswer::kCancel:
      return false;
    case TargetAnswer::kSkip:
      ++outcome.notSorted;
      // The spelling of the log lines is intended (C-146).
      host.LogMessage(kRunLogCategory, kLogInformation, W("[SortLines] - Skipped to sortline in file : %s"),
                      source.c_str());
      return true;
    case TargetAnswer::kReplace:
      job.options.options |= SaveOverwrite;
      break;
    case TargetAnswer::kFree:
      break;
  }
  SortResult result;
  if (SortFile(result, source, target, job.options) != ERROR_SUCCESS) {
    ++outcome.notSorted;
    outcome.lists.AddFailed(item);
    host.LogMessage(kRunLogCategory, kLogError, W("[SortLines] - Failed to sortline in file : %s"),
                    source.c_str());
    return true;
  }
  host.LogMessage(kRunLogCategory, kLogInformation,
                  W("[SortLines] - Sorted lines in file : %s (Saved as : %s)"), source.c_str(),
                  target.c_str());
  outcome.lists.AddDone(item);
  return true;
}

void ShowClosingMessage(IHostApp& host, u32 fileCount, u32 notSorted) {
  if (notSorted != 0) {
    ShowBox(host, FormatCount(LanguageText(host, kTextSortFailed), notSorted), MB_OK | MB_ICONERROR);
  } else {
    ShowBox(host, FormatCountText(LanguageText(host, kTextSortDone), fileCount), MB_OK | MB_ICONINFORMATION);
  }
}

}  // namespace

void RunSortLinesJob(SortLinesJob& job) {
  if (!job.files) return;
  HostObject<IHostFileList> owned(job.ownsFiles ? job.files : nullptr);
  Outcome outcome(job.host);
  const u32 count = job.files->GetCount();
  const auto runOne = [&](IHostFileItem& item) { return RunOne(job, item, outcome); };
  const auto onMissing = [&] { ++outcome.notSorted; };  // there is no name to log
  if (!RunOverFiles(*job.files, count, runOne, onMissing)) return;
  outcome.lists.ReportDone();
  outcome.lists.ReportFailed();
  outcome.lists.Release();
  owned.Release();
  if ((job.options.options & SortSilent) == 0) ShowClosingMessage(job.host, count, outcome.notSorted);
}

}  // namespace WQLineSorter
