#include "findreplace/tool/find_and_replace_command.h"

#include <vector>

#include "findreplace/tool/find_and_replace_run.h"
#include "findreplace/tool/find_and_replace_settings.h"
#include "frame/host/host_objects.h"
#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"

using namespace Velmora::SDK;
using namespace QXFindAndReplace;

namespace {

constexpr u32 kNameChars = 4096;

void ShowInformation(IHostApp& host, MessageText id) {
  const WString title = LanguageText(host, kTextFindTitle);
  const WString text = LanguageText(host, id);
  host.MessageBox(title.c_str(), text.c_str(), MB_OK | MB_ICONINFORMATION);
}

// Returns the name of a single file, or for several files the pattern that keeps all names.
WString StartName(IHostFileList& files) {
  if (files.GetCount() != 1) return W("*.*");
  IHostFileItem* const item = files.GetItem(0);
  if (!item) return {};
  std::vector<WCHAR> name(kNameChars);
  return WString(ViewOf(item->GetName(name.data(), kNameChars)));
}

}  // namespace

void FindAndReplaceCommand(IHostApp& host, const FindAndReplaceDialog& show) {
  HostObject<IHostFileList> files(host.CreateFileList());
  if (!files || host.FileListRequest(kListSelectedItems, files.Get(), kModeContent, 0) == 0) return;
  FindAndReplaceForm form;
  form.fileCount = files->GetCount();
  if (form.fileCount == 0) {
    files.Release();
    return ShowInformation(host, kTextNoFilesSelected);
  }

  form.options = LoadFindAndReplaceOptions(host);
  form.startName = StartName(*files.Get());
  form.suffix = LanguageTitle(host, kTextFindDlgNewFile);
  StartForm(form);
  if (show(host, form) != IDOK) return;

  const FindAndReplaceOptions options = ReadOptions(form);
  if (options.find.empty()) return ShowInformation(host, kTextFindNothing);
  StoreFindAndReplaceOptions(host, options);
  const WString targetName = ReadTargetName(form);
  constexpr bool kOwnsFiles = true;
  StartFindAndReplace(host, files.Detach(), options, targetName, kOwnsFiles);
}
