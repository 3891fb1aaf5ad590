#include "findreplace/tool/find_and_replace_form.h"

#include <algorithm>
#include <initializer_list>

#include "frame/services/path_parts.h"

namespace QXFindAndReplace {

namespace {

struct BoxRow {
  bool FindAndReplaceForm::*box;
  FindAndReplaceFlag flag;
};

constexpr BoxRow kBoxes[] = {
    {&FindAndReplaceForm::regExp, RegExp},         {&FindAndReplaceForm::wildcard, Wildcard},
    {&FindAndReplaceForm::ignoreCase, IgnoreCase}, {&FindAndReplaceForm::forceUtf8, ForceUtf8},
    {&FindAndReplaceForm::silent, Silent},         {&FindAndReplaceForm::replaceAll, ReplaceAll},
};

// Returns the first of the choices that is set in the flags, or the first choice if none is set.
int ChoiceOf(std::uint32_t flags, std::initializer_list<FindAndReplaceFlag> choices) {
  const auto* const found =
      std::ranges::find_if(choices, [flags](FindAndReplaceFlag choice) { return (flags & choice) != 0; });
  return static_cast<int>(found != choices.end() ? *found : *choices.begin());
}

WString NewFileName(const FindAndReplaceForm& form) {
  if (form.fileCount > 1) return W("*") + form.suffix + W(".*");
  PathParts parts;
  SplitPath(parts, form.startName);
  const WString& name = parts.fileName;
  const std::size_t dot = std::min(name.rfind(W('.')), name.size());
  return name.substr(0, dot) + form.suffix + name.substr(dot);
}

void ApplySaveMode(FindAndReplaceForm& form) {
  form.targetNameEnabled = form.saveMode == SaveAsNew;
  form.targetName = form.targetNameEnabled ? NewFileName(form) : form.startName;
}

WString Cut(const WString& text) { return text.substr(0, FindAndReplaceForm::kMaxChars); }

}  // namespace

void StartForm(FindAndReplaceForm& form) {
  const FindAndReplaceOptions& options = form.options;
  form.saveMode = ChoiceOf(options.flags, {SaveAsNew, KeepBackup, ReplaceFile});
  form.findMode = ChoiceOf(options.flags, {ModeOne, ModeMany, ModeManySame, ModeMultiline});
  form.find = options.find;
  form.replace = options.replace;
  for (const BoxRow& row : kBoxes) form.*row.box = (options.flags & row.flag) != 0;
  ApplySaveMode(form);
}

void UpdateForChanges(FindAndReplaceForm& form, const FindAndReplaceForm& before) {
  if (form.saveMode != before.saveMode) ApplySaveMode(form);
}

FindAndReplaceOptions ReadOptions(const FindAndReplaceForm& form) {
  FindAndReplaceOptions options = form.options;
  options.flags = static_cast<std::uint32_t>(form.findMode) | static_cast<std::uint32_t>(form.saveMode);
  for (const BoxRow& row : kBoxes) {
    if (form.*row.box) options.flags |= row.flag;
  }
  options.find = Cut(form.find);
  options.replace = Cut(form.replace);
  return options;
}

WString ReadTargetName(const FindAndReplaceForm& form) { return Cut(form.targetName); }

}  // namespace QXFindAndReplace
