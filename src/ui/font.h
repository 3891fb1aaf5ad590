// Fonts that a dialog creates for single controls.
#pragma once

#include "platform/screen_scale.h"
#include "platform/windows_api.h"

namespace Ui {

using ::PixelsOfAnInch;

// A fixed-pitch font for one control, given by name and size. The object owns the font and must outlive the
// control. If the system does not have the named font, it uses another fixed-pitch one; if it cannot create a
// font, the control keeps its present one.
class Font {
 public:
  // The font has regular weight and uses ClearType. `name` must outlive the object.
  Font(const WCHAR* name, int points) : name_(name), points_(points) {}
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;
  ~Font();

  // Sets the font of a control; called once. From then on the control ignores other fonts, because the system
  // sets the dialog's font in all controls when the dialog moves to a monitor with another resolution.
  void SetFor(HWND control);

  // Creates the font again for a monitor with this resolution, in pixels per inch.
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
