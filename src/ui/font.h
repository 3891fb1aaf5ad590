// Fonts that a dialog makes for its own controls.
#pragma once

#include "platform/windows_api.h"

namespace Ui {

// A font by name and size whose characters are all equally wide, deleted with its owner, which must outlive
// the controls that show it. Where the system has not got the name, it takes another such font; where it
// makes none, the controls keep theirs.
class Font {
 public:
  // `points` by the resolution of the screen; regular weight, ClearType.
  Font(const WCHAR* name, int points);
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;
  ~Font();

  void SetFor(HWND control) const;

 private:
  HFONT font_;
};

}  // namespace Ui
