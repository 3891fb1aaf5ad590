// The window of the Sort Lines dialog.
#include <algorithm>

#include "frame/services/dialog_owner.h"
#include "frame/services/format_text.h"
#include "frame/services/message_texts.h"
#include "linesorter/tool/scrolled_ruler.h"
#include "linesorter/tool/sort_lines_dlg.h"
#include "linesorter/tool/sort_lines_dlg_ids.h"
#include "ui/dialog.h"
#include "ui/edit_view.h"
#include "ui/font.h"
#include "ui/form_binding.h"
#include "ui/popup_menu.h"
#include "ui/resource_ids.h"

namespace {

using namespace Velmora::SDK;
using namespace WQLineSorter;

constexpr Ui::ControlText kTexts[] = {
    {Ui::kTitle, kTextSortDlgCaption},
    {QX_SORT_HEADING, kTextSortDlgHeading},
    {QX_SORT_SAVE_AS_LABEL, kTextSaveAs},
    {QX_SORT_NAME_LABEL, kTextFileName},
    {QX_SORT_TOP_LABEL, kTextSortDlgTop},
    {QX_SORT_TOP_HINT, kTextSortDlgTopHint},
    {QX_SORT_BOTTOM_LABEL, kTextSortDlgBottom},
    {QX_SORT_BOTTOM_HINT, kTextSortDlgBottomHint},
    {QX_SORT_POSITION_LABEL, kTextSortDlgPosition},
    {QX_SORT_SKIP_SPACE, kTextSortDlgSkipSpace},
    {QX_SORT_BY_GROUP, kTextSortDlgBy},
    {QX_SORT_BY_LINE, kTextSortDlgByLine},
    {QX_SORT_BY_SUBSTRING, kTextSortDlgBySubstring},
    {QX_SORT_BY_ITEM, kTextSortDlgByItem},
    {QX_SORT_LENGTH_LABEL, kTextSortDlgLength},
    {QX_SORT_END_CHARACTER_LABEL, kTextSortDlgEndCharacter},
    {QX_SORT_END_AT_SPACE, kTextSortDlgEndAtSpace},
    {QX_SORT_SEPARATOR_LABEL, kTextSortDlgSeparator},
    {QX_SORT_ITEM_LABEL, kTextSortDlgItem},
    {QX_SORT_METHOD_GROUP, kTextSortDlgMethod},
    {QX_SORT_DATE_LABEL, kTextSortDlgDateFormat},
    {QX_SORT_DATE_PRESETS, kTextSortDlgDatePresets},
    {QX_SORT_LANGUAGE_AWARE, kTextSortDlgLanguageAware},
    {QX_SORT_IGNORE_CASE, kTextIgnoreCase},
    {QX_SORT_NATURAL, kTextSortDlgNatural},
    {QX_SORT_REVERSE, kTextSortDlgReverse},
    {QX_SORT_DUPLICATES, kTextSortDlgDuplicates},
    {QX_SORT_BLANK, kTextSortDlgBlank},
    {QX_SORT_SAMPLE_LABEL, kTextSortDlgSample},
    {IDOK, kTextSortDlgOk},
    {IDCANCEL, kTextSortDlgCancel},
};

constexpr Ui::ControlText kDateCue[] = {{QX_SORT_DATE_FORMAT, kTextSortDlgDateCue}};

constexpr Ui::ComboRow kSaveAsRows[] = {
    {SaveAsNewFile, kTextSortDlgNewFile},
    {SaveKeepBackup, kTextKeepBackup},
    {SaveDeleteBackup, kTextNoBackup},
};

constexpr Ui::ComboRow kMethodRows[] = {
    {SortAsText, kTextSortDlgMethodText},
    {SortAsNumber, kTextSortDlgMethodNumber},
    {SortAsDate, kTextSortDlgMethodDate},
};

constexpr Ui::RadioRow kSortByRows[] = {
    {QX_SORT_BY_LINE, SortByLine},
    {QX_SORT_BY_SUBSTRING, SortBySubstring},
    {QX_SORT_BY_ITEM, SortByItem},
};

using Form = SortLinesForm;

constexpr Ui::Field<Form> kFields[] = {
    {QX_SORT_SAVE_AS, &Form::saveAs},
    {QX_SORT_NAME, &Form::targetName},
    {QX_SORT_TOP, &Form::keepLinesTop},
    {QX_SORT_BOTTOM, &Form::keepLinesBottom},
    {QX_SORT_POSITION, &Form::startPosition},
    {QX_SORT_SKIP_SPACE, &Form::skipLeadingSpace},
    {QX_SORT_LENGTH, &Form::length},
    {QX_SORT_END_CHARACTER, &Form::endCharacter},
    {QX_SORT_END_AT_SPACE, &Form::endAtWhitespace},
    {QX_SORT_SEPARATOR, &Form::separator},
    {QX_SORT_ITEM, &Form::item},
    {QX_SORT_METHOD, &Form::sortMethod},
    {QX_SORT_DATE_FORMAT, &Form::dateFormat},
    {QX_SORT_LANGUAGE_AWARE, &Form::languageAware},
    {QX_SORT_IGNORE_CASE, &Form::ignoreCase},
    {QX_SORT_NATURAL, &Form::naturalNumbers},
    {QX_SORT_REVERSE, &Form::reverse},
    {QX_SORT_DUPLICATES, &Form::removeDuplicates},
    {QX_SORT_BLANK, &Form::removeBlank},
};

// The fields that accept only digits; UpdateForChanges removes all other characters.
struct NumberFieldRow {
  int control;
  WString Form::*number;
};
constexpr NumberFieldRow kNumberFields[] = {
    {QX_SORT_TOP, &Form::keepLinesTop},
    {QX_SORT_BOTTOM, &Form::keepLinesBottom},
    {QX_SORT_POSITION, &Form::startPosition},
    {QX_SORT_LENGTH, &Form::length},
    {QX_SORT_ITEM, &Form::item},
};

// The end character has no limit, so that a second one can be typed; it replaces the first (C-140).
constexpr Ui::TextLimit kLimits[] = {
    {QX_SORT_NAME, Form::kMaxNameChars},          {QX_SORT_TOP, Form::kMaxNumberDigits},
    {QX_SORT_BOTTOM, Form::kMaxNumberDigits},     {QX_SORT_POSITION, Form::kMaxNumberDigits},
    {QX_SORT_LENGTH, Form::kMaxLengthDigits},     {QX_SORT_ITEM, Form::kMaxNumberDigits},
    {QX_SORT_DATE_FORMAT, Form::kMaxFormatChars},
};

constexpr Ui::EnableRule<Form> kRules[] = {
    {QX_SORT_NAME, [](const Form& form) { return form.enabled.targetName; }},
    {QX_SORT_LENGTH, [](const Form& form) { return form.enabled.length; }},
    {QX_SORT_END_CHARACTER, [](const Form& form) { return form.enabled.endCharacter; }},
    {QX_SORT_END_AT_SPACE, [](const Form& form) { return form.enabled.endAtWhitespace; }},
    {QX_SORT_SEPARATOR, [](const Form& form) { return form.enabled.separator; }},
    {QX_SORT_ITEM, [](const Form& form) { return form.enabled.item; }},
    {QX_SORT_DATE_FORMAT, [](const Form& form) { return form.enabled.dateFormat; }},
    {QX_SORT_DATE_PRESETS, [](const Form& form) { return form.enabled.dateFormat; }},
    {QX_SORT_IGNORE_CASE, [](const Form& form) { return form.enabled.ignoreCase; }},
    {QX_SORT_NATURAL, [](const Form& form) { return form.enabled.naturalNumbers; }},
    {QX_SORT_DUPLICATES, [](const Form&) { return false; }},
};

constexpr const WCHAR* kSampleFont = W("Courier New");
constexpr int kSamplePoints = 9;

// The text of a control ends at its first zero character, so zeros are shown as blanks.
WString ShownSample(WString sample) {
  std::replace(sample.begin(), sample.end(), WCHAR(), W(' '));
  return sample;
}

class SortLinesDlg : public Ui::Dialog {
 public:
  SortLinesDlg(IHostApp& host, SortLinesForm& form)
      : Dialog(QX_DIALOG_SORT_LINES),
        texts_([&host](TextId id) { return host.GetLanguageString(id); }),
        form_(form) {}

