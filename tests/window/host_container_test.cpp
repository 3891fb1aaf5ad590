// The host's container as a real window: the layout of list and panel, the commands that it forwards, and the
// screenshot after the first preview.
#include <gmock/gmock.h>

#include <fstream>

#include "multirename/engine/rename_worker.h"
#include "multirename/form/frame_form.h"
#include "multirename/form/panel_controls.h"
#include "ui/module_instance.h"
#include "window/hosted_list.h"
#include "window/screenshot.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace Velmora::SDK;

// A child window of the container that records the commands it receives.
class Panel final : public IMultiWindow {
 public:
  explicit Panel(HWND container) {
    window_ = CreateWindowExW(0, L"STATIC", L"The panel", WS_CHILD | SS_SUNKEN, 0, 0, 1, 1, container,
                              nullptr, Ui::ModuleInstance(), nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    before_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
  }

  HWND GetHandle() override { return window_; }
  bool FilterMessage(tagMSG*) override { return false; }
  void DestroyHandle() override { DestroyWindow(window_); }

  std::vector<int> commands;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Panel& panel = *reinterpret_cast<Panel*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_COMMAND) panel.commands.push_back(LOWORD(wParam));
    return CallWindowProcW(panel.before_, window, message, wParam, lParam);
  }

  HWND window_ = nullptr;
  WNDPROC before_ = nullptr;
};

class HostContainerWindow : public HostedList {
 protected:
  // Returns the rectangle of a window in the container's coordinates.
  RECT AreaIn(HWND window) const {
    RECT area = {};
    GetWindowRect(window, &area);
    MapWindowPoints(nullptr, containerWindow_, reinterpret_cast<POINT*>(&area), 2);
    return area;
  }

  static std::vector<LONG> Sides(const RECT& area) { return {area.left, area.top, area.right, area.bottom}; }

