#include "linesorter/tool/sort_lines_command.h"

#include <array>

#include "frame/host/host_objects.h"
#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"
#include "linesorter/tool/sort_lines_job.h"
#include "linesorter/tool/sort_lines_sample.h"
#include "linesorter/tool/sort_lines_settings.h"

using namespace Velmora::SDK;
using namespace WQLineSorter;

namespace {

constexpr u32 kPathChars = 2048;
constexpr u32 kNameChars = 4096;

void ShowNothingSelected(IHostApp& host) {
  const WString caption = LanguageText(host, kTextSortDlgCaption);
  const WString text = LanguageText(host, kTextNoFilesSelected);
  host.MessageBox(caption.c_str(), text.c_str(), MB_OK | MB_ICONINFORMATION);
}

void ReadFirstFile(IHostFileItem& item, SortLinesForm& form) {
  std::array<WCHAR, kPathChars> path = {};
  item.GetFullPath(path.data(), kPathChars);
  form.sample = ReadSample(path.data());
  std::array<WCHAR, kNameChars> name = {};
  form.firstName = ViewOf(item.GetName(name.data(), kNameChars));
}

}  // namespace

void SortLinesCommand(IHostApp& host, const SortLinesDialog& show) {
  HostObject<IHostFileList> files(host.CreateFileList());
  if (!files || host.FileListRequest(kListSelectedItems, files.Get(), kModeContent, 0) == 0) return;
  SortLinesForm form;
  form.fileCount = files->GetCount();
  if (form.fileCount == 0) return ShowNothingSelected(host);

  IHostFileItem* const first = files->GetItem(0);
  if (first) ReadFirstFile(*first, form);
  form.options = LoadSortLinesOptions(host);
  form.newFileSuffix = LanguageText(host, kTextSortDlgSuffix);
  StartForm(form);
  if (show(host, form) != IDOK) return;

  const SortLinesOptions options = ReadOptions(form);
  StoreSortLinesOptions(host, options);
  constexpr bool kOwnsFiles = true;
  SortLinesJob job{host, nullptr, options, form.targetName, kOwnsFiles};
  job.files = files.Detach();
  RunSortLinesJob(job);
}
