// The Find and Replace dialog in the native build: passes its form to Platform::AskForm. Fields that are
// disabled or hidden in the window cannot be changed here either.
#include "findreplace/tool/find_and_replace_dlg.h"
#include "frame/services/ask_file_form.h"
#include "frame/services/message_texts.h"
#include "platform/posix/form_fields.h"

namespace {

using namespace Velmora::SDK;
using namespace QXFindAndReplace;
using Form = FindAndReplaceForm;

constexpr Platform::ChoiceWord kSaveModeWords[] = {
    {SaveAsNew, W("new")},
    {KeepBackup, W("keep-backup")},
    {ReplaceFile, W("delete-backup")},
};

// The words that scripts use.
constexpr Platform::ChoiceWord kModeWords[] = {
    {ModeOne, W("One")},
    {ModeMany, W("Many")},
    {ModeManySame, W("ManySame")},
    {ModeMultiline, W("Multiline")},
};

bool WhileNew(const Form& form) { return form.targetNameEnabled; }

std::vector<Platform::FormField> FieldsOf(Form& form) {
  using namespace Platform;
  // clang-format off
  const RuledField<Form> rows[] = {
    {ChoiceField("saveMode", form.saveMode, kSaveModeWords), Always},
    {CutField("targetName", form.targetName, Form::kMaxChars), WhileNew},
    {CutField("find", form.find, Form::kMaxChars), Always},
    {ChoiceField("findMode", form.findMode, kModeWords), Always},
    {CutField("replace", form.replace, Form::kMaxChars), Always},
    {FlagField("regExp", form.regExp), Never},
    {FlagField("wildcard", form.wildcard), Always},
    {FlagField("ignoreCase", form.ignoreCase), Always},
    {FlagField("forceUtf8", form.forceUtf8), Always},
    {FlagField("silent", form.silent), Always},
    {FlagField("replaceAll", form.replaceAll), Never},
  };
  // clang-format on
  return UpdatedFields<Form>(form, rows, UpdateForChanges);
}

}  // namespace

INT_PTR ShowFindAndReplaceDlg(IHostApp& host, FindAndReplaceForm& form) {
  constexpr FileFormTexts kTexts = {kTextFindDlgCaption, kTextFindDlgHeading, kTextFindDlgCount};
  return AskFileForm(host, "FindAndReplaceDlg", kTexts, form.fileCount, FieldsOf(form));
}
