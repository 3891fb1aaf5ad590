// The "Load / Save" box of the panel: an empty choice, the command to save, and one line for each profile.
// Used on the window's thread.
#pragma once

#include "multirename/form/control_view.h"
#include "multirename/saved/multi_rename_profiles.h"

namespace Velmora::SDK {

class ProfileBox {
 public:
  // The first lines. The profiles follow in the order of the store.
  static constexpr int kNoProfileLine = 0;
  static constexpr int kSaveLine = 1;
  static constexpr int kFirstProfileLine = 2;

  ProfileBox(ControlView& view, IHostApp& host, const MultiRenameProfiles& profiles)
      : view_(view), host_(host), profiles_(profiles) {}

  // Fills the box again and selects the profile with this name, ignoring letter case, or line 0 if there is
  // none. Returns the profile; the caller loads it as if the user had chosen it.
  const MultiRenameProfile* Rebuild(const WString* name = nullptr);

  // Returns the profile of the selected line; null for the first two lines and without a selection.
  const MultiRenameProfile* Selected() const;

 private:
  ControlView& view_;
  IHostApp& host_;
  const MultiRenameProfiles& profiles_;
};

}  // namespace Velmora::SDK
