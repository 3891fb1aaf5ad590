#include "frame/services/target_files.h"

#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"
#include "frame/services/path_exists.h"
#include "frame/services/target_name.h"

namespace Velmora::SDK {

WString TargetPath(WString folder, IHostFileItem& item, WStringView pattern) {
  if (!folder.ends_with(W('\\'))) folder += W('\\');
  return folder + BuildTargetName(item, pattern);
}

TargetAnswer AskAboutTarget(IHostApp& host, const WString& target, const TargetRule& rule) {
  if (!PathExists(target)) return TargetAnswer::kFree;
  if (rule.isSilent) return rule.mayOverwrite ? TargetAnswer::kReplace : TargetAnswer::kSkip;
  const WString title = LanguageText(host, rule.title);
  const WString text = LanguageText(host, kTextTargetExists);
  switch (host.MessageBox(title.c_str(), text.c_str(), MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
      return TargetAnswer::kReplace;
    case IDNO:
      return TargetAnswer::kSkip;
    default:
      return TargetAnswer::kCancel;
  }
}

}  // namespace Velmora::SDK
