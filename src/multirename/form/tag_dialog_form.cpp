#include "multirename/form/tag_dialog_form.h"

#include <array>

#include "frame/host/host_objects.h"
#include "frame/services/language_text.h"
#include "multirename/form/dialog_texts.h"
#include "multirename/form/rename_texts.h"
#include "multirename/rules/trimmed.h"

namespace Velmora::SDK {

namespace {

constexpr std::size_t kMaxTagChars = 1024;
constexpr u32 kPropertyNameSize = 1024;

constexpr ControlTextRow kTagDialogTexts[] = {
    {kWindowTitle, kRenameTextAddTagTitle},      {kTagPropertyLabel, kRenameTextAddTagProperty},
    {kTagChosenLabel, kRenameTextAddTagChosen},  {kTagStartLabel, kRenameTextAddTagStart},
    {kTagLengthLabel, kRenameTextAddTagLength},  {kTagComplete, kRenameTextAddTagComplete},
    {kTagSubString, kRenameTextAddTagSubString}, {kTagInsert, kRenameTextAddTagInsert},
};
constexpr ControlTextRow kTagDialogCommonTexts[] = {{kTagCancel, kRenameCommonCancel}};

}  // namespace

std::vector<PropertyName> ListPropertyNames(IHostApp& host, IHostPropertyManager* manager) {
  std::vector<PropertyName> names;
  if (!manager) return names;
  const HostObject<IHostPropertyList> list(host.CreatePropertyList());
  if (!list) return names;
  manager->ListProperties(list.Get(), 0);
  std::array<WCHAR, kPropertyNameSize> internalName = {};
  std::array<WCHAR, kPropertyNameSize> displayName = {};
  for (u32 index = 0, count = list->Count(); index < count; ++index) {
    if (list->At(index, internalName.data(), displayName.data(), kPropertyNameSize))
      names.push_back({internalName.data(), displayName.data()});
  }
  return names;
}

void TagDialogForm::Open(DialogView& view) {
  view_ = &view;
  SetDialogTexts(view, host_, kTagDialogTexts, kTagDialogCommonTexts);
  std::vector<WString> lines;
  for (const PropertyName& name : names_) lines.push_back(name.displayName);
  view.SetLines(kTagProperties, lines);
  view.SetChecked(kTagComplete, true);
  view.SetChecked(kTagSubString, false);
  UpdateForMode();
  ShowTag();
}

void TagDialogForm::Press(int control) {
  switch (control) {
    case kTagComplete:
    case kTagSubString:
      UpdateForMode();
      ShowTag();
      break;
    case kTagInsert:
      tag_ = Trimmed(WStringView(view_->GetText(kTagText)).substr(0, kMaxTagChars), W(" \t\r\n"));
      view_->Close(kDialogOk);
      break;
    case kTagCancel:
      view_->Close(kDialogCancel);
      break;
    default:
      break;
  }
}

void TagDialogForm::Change(int control) {
  if (control == kTagProperties) {
    const auto line = static_cast<std::size_t>(view_->SelectedLine(kTagProperties));
    if (line >= names_.size()) return;
    chosenName_ = names_[line].internalName;
    view_->SetText(kTagChosen, names_[line].displayName);
    ShowTag();
  } else if (control == kTagStart || control == kTagLength) {
    ShowTag();
  }
}

void TagDialogForm::UpdateForMode() {
  const bool isComplete = view_->IsChecked(kTagComplete);
  view_->SetEnabled(kTagStart, !isComplete);
  view_->SetEnabled(kTagLength, !isComplete);
}

// Does not check the numbers: every text is a valid template.
void TagDialogForm::ShowTag() {
  WString tag = W("[?") + chosenName_;
  if (view_->IsChecked(kTagSubString)) {
    for (const int control : {kTagStart, kTagLength}) {
      const WString number = view_->GetText(control);
      if (!number.empty()) (tag += W(',')) += number;
    }
  }
  view_->SetText(kTagText, tag += W(']'));
}

}  // namespace Velmora::SDK
