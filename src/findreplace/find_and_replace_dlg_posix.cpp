// The Find and Replace dialog where there are no windows: its form goes to whoever answers dialogs. What a
// user could not change in the window, because the field is grey or hidden, cannot be changed here.
#include "findreplace/find_and_replace_dlg.h"
#include "frame/services/format_text.h"
#include "frame/services/language_text.h"
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

// As scripts name them.
constexpr Platform::ChoiceWord kModeWords[] = {
    {ModeOne, W("One")},
    {ModeMany, W("Many")},
    {ModeManySame, W("ManySame")},
    {ModeMultiline, W("Multiline")},
};

using IsEnabled = bool (*)(const Form& form);

// A field that takes values while it is enabled, and is followed by what the dialog does then.
Platform::FormField Followed(Form& form, Platform::FormField field, IsEnabled isEnabled) {
  const auto set = [&form, isEnabled, setField = field.set](const WString& text) {
    if (!isEnabled(form)) return false;
    const Form before = form;
    if (!setField(text)) return false;
    FollowChanges(form, before);
    return true;
  };
  return {field.name, field.get, set};
}

bool Always(const Form&) { return true; }
bool Never(const Form&) { return false; }
bool WhileNew(const Form& form) { return form.targetNameEnabled; }

std::vector<Platform::FormField> FieldsOf(Form& form) {
  using namespace Platform;
  struct Row {
    FormField field;
    IsEnabled isEnabled;
  };
  // clang-format off
  const Row rows[] = {
    {ChoiceField("saveMode", form.saveMode, kSaveModeWords), Always},
    {TextField("targetName", form.targetName), WhileNew},
    {TextField("find", form.find), Always},
    {ChoiceField("findMode", form.findMode, kModeWords), Always},
    {TextField("replace", form.replace), Always},
    {FlagField("regExp", form.regExp), Never},
    {FlagField("wildcard", form.wildcard), Always},
    {FlagField("ignoreCase", form.ignoreCase), Always},
    {FlagField("forceUtf8", form.forceUtf8), Always},
    {FlagField("silent", form.silent), Always},
    {FlagField("replaceAll", form.replaceAll), Never},
  };
  // clang-format on
  std::vector<FormField> fields;
  for (const Row& row : rows) fields.push_back(Followed(form, row.field, row.isEnabled));
  return fields;
}

}  // namespace

INT_PTR ShowFindAndReplaceDlg(IHostApp& host, FindAndReplaceForm& form) {
  Platform::FormRequest request;
  request.dialog = "FindAndReplaceDlg";
  request.title = LanguageText(host, kTextFindDlgCaption);
  request.text = LanguageText(host, kTextFindDlgHeading);
  request.text += W('\n');
  request.text += FormatCount(LanguageText(host, kTextFindDlgCount), form.fileCount);
  request.fields = FieldsOf(form);
  return Platform::AskForm(request);
}
