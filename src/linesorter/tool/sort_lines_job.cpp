#include "linesorter/tool/sort_lines_job.h"

#include "frame/host/host_objects.h"
#include "frame/services/format_text.h"
#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"
#include "frame/services/target_files.h"
#include "linesorter/engine/sort_file.h"

namespace WQLineSorter {
namespace {

using namespace Velmora::SDK;

// Modes of kListResult.
constexpr u32 kSortedFiles = 0;
constexpr u32 kFailedFiles = 1;

constexpr u32 kLogCategory = 0;

int ShowBox(IHostApp& host, const WString& text, u32 style) {
  const WString title = LanguageText(host, kTextSortTitle);
  return host.MessageBox(title.c_str(), text.c_str(), style);
}

TargetAnswer AskAboutTarget(SortLinesJob& job, const WString& target) {
  const auto has = [&job](std::uint32_t bits) { return (job.options.options & bits) != 0; };
  if (!has(SaveAsNewFile)) return TargetAnswer::kFree;
  return AskAboutTarget(job.host, target, TargetRule{kTextSortTitle, has(SortSilent), has(SaveOverwrite)});
}

// What becomes of the files. The skipped ones are in neither list (C-134).
struct Outcome {
  explicit Outcome(IHostApp& host) : failed(host.CreateFileList()), sorted(host.CreateFileList()) {}

  HostObject<IHostFileList> failed;
  HostObject<IHostFileList> sorted;
  u32 notSorted = 0;
};

void AddTo(HostObject<IHostFileList>& list, IHostFileItem& item) {
  if (list) list->AddItem(&item);
}

// False if the user has cancelled the run.
bool RunOne(SortLinesJob& job, IHostFileItem& item, Outcome& outcome) {
  IHostApp& host = job.host;
  const WString source = PathOf(item, &IHostFileItem::GetFullPath);
  const WString target = TargetPath(PathOf(item, &IHostFileItem::GetFolderPath), item, job.targetPattern);
  switch (AskAboutTarget(job, target)) {
    case TargetAnswer::kCancel:
      return false;
    case TargetAnswer::kSkip:
      ++outcome.notSorted;
      // The log lines are spelled so (C-146).
      host.LogMessage(kLogCategory, kLogInformation, W("[SortLines] - Skipped to sortline in file : %s"),
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
    AddTo(outcome.failed, item);
    host.LogMessage(kLogCategory, kLogError, W("[SortLines] - Failed to sortline in file : %s"),
                    source.c_str());
    return true;
  }
  host.LogMessage(kLogCategory, kLogInformation, W("[SortLines] - Sorted lines in file : %s (Saved as : %s)"),
                  source.c_str(), target.c_str());
  AddTo(outcome.sorted, item);
  return true;
}

void HandBack(IHostApp& host, HostObject<IHostFileList>& list, u32 mode) {
  if (list) host.FileListRequest(kListResult, list.Get(), mode, 0);
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
  for (u32 index = 0; index < count; ++index) {
    IHostFileItem* const item = job.files->GetItem(index);
    if (!item) {
      ++outcome.notSorted;  // there is nothing that the log could name
      continue;
    }
    if (!RunOne(job, *item, outcome)) return;
  }
  HandBack(job.host, outcome.sorted, kSortedFiles);
  HandBack(job.host, outcome.failed, kFailedFiles);
  outcome.sorted.Release();
  outcome.failed.Release();
  owned.Release();
  if ((job.options.options & SortSilent) == 0) ShowClosingMessage(job.host, count, outcome.notSorted);
}

}  // namespace WQLineSorter
