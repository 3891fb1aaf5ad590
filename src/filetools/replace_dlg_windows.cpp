// The window of the Replace X with Y dialog.
#include "filetools/replace_dlg.h"
#include "filetools/replace_dlg_ids.h"
#include "frame/services/dialog_owner.h"
#include "frame/services/message_texts.h"
#include "ui/dialog.h"
#include "ui/form_binding.h"
#include "ui/resource_ids.h"

namespace {

using namespace Velmora::SDK;

constexpr Ui::ControlText kTexts[] = {
    {Ui::kTitle, kTextReplaceTitle},
    {QX_REPLACE_TOP, kTextReplaceTop},
    {QX_REPLACE_FIND_LABEL, kTextReplaceFindLabel},
    {QX_REPLACE_WITH_LABEL, kTextReplaceWithLabel},
    {QX_REPLACE_PART_LABEL, kTextReplacePartLabel},
    {IDOK, kTextReplaceOk},
    {IDCANCEL, kTextReplaceCancel},
};

constexpr Ui::ControlText kCueBanners[] = {
    {QX_REPLACE_FIND, kTextReplaceFindCue},
    {QX_REPLACE_WITH, kTextReplaceWithCue},
};

constexpr Ui::ComboRow kParts[] = {
    {ReplaceForm::kBaseName, kTextReplacePartBase},
    {ReplaceForm::kExtension, kTextReplacePartExtension},
    {ReplaceForm::kWholeName, kTextReplacePartWhole},
};

constexpr Ui::Field<ReplaceForm> kTextFields[] = {
    {QX_REPLACE_FIND, &ReplaceForm::find},
    {QX_REPLACE_WITH, &ReplaceForm::replace},
};

constexpr Ui::Field<ReplaceForm> kPartField[] = {
    {QX_REPLACE_PART, &ReplaceForm::part},
};

class CReplaceDlg : public Ui::Dialog {
 public:
  CReplaceDlg(IHostApp& host, ReplaceForm& form)
      : Dialog(QX_DIALOG_REPLACE),
        texts_([&host](TextId id) { return host.GetLanguageString(id); }),
        form_(form) {}

 protected:
  void OnInit() override {
    Ui::SetTexts(Window(), kTexts, texts_);
    Ui::SetCueBanners(Window(), kCueBanners, texts_);
    Ui::FillHistory(Control(QX_REPLACE_FIND), form_.findHistory);
    Ui::FillHistory(Control(QX_REPLACE_WITH), form_.replaceHistory);
    Ui::FillComboBox(Control(QX_REPLACE_PART), kParts, texts_);
    Ui::LoadFields(Window(), kTextFields, form_);
    Ui::LoadFields(Window(), kPartField, form_);
  }

  void OnOk() override {
    Ui::ReadFields(Window(), kPartField, form_);
    Ui::ReadFields(Window(), kTextFields, form_);
    Close(IDOK);
  }

  // Stores the texts as OnOk does, but not the part.
  void OnCancel() override {
    Ui::ReadFields(Window(), kTextFields, form_);
    Close(IDCANCEL);
  }

 private:
  Ui::TextSource texts_;
  ReplaceForm& form_;
};

}  // namespace

INT_PTR ShowReplaceDlg(IHostApp& host, ReplaceForm& form) {
  CReplaceDlg dialog(host, form);
  return dialog.ShowModal(DialogOwner(host));
}