 protected:
  void OnInit() override {
    Ui::SetTexts(Window(), kTexts, texts_);
    if (const WCHAR* const count = texts_(kTextSortDlgCount)) {
      Ui::SetText(Control(QX_SORT_COUNT), FormatCount(count, form_.fileCount));
    }
    const HWND sample = Control(QX_SORT_SAMPLE);
    rulerFont_.SetFor(Control(QX_SORT_RULER));
    sampleFont_.SetFor(sample);
    rulerMargin_ = Ui::LeftMarginOf(Control(QX_SORT_RULER));
    Ui::FillComboBox(Control(QX_SORT_SAVE_AS), kSaveAsRows, texts_);
    Ui::FillComboBox(Control(QX_SORT_METHOD), kMethodRows, texts_);
    Ui::LimitTexts(Window(), kLimits);
    Ui::LoadFields(Window(), kFields, form_);
    Ui::MarkRadio(Window(), kSortByRows, form_.sortBy);
    Ui::SetText(sample, ShownSample(form_.sample));
    // Each tab counts as one character, as in the positions of the ruler.
    Ui::SetTabWidth(sample, 1);
    Ui::WatchScroll(sample);
    ShowRules();
    ShowDateCue();
  }

  // The focus starts at the suggested file name, which can only be edited for a new file.
  int FirstField() const override { return form_.enabled.targetName ? QX_SORT_NAME : QX_SORT_TOP; }

