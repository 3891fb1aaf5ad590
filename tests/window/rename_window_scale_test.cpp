// MultiRename's complete window at the scale of the screen, and after a move to a monitor with another one.
// The first test also runs on a screen with 192 pixels per inch.
#include <gmock/gmock.h>

#include "multirename/form/frame_form.h"
#include "multirename/form/panel_controls.h"
#include "platform/screen_scale.h"
#include "window/layout_checks.h"
#include "window/rename_frame_window.h"
#include "window/screenshot.h"

// windows.h must be included first.
#include <commctrl.h>

namespace {

using namespace Velmora::SDK;

// Fields that have a hint or a hidden name in place of a label.
const std::set<int> kFieldsWithoutName = {kPairFind, kPairReplace, kPartsBox};

// Otherwise the system limits a window to the size of the screen.
class LargerThanScreen {
 public:
  explicit LargerThanScreen(HWND window) : window_(window) { SetWindowSubclass(window, OnMessage, kId, 0); }
  LargerThanScreen(const LargerThanScreen&) = delete;
  LargerThanScreen& operator=(const LargerThanScreen&) = delete;
  ~LargerThanScreen() { RemoveWindowSubclass(window_, OnMessage, kId); }

 private:
  static constexpr UINT_PTR kId = 0x192;
  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                    DWORD_PTR) {
    if (message == WM_GETMINMAXINFO) reinterpret_cast<MINMAXINFO*>(lParam)->ptMaxTrackSize = {4000, 3000};
    return DefSubclassProc(window, message, wParam, lParam);
  }

  HWND window_;
};

class RenameWindowScale : public RenameFrameWindow {
 protected:
  static RECT Area(HWND window) {
    RECT area = {};
    GetWindowRect(window, &area);
    return area;
  }
  static LONG Width(HWND window) { return Area(window).right - Area(window).left; }
  static LONG Height(HWND window) { return Area(window).bottom - Area(window).top; }
  static int Scaled(int pixels, int scale) { return MulDiv(pixels, scale, 96); }

  // List, panel and status bar fill the frame from top to bottom.
  void ExpectParts(int scale) const {
    RECT client = {};
    GetClientRect(Frame(), &client);
    MapWindowPoints(Frame(), nullptr, reinterpret_cast<POINT*>(&client), 2);
    EXPECT_EQ(Area(List()).top, client.top);
    EXPECT_EQ(Area(Panel()).top, Area(List()).bottom);
    EXPECT_EQ(Area(StatusBar()).top, Area(Panel()).bottom);
    EXPECT_EQ(Area(StatusBar()).bottom, client.bottom);
    for (const HWND part : {List(), Panel(), StatusBar()}) {
      EXPECT_EQ(Area(part).left, client.left);
      EXPECT_EQ(Area(part).right, client.right);
    }
    int edges[2] = {};
    SendMessageW(StatusBar(), SB_GETPARTS, 2, reinterpret_cast<LPARAM>(edges));
    EXPECT_EQ(client.right - client.left - edges[0], Scaled(650, scale));
    for (const WPARAM column : {0, 1})
      EXPECT_EQ(SendMessageW(List(), LVM_GETCOLUMNWIDTH, column, 0), Scaled(200, scale));
    RECT row = {LVIR_BOUNDS, 0, 0, 0};
    SendMessageW(List(), LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
    EXPECT_GE(row.bottom - row.top, Scaled(16, scale));
    EXPECT_LE(row.bottom - row.top, Scaled(20, scale));
    EXPECT_GE(SendMessageW(List(), LVM_GETCOUNTPERPAGE, 0, 0), 5);
  }
};

TEST_F(RenameWindowScale, AtTheScaleOfTheScreenTheWholeWindowHolds) {
  Open({W("Beach 1.jpg"), W("Beach 2.jpg"), W("Beach 3.jpg"), W("100 % & more.txt"), W("notes.txt")});
  const int scale = PixelsOfAnInch(Frame());
  const LargerThanScreen larger(Frame());
  for (const SIZE size : {SIZE{855, 410}, SIZE{850, 400}, SIZE{1200, 600}}) {
    SetWindowPos(Frame(), nullptr, 0, 0, Scaled(size.cx, scale), Scaled(size.cy, scale), SWP_NOZORDER);
    EXPECT_EQ(Width(Frame()), Scaled(size.cx, scale));
    EXPECT_EQ(Height(Frame()), Scaled(size.cy, scale));
    ExpectParts(scale);
    ExpectLayoutHolds(Panel(), kFieldsWithoutName);
  }
}

TEST_F(RenameWindowScale, OnAMonitorOfAnotherScaleTheWholeWindowHoldsAndBackAgain) {
  Open({W("a.txt"), W("b.txt"), W("c.txt")});
  const int first = PixelsOfAnInch(Frame());
  const LargerThanScreen larger(Frame());
  for (const int scale : {192, 144, 96, first}) {
    RECT area = {0, 0, Scaled(855, scale), Scaled(410, scale)};
    SendMessageW(Frame(), 0x02E0, MAKEWPARAM(scale, scale), reinterpret_cast<LPARAM>(&area));
    // WM_DPICHANGED_AFTERPARENT, which the system sends to the children.
    SendMessageW(List(), 0x02E3, 0, 0);
    Settle();
    EXPECT_EQ(Width(Frame()), Scaled(855, scale)) << scale;
    ExpectControlsInsideClientArea(Panel());
    ExpectNoControlsOverlap(Panel());
    EXPECT_EQ(Area(Panel()).bottom, Area(StatusBar()).top) << scale;
    EXPECT_EQ(Area(Panel()).top, Area(List()).bottom) << scale;
    EXPECT_GE(SendMessageW(List(), LVM_GETCOUNTPERPAGE, 0, 0), 3) << scale;
  }
}

}  // namespace
