// The window of the Find and Replace dialog.
#include "findreplace/tool/find_and_replace_dlg.h"
#include "findreplace/tool/find_and_replace_dlg_ids.h"
#include "frame/services/dialog_owner.h"
#include "frame/services/format_text.h"
#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"
#include "ui/dialog.h"
#include "ui/form_binding.h"
#include "ui/resource_ids.h"

namespace {

using namespace Velmora::SDK;
using namespace QXFindAndReplace;

constexpr Ui::ControlText kTexts[] = {
    {Ui::kTitle, kTextFindDlgCaption},
    {QX_FIND_HEADING, kTextFindDlgHeading},
    {QX_FIND_SAVE_MODE_LABEL, kTextSaveAs},
    {QX_FIND_NAME_LABEL, kTextFileName},
    {QX_FIND_TEXT_LABEL, kTextFindDlgFind},
    {QX_FIND_MODE_LABEL, kTextFindDlgMode},
    {QX_FIND_REPLACE_LABEL, kTextFindDlgReplace},
    {QX_FIND_OPTIONS_GROUP, kTextFindDlgOptions},
    {QX_FIND_REGEXP, kTextFindDlgRegExp},
    {QX_FIND_WILDCARD, kTextFindDlgWildcard},
    {QX_FIND_IGNORE_CASE, kTextIgnoreCase},
    {QX_FIND_FORCE_UTF8, kTextFindDlgForceUtf8},
    {QX_FIND_SILENT, kTextFindDlgSilent},
    {QX_FIND_REPLACE_ALL, kTextFindDlgReplaceAll},
    {IDOK, kTextFindDlgStart},
};

constexpr Ui::ControlText kCommonTexts[] = {{IDCANCEL, kCommonTextCancel}};

constexpr Ui::ComboRow kSaveModeRows[] = {
    {SaveAsNew, kTextFindDlgNewFile},
    {KeepBackup, kTextKeepBackup},
    {ReplaceFile, kTextNoBackup},
};

constexpr Ui::ComboRow kModeRows[] = {
    {ModeOne, kTextFindDlgOne},
    {ModeMany, kTextFindDlgMany},
    {ModeManySame, kTextFindDlgManySame},
    {ModeMultiline, kTextFindDlgMultiline},
};

using Form = FindAndReplaceForm;

// The fields have no text limits; ReadOptions and ReadTargetName cut off long texts without a message
// (C-240).
constexpr Ui::Field<Form> kFields[] = {
    {QX_FIND_SAVE_MODE, &Form::saveMode},
    {QX_FIND_NAME, &Form::targetName},
    {QX_FIND_TEXT, &Form::find},
    {QX_FIND_MODE, &Form::findMode},
    {QX_FIND_REPLACE, &Form::replace},
    {QX_FIND_REGEXP, &Form::regExp},
    {QX_FIND_WILDCARD, &Form::wildcard},
    {QX_FIND_IGNORE_CASE, &Form::ignoreCase},
    {QX_FIND_FORCE_UTF8, &Form::forceUtf8},
    {QX_FIND_SILENT, &Form::silent},
    {QX_FIND_REPLACE_ALL, &Form::replaceAll},
};

constexpr Ui::EnableRule<Form> kRules[] = {
    {QX_FIND_NAME, [](const Form& form) { return form.targetNameEnabled; }},
};

class FindAndReplaceDlg : public Ui::Dialog {
 public:
  FindAndReplaceDlg(IHostApp& host, FindAndReplaceForm& form)
      : Dialog(QX_DIALOG_FIND_AND_REPLACE),
        host_(host),
        texts_([&host](TextId id) { return host.GetLanguageString(id); }),
        form_(form) {}

 protected:
  void OnInit() override {
    Ui::SetTexts(Window(), kTexts, texts_);
    Ui::SetTexts(Window(), kCommonTexts, [this](TextId id) { return host_.GetModuleLanguageString(0, id); });
    if (const WCHAR* const count = texts_(kTextFindDlgCount)) {
      Ui::SetText(Control(QX_FIND_COUNT), FormatCount(count, form_.fileCount));
    }
    Ui::FillComboBox(Control(QX_FIND_SAVE_MODE), kSaveModeRows, texts_);
    Ui::FillComboBox(Control(QX_FIND_MODE), kModeRows, texts_);
    Ui::LoadFields(Window(), kFields, form_);
    ShowSaveMode();
    ShowExplanation();
  }

  int FirstField() const override { return QX_FIND_TEXT; }

  void OnChange() override {
    const FindAndReplaceForm before = form_;
    Ui::ReadFields(Window(), kFields, form_);
    UpdateForChanges(form_, before);
    ShowSaveMode();
    if (form_.findMode != before.findMode) ShowExplanation();
  }

  void OnOk() override {
    OnChange();  // the last key press may not have been reported yet
    Close(IDOK);
  }

 private:
  void ShowSaveMode() {
    Ui::ApplyRules(Window(), kRules, form_);
    Ui::UpdateText(Control(QX_FIND_NAME), form_.targetName);
  }

  // Shows the explanation of the mode, which is the second text of the mode's row.
  void ShowExplanation() {
    for (const Ui::ComboRow& row : kModeRows) {
      if (row.data == form_.findMode) {
        Ui::SetText(Control(QX_FIND_EXPLANATION), LanguageTitle(host_, row.text));
      }
    }
  }

  IHostApp& host_;
  Ui::TextSource texts_;
  FindAndReplaceForm& form_;
};

}  // namespace

INT_PTR ShowFindAndReplaceDlg(IHostApp& host, FindAndReplaceForm& form) {
  FindAndReplaceDlg dialog(host, form);
  return dialog.ShowModal(DialogOwner(host));
}
