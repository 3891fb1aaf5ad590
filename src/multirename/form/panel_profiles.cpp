// The Load / Save box of the rule panel and its "X" button.

#include <array>

#include "frame/services/format_text.h"
#include "frame/services/language_text.h"
#include "multirename/form/panel_controls.h"
#include "multirename/form/panel_form.h"
#include "multirename/form/panel_writing.h"
#include "multirename/rules/trimmed.h"

namespace Velmora::SDK {

namespace {

constexpr u32 kProfileNameSize = 1024;

}  // namespace

void PanelForm::ChooseProfile() {
  if (const MultiRenameProfile* const profile = profileBox_.Selected()) return LoadProfile(*profile);
  const int line = view_.SelectedLine(kProfileBox);
  if (line == ProfileBox::kSaveLine) SaveProfile();
  if (line != ProfileBox::kNoProfileLine) return;
  {
    const PanelWriting writing(isWriting_);
    rules_.SetDefaults();
    rules_.SetPairs({});
  }
  profileName_.clear();
  PostUpdate();
}

void PanelForm::LoadProfile(const MultiRenameProfile& profile) {
  {
    const PanelWriting loading(loadingGuard_);
    const PanelWriting writing(isWriting_);
    profileName_ = profile.name;
    rules_.ShowProfile(profile);
    frame_.SetTitle(LanguageText(host_, kRenameTextProfileTitle) + profileName_);
  }
  UpdatePreview();
}

void PanelForm::SaveProfile() {
  const WString title = LanguageText(host_, kRenameTextSaveTitle);
  const WString prompt = LanguageText(host_, kRenameTextSavePrompt);
  const WString hint = LanguageText(host_, kRenameTextSaveHint);
  std::array<WCHAR, kProfileNameSize> buffer = {};
  if (!host_.AskText(title.c_str(), prompt.c_str(), profileName_.c_str(), hint.c_str(), buffer.data(),
                     kProfileNameSize, view_.Window(), 0)) {
    return;
  }
  buffer.back() = WCHAR();
  const WString name(Trimmed(buffer.data(), W(" \t\r\n")));
  MultiRenameProfiles& profiles = context_.profiles;
  const bool replaces = profiles.Find(name) != nullptr;
  if (replaces && !Confirms(LanguageText(host_, kRenameTextOverwriteProfile))) {
    const PanelWriting writing(isWriting_);
    view_.SelectLine(kProfileBox, ProfileBox::kNoProfileLine);
    return;
  }
  // Wait before removing anything, so that the profiles remain unchanged if the wait fails.
  if (!engine_.worker.StopCurrent()) return;
  if (replaces) profiles.Remove(name);
  profiles.Add(rules_.MakeProfile(name));
  profiles.Save();
  const MultiRenameProfile* saved = nullptr;
  {
    const PanelWriting writing(isWriting_);
    saved = profileBox_.Rebuild(&name);
  }
  if (saved) LoadProfile(*saved);
}

// Leaves the pairs, and the name that a save suggests, unchanged (C-683).
void PanelForm::DeleteProfile() {
  const MultiRenameProfile* const profile = profileBox_.Selected();
  if (!profile) return;
  if (!Confirms(FormatText(LanguageText(host_, kRenameTextDeleteProfile), profile->name))) return;
  context_.profiles.Remove(profile);
  {
    const PanelWriting writing(isWriting_);
    profileBox_.Rebuild();
    rules_.SetDefaults();
  }
  context_.profiles.Save();
  frame_.SetTitle();
  PostUpdate();
}

bool PanelForm::Confirms(const WString& question) {
  return view_.ShowBox(LanguageText(host_, kRenameTextTitle), question, MB_YESNO) == IDYES;
}

}  // namespace Velmora::SDK
