#include "multirename/form/find_replace_dialog_form.h"

#include <string>

#include "frame/services/language_text.h"
#include "multirename/form/dialog_texts.h"
#include "multirename/form/rename_texts.h"
#include "multirename/saved/search_pairs.h"

namespace Velmora::SDK {

namespace {

constexpr ControlTextRow kPairsDialogTexts[] = {{kWindowTitle, kRenameTextTitle},
                                                {kPairsLabel, kRenameTextPairsLabel}};
constexpr ControlTextRow kPairsDialogCommonTexts[] = {{kPairsOk, kRenameCommonOk},
                                                      {kPairsCancel, kRenameCommonCancel}};

constexpr TextId kPairsHelpLines[] = {kRenameTextPairsHelp1, kRenameTextPairsHelp2, kRenameTextPairsHelp3,
                                      kRenameTextPairsHelp4};

}  // namespace

void FindReplaceDialogForm::Open(DialogView& view) {
  view_ = &view;
  SetDialogTexts(view, host_, kPairsDialogTexts, kPairsDialogCommonTexts);
  WString help;
  for (const TextId line : kPairsHelpLines) {
    if (line != kPairsHelpLines[0]) help += W("\r\n");
    help += LanguageText(host_, line);
  }
  view.SetText(kPairsHelp, help);
  view.SetText(kPairsText, PairDialogText(pairs_));
  manager_.emplace(host_);
  manager_->Load();
  view.GiveFocus(kPairsText);
}

void FindReplaceDialogForm::Press(int control) {
  if (control == kPairsCancel) view_->Close(kDialogCancel);
  if (control != kPairsOk) return;
  pairs_ = ParsePairDialog(view_->GetText(kPairsText));
  view_->Close(kDialogOk);
}

void FindReplaceDialogForm::PressFunctionKey(int control, int number, bool isShift) {
  if (control != kPairsText) return;
  if (number < FindReplaceManager::kFirstList || number > FindReplaceManager::kLastList) return;
  if (isShift)
    SaveList(number);
  else
    LoadList(number);
}

void FindReplaceDialogForm::DropFile(int control, const WString& path) {
  if (control != kPairsText) return;
  std::vector<WCHAR> buffer(kMaxDroppedText);
  const WString cutPath = path.substr(0, kMaxDroppedPathChars);
  if (!host_.ReadTextFile(buffer.data(), static_cast<u32>(buffer.size()), cutPath.c_str())) return;
  buffer.back() = WCHAR();
  view_->SetText(kPairsText, buffer.data());
}

void FindReplaceDialogForm::LoadList(int number) {
  const SearchAndReplaceItems* const list = manager_->Get(number);
  if (!list || list->empty()) return;
  ShowNote(kRenameTextPairsLoaded, number);
  view_->SetText(kPairsText, PairDialogText(*list));
}

void FindReplaceDialogForm::SaveList(int number) {
  ShowNote(kRenameTextPairsSaved, number);
  manager_->Set(number, ParsePairDialog(view_->GetText(kPairsText)));
  manager_->Save();
}

void FindReplaceDialogForm::ShowNote(TextId text, int number) {
  const WString note = LanguageText(host_, text) + FromUtf8(std::to_string(number));
  host_.ShowTimedNote(view_->Window(), note.c_str(), kPairsNoteTime, 2);
}

}  // namespace Velmora::SDK
