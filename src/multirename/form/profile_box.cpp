#include "multirename/form/profile_box.h"

#include "frame/services/language_text.h"
#include "multirename/form/panel_controls.h"

namespace Velmora::SDK {

const MultiRenameProfile* ProfileBox::Rebuild(const WString* name) {
  std::vector<WString> lines = {LanguageText(host_, kRenameTextNoProfile),
                                LanguageText(host_, kRenameTextSaveProfile)};
  const MultiRenameProfile* selected = nullptr;
  int selectedLine = kNoProfileLine;
  for (const auto& profile : profiles_.profiles) {
    if (name && !selected && IsSameProfileName(profile->name, *name)) {
      selected = profile.get();
      selectedLine = static_cast<int>(lines.size());
    }
    lines.push_back(profile->name);
  }
  view_.SetLines(kProfileBox, lines);
  view_.SelectLine(kProfileBox, selectedLine);
  return selected;
}

const MultiRenameProfile* ProfileBox::Selected() const {
  const int line = view_.SelectedLine(kProfileBox);
  const auto index = static_cast<std::size_t>(line - kFirstProfileLine);
  if (line < kFirstProfileLine || index >= profiles_.profiles.size()) return nullptr;
  return profiles_.profiles[index].get();
}

}  // namespace Velmora::SDK