  void OnChange() override {
    const SortLinesForm before = form_;
    ReadForm();
    UpdateForChanges(form_, before);
    ShowRules();
    if (form_.sortMethod != before.sortMethod) ShowDateCue();
  }

  void OnButton(int control) override {
    if (control == QX_SORT_DATE_PRESETS) ChooseDateFormat();
  }

  void OnScroll(int control) override {
    if (control == QX_SORT_SAMPLE) ShowRuler();
  }

  void OnScale(int pixelsOfAnInch) override {
    Ui::SetLeftMargin(Control(QX_SORT_RULER), rulerMargin_);
    rulerFont_.SetScale(pixelsOfAnInch);
    sampleFont_.SetScale(pixelsOfAnInch);
    rulerMargin_ = Ui::LeftMarginOf(Control(QX_SORT_RULER));
    ShowRuler();
  }

  void OnOk() override {
    OnChange();  // the last key press may not have been reported yet
    Close(IDOK);
  }

 private:
  void ReadForm() {
    Ui::ReadFields(Window(), kFields, form_);
    form_.sortBy = Ui::MarkedRadio(Window(), kSortByRows);
  }

  // Updates the controls from the fields after the rules have been applied.
  void ShowRules() {
    Ui::ApplyRules(Window(), kRules, form_);
    Ui::UpdateText(Control(QX_SORT_NAME), form_.targetName);
    ShowRuler();
    ShowText(QX_SORT_END_CHARACTER, form_.endCharacter);
    for (const NumberFieldRow& row : kNumberFields) ShowText(row.control, form_.*row.number);
  }

  // Scrolls the ruler like the sample, so that positions are above their characters.
  void ShowRuler() {
    const HWND ruler = Control(QX_SORT_RULER);
    const WString whole = RulerText(form_);
    const int characterWidth = Ui::TextWidth(ruler, whole) / static_cast<int>(whole.size());
    const ScrolledRuler shown =
        ScrollRuler(whole, Ui::ScrolledPixels(Control(QX_SORT_SAMPLE)), characterWidth);
    Ui::UpdateText(ruler, shown.text);
    Ui::SetLeftMargin(ruler, rulerMargin_ + shown.indent);
  }

  void ShowDateCue() {
    Ui::SetCueBanners(Window(), kDateCue,
                      [this](TextId id) { return form_.enabled.dateFormat ? texts_(id) : nullptr; });
  }

  // Shows a field's text if the rules have changed it. Sets the caret to its beginning, so that the next end
  // character typed comes first and replaces the present one (C-140).
  void ShowText(int number, const WString& text) {
    const HWND control = Control(number);
    if (Ui::GetText(control) == text) return;
    Ui::SetText(control, text);
    SendMessageW(control, EM_SETSEL, 0, 0);
    SendMessageW(control, EM_SCROLLCARET, 0, 0);
  }

  void ChooseDateFormat() {
    std::vector<WString> examples;
    for (const DatePreset& preset : DatePresets()) examples.emplace_back(preset.text);
    const std::optional<std::size_t> chosen = Ui::ChooseFromMenu(Window(), examples);
    if (chosen) Ui::SetText(Control(QX_SORT_DATE_FORMAT), DatePresets()[*chosen].format);
  }

  Ui::TextSource texts_;
  SortLinesForm& form_;
  // Each control has its own font.
  Ui::Font rulerFont_{kSampleFont, kSamplePoints};
  Ui::Font sampleFont_{kSampleFont, kSamplePoints};
  int rulerMargin_ = 0;  // in pixels, when the ruler is not scrolled
};

}  // namespace

INT_PTR ShowSortLinesDlg(IHostApp& host, SortLinesForm& form) {
  SortLinesDlg dialog(host, form);
  return dialog.ShowModal(DialogOwner(host));
}