  void Resize(int width, int height) const {
    SetWindowPos(containerWindow_, nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  }
};

TEST_F(HostContainerWindow, HasTheStyleThatItIsAskedForAndFillsTheFrame) {
  const LONG style = GetWindowLongW(containerWindow_, GWL_STYLE);
  EXPECT_EQ(style & 0x56000000, 0x56000000);
  EXPECT_EQ(GetParent(containerWindow_), frame_.Get());
  RECT room = {};
  GetClientRect(frame_.Get(), &room);
  EXPECT_THAT(Sides(AreaIn(containerWindow_)), ElementsAre(0, 0, room.right, room.bottom));
  EXPECT_THAT(Sides(AreaIn(window_)), ElementsAre(0, 0, room.right, room.bottom));
}

TEST_F(HostContainerWindow, DocksThePanelBelowTheListAndShowsIt) {
  Panel panel(containerWindow_);
  Resize(855, 380);
  container_->Dock(&panel, 230);
  EXPECT_THAT(Sides(AreaIn(window_)), ElementsAre(0, 0, 855, 150));
  EXPECT_THAT(Sides(AreaIn(panel.GetHandle())), ElementsAre(0, 150, 855, 380));
  EXPECT_TRUE(IsWindowVisible(panel.GetHandle()));
  EXPECT_TRUE(SaveScreenshot(frame_.Get(), W("host_container")));
}

TEST_F(HostContainerWindow, BothFollowItsSizeAndThePanelKeepsItsHeight) {
  Panel panel(containerWindow_);
  container_->Dock(&panel, 230);
  Resize(1000, 700);
  EXPECT_THAT(Sides(AreaIn(window_)), ElementsAre(0, 0, 1000, 470));
  EXPECT_THAT(Sides(AreaIn(panel.GetHandle())), ElementsAre(0, 470, 1000, 700));
  Resize(100, 100);
  EXPECT_THAT(Sides(AreaIn(window_)), ElementsAre(0, 0, 200, 0));
  EXPECT_THAT(Sides(AreaIn(panel.GetHandle())), ElementsAre(0, 0, 100, 100));
  Resize(0, 0);
  Resize(500, 500);
  EXPECT_THAT(Sides(AreaIn(panel.GetHandle())), ElementsAre(0, 270, 500, 500));
}

TEST_F(HostContainerWindow, WithoutThePanelTheListHasItsRoomBack) {
  Panel panel(containerWindow_);
  Resize(500, 400);
  container_->Dock(&panel, 100);
  container_->Dock(nullptr, 0);
  EXPECT_THAT(Sides(AreaIn(window_)), ElementsAre(0, 0, 500, 400));
}

TEST_F(HostContainerWindow, ThePanelMayGoFirst) {
  Panel panel(containerWindow_);
  container_->Dock(&panel, 100);
  panel.DestroyHandle();
  Resize(500, 400);
  SendMessageW(containerWindow_, WM_COMMAND, kMoveRowUp, 0);
  EXPECT_THAT(panel.commands, IsEmpty());
  EXPECT_EQ(AreaIn(window_).right, 500);
}

TEST_F(HostContainerWindow, CommandsAreThePanels) {
  Panel panel(containerWindow_);
  container_->Dock(&panel, 100);
  SendMessageW(containerWindow_, WM_COMMAND, kStartButton, 0);
  EXPECT_THAT(panel.commands, ElementsAre(kStartButton));
}

TEST_F(HostContainerWindow, TheFocusGoesToTheList) {
  SetFocus(containerWindow_);
  EXPECT_EQ(GetFocus(), window_);
}

TEST_F(HostContainerWindow, GivenBackItStaysAsAWindowAndDoesNothing) {
  Panel panel(containerWindow_);
  container_->Dock(&panel, 100);
  ReleaseControls();
  Resize(300, 300);
  SendMessageW(containerWindow_, WM_COMMAND, kStartButton, 0);
  EXPECT_TRUE(IsWindow(containerWindow_));
  EXPECT_TRUE(IsWindow(panel.GetHandle()));
  EXPECT_THAT(panel.commands, IsEmpty());
}

TEST_F(HostContainerWindow, OtherKindsAreNotMade) {
  EXPECT_EQ(container_->CreateControl(1000, 200), nullptr);
  EXPECT_EQ(controls_.Create(500, frame_.Get(), 0), nullptr);
}

TEST_F(HostContainerWindow, WithoutARequestNoPictureIsTakenAndTheFrameStaysOpen) {
  PostMessageW(containerWindow_, MRM_RUN_FINISHED, kPreviewFinished, 0);
  TakeMessages();
  EXPECT_TRUE(IsWindow(frame_.Get()));
  EXPECT_FALSE(picture_.isTaken);
}

class HostPictureWindow : public HostContainerWindow {
 protected:
  HostPictureWindow() {
    ReleaseControls();
    DestroyWindow(containerWindow_);
    picture_.path = scratch_.Path(W("picture.png"));
    MakeControls();
  }

  std::string PictureBegin() const {
    std::ifstream file(scratch_.NativePath(W("picture.png")), std::ios::binary);
    std::string bytes(8, '\0');
    file.read(bytes.data(), 8);
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
  }
};

TEST_F(HostPictureWindow, IsTakenWhenTheFirstPreviewHasEndedAndClosesTheFrame) {
  AddRows({W("a")});
  TakeMessages();
  EXPECT_FALSE(picture_.isTaken);
  // Any window of the thread will do.
  PostMessageW(frame_.Get(), MRM_RUN_FINISHED, kPreviewFinished, 0);
  TakeMessages();
  EXPECT_TRUE(picture_.isSaved);
  EXPECT_FALSE(IsWindow(frame_.Get()));
  EXPECT_EQ(PictureBegin(), "\x89PNG\r\n\x1A\n");
}

TEST_F(HostPictureWindow, IsNotTakenForAnotherEndOrAnotherMessage) {
  PostMessageW(frame_.Get(), MRM_RUN_FINISHED, kRenameFinished, 0);
  PostMessageW(frame_.Get(), MRM_ROWS_CHANGED, kPreviewFinished, 0);
  TakeMessages();
  EXPECT_FALSE(picture_.isTaken);
  EXPECT_TRUE(IsWindow(frame_.Get()));
}

TEST_F(HostPictureWindow, ThatCannotBeWrittenStillClosesTheFrame) {
  picture_.path = scratch_.Path(W("nowhere\\picture.png"));
  PostMessageW(frame_.Get(), MRM_RUN_FINISHED, kPreviewFinished, 0);
  TakeMessages();
  EXPECT_TRUE(picture_.isTaken);
  EXPECT_FALSE(picture_.isSaved);
  EXPECT_FALSE(IsWindow(frame_.Get()));
}

}  // namespace
