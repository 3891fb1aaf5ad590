// The box "Load / Save" of the panel: the empty choice, the command to save, and one line for each profile.
// On the window's thread.
#pragma once

#include "multirename/form/control_view.h"
#include "multirename/saved/multi_rename_profiles.h"

namespace Velmora::SDK {

class ProfileBox {
 public:
  // Its first lines. The profiles follow in the order of the store.
  static constexpr int kNoProfileLine = 0;
  static constexpr int kSaveLine = 1;
  static constexpr int kFirstProfileLine = 2;

  ProfileBox(ControlView& view, IHostApp& host, const MultiRenameProfiles& profiles)
      : view_(view), host_(host), profiles_(profiles) {}

  // Fills the box anew and selects the profile of that name, without regard to case, or line 0 if there is
  // none or no name. Returns the profile; whoever rebuilds the box does with it as if it had been chosen.
  const MultiRenameProfile* Rebuild(const WString* name = nullptr);

  // The profile of the selected line; null for one of the first two and without a selection.
  const MultiRenameProfile* Selected() const;

 private:
  ControlView& view_;
  IHostApp& host_;
  const MultiRenameProfiles& profiles_;
};

}  // namespace Velmora::SDK
