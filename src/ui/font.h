// Fonts that a dialog makes for its own controls.
#pragma once

#include "platform/screen_scale.h"
#include "platform/windows_api.h"

namespace Ui {

using ::PixelsOfAnInch;

// The font of one control, by name and size; its characters are all equally wide. It is deleted with its
// owner, which must outlive the control. Where the system has not got the name, it takes another such font;
// where it makes none, the control keeps its own.
class Font {
 public:
  // Regular weight, ClearType.
  Font(const WCHAR* name, int points) : name_(name), points_(points) {}
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;
  ~Font();

  // Gives the font to a control, once. The control refuses any other one from then on: when a dialog comes to
  // a monitor of another scale the system hands the dialog's own font to all of its controls.
  void SetFor(HWND control);

  // Makes the font anew for a monitor of this scale.
  void SetScale(int pixelsOfAnInch);

 private:
  static LRESULT CALLBACK OnControlMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR id, DWORD_PTR font);

  const WCHAR* name_;
  int points_;
  HFONT font_ = nullptr;
  HWND control_ = nullptr;
};

}  // namespace Ui
