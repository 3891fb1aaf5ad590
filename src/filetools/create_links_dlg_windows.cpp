// The window of the Create Link dialog.
#include "filetools/create_links_dlg.h"
#include "filetools/create_links_dlg_ids.h"
#include "frame/services/dialog_owner.h"
#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"
#include "ui/dialog.h"
#include "ui/form_binding.h"
#include "ui/resource_ids.h"

namespace {

using namespace Velmora::SDK;
using Form = CreateLinksForm;

constexpr Ui::ControlText kTexts[] = {
    {Ui::kTitle, kTextLinkCaption},
    {QX_LINKS_KIND_GROUP, kTextLinkKinds},
    {QX_LINKS_LINK_LABEL, kTextLinkLabel},
    {QX_LINKS_TARGET_LABEL, kTextLinkTargetLabel},
    {IDOK, kTextLinkOk},
};

constexpr Ui::ControlText kCommonTexts[] = {
    {IDCANCEL, kCommonTextCancel},
    {QX_LINKS_DESCRIPTION_GROUP, kCommonTextDescription},
};

constexpr Ui::ComboRow kKinds[] = {
    {kHardLink, kTextLinkHard},
    {kJunction, kTextLinkJunction},
    {kSymbolicLink, kTextLinkSymbolic},
    {kShortcut, kTextLinkShortcut},
};

constexpr Ui::Field<Form> kKindField[] = {{QX_LINKS_KIND, &Form::linkKind}};

constexpr Ui::Field<Form> kNameFields[] = {
    {QX_LINKS_LINK, &Form::linkText},
    {QX_LINKS_TARGET, &Form::targetText},
};

constexpr Ui::EnableRule<Form> kRules[] = {
    {QX_LINKS_LINK, [](const Form& form) { return form.linkEnabled; }},
    {QX_LINKS_TARGET, [](const Form& form) { return form.targetEnabled; }},
    {IDOK, [](const Form& form) { return form.okEnabled; }},
};

class CreateLinksDlg : public Ui::Dialog {
 public:
  CreateLinksDlg(IHostApp& host, Form& form) : Dialog(QX_DIALOG_CREATE_LINKS), host_(host), form_(form) {}

 protected:
  void OnInit() override {
    const Ui::TextSource texts = [this](TextId id) { return host_.GetLanguageString(id); };
    Ui::SetTexts(Window(), kTexts, texts);
    Ui::SetTexts(Window(), kCommonTexts, [this](TextId id) { return host_.GetModuleLanguageString(0, id); });
    Ui::FillComboBox(Control(QX_LINKS_KIND), kKinds, texts);
    Ui::LoadFields(Window(), kKindField, form_);
    Ui::LoadFields(Window(), kNameFields, form_);
    ShowRules();
  }

  void OnChange() override {
    const int kind = form_.linkKind;
    Ui::ReadFields(Window(), kKindField, form_);
    Ui::ReadFields(Window(), kNameFields, form_);
    if (form_.linkKind == kind) return;
    UpdateForKind(form_);
    Ui::UpdateText(Control(QX_LINKS_LINK), form_.linkText);
    ShowRules();
  }

  void OnOk() override {
    OnChange();
    if (!form_.okEnabled) return;
    FinishForm(form_);
    Close(IDOK);
  }

 private:
  void ShowRules() {
    Ui::SetText(Control(QX_LINKS_DESCRIPTION), TextOf(form_.description));
    Ui::SetText(Control(QX_LINKS_STATUS), TextOf(form_.status));
    Ui::ApplyRules(Window(), kRules, form_);
  }

  WString TextOf(TextId text) { return text == 0 ? WString() : LanguageText(host_, text); }

  IHostApp& host_;
  Form& form_;
};

}  // namespace

INT_PTR ShowCreateLinksDlg(IHostApp& host, CreateLinksForm& form) {
  CreateLinksDlg dialog(host, form);
  return dialog.ShowModal(DialogOwner(host));
}
