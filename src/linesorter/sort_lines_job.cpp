#include "linesorter/sort_lines_job.h"

#include "frame/services/format_text.h"
#include "frame/services/host_objects.h"
#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"
#include "frame/services/target_name.h"
#include "linesorter/sort_file.h"

namespace WQLineSorter {
namespace {

using namespace Velmora::SDK;

// More than the longest path of the system.
constexpr u32 kMostPathChars = 32768;

// Modes of kListResult.
constexpr u32 kSortedFiles = 0;
constexpr u32 kFailedFiles = 1;

constexpr u32 kLogCategory = 0;

using ItemPath = const WCHAR* (IHostFileItem::*)(WCHAR*, u32);

WString PathOf(IHostFileItem& item, ItemPath path) {
  WString text(kMostPathChars, WCHAR());
  (item.*path)(text.data(), kMostPathChars);
  text.resize(ViewOf(text.c_str()).size());
  return text;
}

WString TargetOf(IHostFileItem& item, const WString& pattern) {
  WString target = PathOf(item, &IHostFileItem::GetFolderPath);
  if (!target.ends_with(W('\\'))) target += W('\\');
  return target + BuildTargetName(item, pattern);
}

bool Exists(const WString& path) { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

int ShowBox(IHostApp& host, const WString& text, u32 style) {
  const WString title = LanguageText(host, kTextSortTitle);
  return host.MessageBox(title.c_str(), text.c_str(), style);
}

enum class Permission { kGo, kSkip, kCancel };

Permission AskAboutTarget(SortLinesJob& job, const WString& target) {
  const bool isNewFile = (job.options.options & SaveAsNewFile) != 0;
  if (!isNewFile || !Exists(target)) return Permission::kGo;
  if ((job.options.options & SortSilent) != 0) {
    return (job.options.options & SaveOverwrite) != 0 ? Permission::kGo : Permission::kSkip;
  }
  switch (ShowBox(job.host, LanguageText(job.host, kTextTargetExists), MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
      job.options.options |= SaveOverwrite;
      return Permission::kGo;
    case IDNO:
      return Permission::kSkip;
    default:
      return Permission::kCancel;
  }
}

// What becomes of the files. The skipped ones are in neither list.
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
  const WString target = TargetOf(item, job.targetPattern);
  switch (AskAboutTarget(job, target)) {
    case Permission::kCancel:
      return false;
    case Permission::kSkip:
      ++outcome.notSorted;
      host.LogMessage(kLogCategory, kLogInformation, W("[SortLines] - Skipped to sortline in file : %s"),
                      source.c_str());
      return true;
    case Permission::kGo:
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
