// The Sort Lines dialog in the native build: passes its form to Platform::AskForm. Fields that are disabled
// in the window, and texts that a field would not accept there, are refused here as well.
#include "frame/services/ask_file_form.h"
#include "frame/services/message_texts.h"
#include "linesorter/tool/sort_lines_dlg.h"
#include "platform/posix/form_fields.h"

namespace {

using namespace Velmora::SDK;
using namespace WQLineSorter;
using Form = SortLinesForm;

constexpr Platform::ChoiceWord kSaveAsWords[] = {
    {SaveAsNewFile, W("new")},
    {SaveKeepBackup, W("keep-backup")},
    {SaveDeleteBackup, W("delete-backup")},
};

constexpr Platform::ChoiceWord kSortByWords[] = {
    {SortByLine, W("line")},
    {SortBySubstring, W("substring")},
    {SortByItem, W("item")},
};

constexpr Platform::ChoiceWord kMethodWords[] = {
    {SortAsText, W("text")},
    {SortAsNumber, W("number")},
    {SortAsDate, W("date")},
};

template <bool SortLinesEnabled::*Member>
bool While(const Form& form) {
  return form.enabled.*Member;
}

std::vector<Platform::FormField> FieldsOf(Form& form) {
  using namespace Platform;
  using Enabled = SortLinesEnabled;
  // clang-format off
  const RuledField<Form> rows[] = {
    {ChoiceField("saveAs", form.saveAs, kSaveAsWords), Always},
    {LimitedField("targetName", form.targetName, Form::kMaxNameChars), While<&Enabled::targetName>},
    {NumberField("keepLinesTop", form.keepLinesTop, Form::kMaxNumberDigits), Always},
    {NumberField("keepLinesBottom", form.keepLinesBottom, Form::kMaxNumberDigits), Always},
    {NumberField("startPosition", form.startPosition, Form::kMaxNumberDigits), Always},
    {FlagField("skipLeadingSpace", form.skipLeadingSpace), Always},
    {ChoiceField("sortBy", form.sortBy, kSortByWords), Always},
    {NumberField("length", form.length, Form::kMaxLengthDigits), While<&Enabled::length>},
    {CutField("endCharacter", form.endCharacter, 1), While<&Enabled::endCharacter>},
    {FlagField("endAtWhitespace", form.endAtWhitespace), While<&Enabled::endAtWhitespace>},
    {TextField("separator", form.separator), While<&Enabled::separator>},
    {NumberField("item", form.item, Form::kMaxNumberDigits), While<&Enabled::item>},
    {ChoiceField("sortMethod", form.sortMethod, kMethodWords), Always},
    {LimitedField("dateFormat", form.dateFormat, Form::kMaxFormatChars), While<&Enabled::dateFormat>},
    {FlagField("languageAware", form.languageAware), Always},
    {FlagField("ignoreCase", form.ignoreCase), While<&Enabled::ignoreCase>},
    {FlagField("naturalNumbers", form.naturalNumbers), While<&Enabled::naturalNumbers>},
    {FlagField("reverse", form.reverse), Always},
    {FlagField("removeDuplicates", form.removeDuplicates), Never},
    {FlagField("removeBlank", form.removeBlank), Always},
  };
  // clang-format on
  return UpdatedFields<Form>(form, rows, UpdateForChanges);
}

}  // namespace

INT_PTR ShowSortLinesDlg(IHostApp& host, SortLinesForm& form) {
  constexpr FileFormTexts kTexts = {kTextSortDlgCaption, kTextSortDlgHeading, kTextSortDlgCount};
  return AskFileForm(host, "SortLinesDlg", kTexts, form.fileCount, FieldsOf(form));
}
