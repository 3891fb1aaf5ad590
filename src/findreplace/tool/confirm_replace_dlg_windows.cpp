// The window of the dialog that asks about a match.
#include <memory>
#include <type_traits>

#include "findreplace/tool/confirm_replace_dlg.h"
#include "findreplace/tool/confirm_replace_dlg_ids.h"
#include "findreplace/tool/edit_text.h"
#include "frame/services/dialog_owner.h"
#include "frame/services/message_texts.h"
#include "ui/dialog.h"
#include "ui/resource_ids.h"

namespace QXFindAndReplace {

namespace {

using namespace Velmora::SDK;

constexpr Ui::ControlText kTexts[] = {
    {Ui::kTitle, kTextConfirmCaption},
    {QX_CONFIRM_PATH_LABEL, kTextConfirmFile},
    {QX_CONFIRM_SWITCH, kTextConfirmSwitch},
    {QX_CONFIRM_REPLACEMENT_LABEL, kTextConfirmWith},
    {IDOK, kTextConfirmReplace},
    {QX_CONFIRM_REPLACE_ALL, kTextConfirmReplaceAll},
    {QX_CONFIRM_FIND_NEXT, kTextConfirmFindNext},
};

constexpr Ui::ControlText kCommonTexts[] = {{IDCANCEL, kCommonTextCancel}};

struct BrushDeleter {
  using pointer = HBRUSH;
  void operator()(HBRUSH brush) const { DeleteObject(brush); }
};
using Brush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, BrushDeleter>;

class ConfirmReplaceDlg : public Ui::Dialog {
 public:
  ConfirmReplaceDlg(IHostApp& host, ConfirmReplaceForm& form)
      : Dialog(QX_DIALOG_CONFIRM_REPLACE), host_(host), form_(form) {}

 protected:
  void OnInit() override {
    const Ui::TextSource texts = [this](TextId id) { return host_.GetLanguageString(id); };
    Ui::SetTexts(Window(), kTexts, texts);
    Ui::SetTexts(Window(), kCommonTexts, [this](TextId id) { return host_.GetModuleLanguageString(0, id); });
    Ui::SetText(Control(QX_CONFIRM_PATH), form_.path);
    ShowRange();
    ShowWindow(Control(QX_CONFIRM_SWITCH), CanSwitchView(form_) ? SW_SHOW : SW_HIDE);
    ShowTexts();
    SelectMatch();
  }

  void OnButton(int control) override {
    switch (control) {
      case QX_CONFIRM_REPLACE_ALL:
        return Answer(ConfirmResult::ReplaceAll);
      case QX_CONFIRM_FIND_NEXT:
        return Answer(ConfirmResult::Skip);
      case QX_CONFIRM_SWITCH:
        return SwitchView();
      default:
        return;
    }
  }

  void OnOk() override { Answer(ConfirmResult::Replace); }
  void OnCancel() override { Answer(ConfirmResult::Cancel); }

  // Draws the read-only fields in the colours of editable ones.
  HBRUSH OnColorStatic(int control, HDC dc) override {
    if (control != QX_CONFIRM_CONTEXT && control != QX_CONFIRM_REPLACEMENT) return nullptr;
    SetTextColor(dc, textColor_);
    SetBkColor(dc, backColor_);
    return brush_.get();
  }

 private:
  void Answer(ConfirmResult result) {
    form_.result = result;
    Close(IDOK);
  }

  void ShowRange() {
    const WCHAR* const format = host_.GetLanguageString(kTextConfirmRange);
    if (format) Ui::SetText(Control(QX_CONFIRM_RANGE), RangeText(format, form_.range));
  }

  void ShowTexts() {
    Ui::SetText(Control(QX_CONFIRM_CONTEXT), EditText(ShownContext(form_)));
    Ui::SetText(Control(QX_CONFIRM_REPLACEMENT), EditText(ShownReplacement(form_)));
  }

  // Selects the match. Called only once, because the offsets are those of the raw text (C-239).
  void SelectMatch() {
    const HWND context = Control(QX_CONFIRM_CONTEXT);
    Ui::KeepSelection(context);
    const WString shown = ShownContext(form_);
    SendMessageW(context, EM_SETSEL, EditOffset(shown, form_.highlight.start),
                 static_cast<LPARAM>(EditOffset(shown, form_.highlight.end)));
    SendMessageW(context, EM_SCROLLCARET, 0, 0);
  }

  void SwitchView() {
    form_.rawShown = !form_.rawShown;
    ShowTexts();
    if (form_.rawShown) ShowRange();
  }

  IHostApp& host_;
  ConfirmReplaceForm& form_;
  const COLORREF textColor_ = GetSysColor(COLOR_WINDOWTEXT);
  const COLORREF backColor_ = GetSysColor(COLOR_WINDOW);
  const Brush brush_{CreateSolidBrush(backColor_)};
};

}  // namespace

void ShowConfirmReplaceDlg(IHostApp& host, ConfirmReplaceForm& form) {
  ConfirmReplaceDlg dialog(host, form);
  dialog.ShowModal(DialogOwner(host));
}

}  // namespace QXFindAndReplace
