#include "multirename/window/panel_stretch_windows.h"

#include <algorithm>

#include "multirename/form/panel_controls.h"

namespace Velmora::SDK {

namespace {

constexpr int kShares = 8;

struct Stretch {
  int control;
  int moved;
  int widened;
};

// In eighths of the additional space. The templates get a quarter of it and the search gets the rest;
// controls to the right of one that grows are moved accordingly.
constexpr Stretch kStretches[] = {
    {kNameTemplateLabel, 0, 2},
    {kNameTemplate, 0, 2},
    {kNameTags, 2, 0},
    {kExtensionTemplateLabel, 0, 2},
    {kExtensionTemplate, 0, 2},
    {kExtensionTags, 2, 0},
    {kCaseBoxLabel, 0, 2},
    {kCaseBox, 0, 2},
    {kCounterGroup, 2, 0},
    {kStartAtLabel, 2, 0},
    {kStartAt, 2, 0},
    {kStepByLabel, 2, 0},
    {kStepBy, 2, 0},
    {kDigitsLabel, 2, 0},
    {kDigits, 2, 0},
    {kProfileGroup, 2, 0},
    {kProfileBox, 2, 0},
    {kDeleteProfile, 2, 0},
    {kSearchGroup, 2, 6},
    {kPairList, 2, 6},
    {kPairFind, 2, 3},
    {kPairReplace, 5, 3},
    {kPairAdd, 8, 0},
    {kPairDialog, 8, 0},
    {kPartsBox, 2, 6},
    {kRegexBox, 8, 0},
    {kReplaceAllBox, 2, 0},
    {kCaseSensitiveBox, 2, 0},
    {kResetButton, 8, 0},
    {kUndoButton, 8, 0},
    {kUndoManagerButton, 8, 0},
    {kStartButton, 8, 0},
    {kCloseButton, 8, 0},
};

// Buttons next to combo boxes, whose height depends on the font.
struct ButtonOfBox {
  int button;
  int box;
};
constexpr ButtonOfBox kButtonsOfBoxes[] = {
    {kNameTags, kNameTemplate}, {kExtensionTags, kExtensionTemplate}, {kDeleteProfile, kProfileBox}};

// Restores the selection in the edit field of a combo box when destroyed. Resizing a combo box selects its
// text.
class KeptSelection {
 public:
  explicit KeptSelection(HWND control) {
    COMBOBOXINFO box = {};
    box.cbSize = sizeof(box);
    if (!GetComboBoxInfo(control, &box) || box.hwndItem == control) return;
    field_ = box.hwndItem;
    SendMessageW(field_, EM_GETSEL, reinterpret_cast<WPARAM>(&begin_), reinterpret_cast<LPARAM>(&end_));
  }
  KeptSelection(const KeptSelection&) = delete;
  KeptSelection& operator=(const KeptSelection&) = delete;
  ~KeptSelection() {
    if (field_) SendMessageW(field_, EM_SETSEL, begin_, static_cast<LPARAM>(end_));
  }

 private:
  HWND field_ = nullptr;
  DWORD begin_ = 0;
  DWORD end_ = 0;
};

// Returns the rectangle of a combo box with its list closed.
RECT ClosedPlaceOf(HWND panel, HWND control) {
  RECT area = {};
  GetWindowRect(control, &area);
  MapWindowPoints(nullptr, panel, reinterpret_cast<POINT*>(&area), 2);
  return area;
}

RECT PlaceOf(HWND panel, HWND control) {
  RECT area = {};
  // Fails for controls other than combo boxes.
  if (!SendMessageW(control, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&area)))
    return ClosedPlaceOf(panel, control);
  MapWindowPoints(nullptr, panel, reinterpret_cast<POINT*>(&area), 2);
  return area;
}

}  // namespace

void PanelStretch::Attach(HWND panel, int pixelsOfAnInch) {
  panel_ = panel;
  scale_ = pixelsOfAnInch;
  RECT client = {};
  GetClientRect(panel, &client);
  width_ = client.right;
  height_ = client.bottom;
  places_.clear();
  for (HWND control = GetWindow(panel, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT)) {
    const int number = GetDlgCtrlID(control);
    const auto* const row = std::ranges::find(kStretches, number, &Stretch::control);
    const bool isStretched = row != std::end(kStretches);
    places_.push_back(
        {number, PlaceOf(panel, control), isStretched ? row->moved : 0, isStretched ? row->widened : 0});
  }
  for (const auto& [button, box] : kButtonsOfBoxes) {
    const auto place = std::ranges::find(places_, button, &Place::control);
    if (place == places_.end()) continue;
    const RECT boxPlace = ClosedPlaceOf(panel, GetDlgItem(panel, box));
    place->area.top = boxPlace.top;
    place->area.bottom = boxPlace.bottom;
  }
}

void PanelStretch::SetScale(int pixelsOfAnInch) {
  if (pixelsOfAnInch <= 0 || scale_ <= 0) return;
  const auto scaled = [&](auto pixels) { return MulDiv(static_cast<int>(pixels), pixelsOfAnInch, scale_); };
  for (Place& place : places_) {
    RECT& area = place.area;
    area = {scaled(area.left), scaled(area.top), scaled(area.right), scaled(area.bottom)};
  }
  width_ = scaled(width_);
  height_ = scaled(height_);
  scale_ = pixelsOfAnInch;
}

void PanelStretch::Apply(int width) const {
  const int more = std::max(0, width - width_);
  for (const Place& place : places_) {
    const HWND control = GetDlgItem(panel_, place.control);
    const LONG left = place.area.left + more * place.moved / kShares;
    const LONG right = place.area.right + more * (place.moved + place.widened) / kShares;
    const KeptSelection selection(control);
    SetWindowPos(control, nullptr, left, place.area.top, right - left, place.area.bottom - place.area.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

}  // namespace Velmora::SDK
