// The controls of the Windows build: the container's window, and the list view in it.

#include <optional>
#include <utility>

#include "host/controls/container_control.h"
#include "host/controls/container_window.h"
#include "host/controls/dock_areas.h"
#include "host/controls/list_view.h"
#include "host/controls/preview_watch.h"
#include "host/system/window_picture.h"

namespace QxHost {
namespace {

constexpr WCHAR kContainerClass[] = L"QxHostContainer";

class ContainerWindow final : public ContainerControl {
 public:
  ContainerWindow(Controls& controls, HWND parent, u32 style) : ContainerControl(controls) {
    RegisterOnce();
    RECT room = {};
    GetClientRect(parent, &room);
    window_ = CreateWindowExW(WS_EX_CONTROLPARENT, kContainerClass, nullptr, style | WS_CHILD, 0, 0,
                              room.right, room.bottom, parent, nullptr, GetModuleHandleW(nullptr), this);
    PictureRequest* const picture = controls_.Picture();
    if (window_ && picture && !picture->path.empty() && !picture->isTaken)
      watch_.emplace(window_, kTakePicture);
  }
  ~ContainerWindow() override {
    if (window_) SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  }

  HWND Handle() const override { return window_; }

 private:
  static void RegisterOnce() {
    WNDCLASSW made = {};
    made.lpfnWndProc = Procedure;
    made.hInstance = GetModuleHandleW(nullptr);
    made.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    made.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    made.lpszClassName = kContainerClass;
    RegisterClassW(&made);  // fails harmlessly if the class is already registered
  }

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
      const auto* const create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
      SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* const container = reinterpret_cast<ContainerWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (container && container->Handle(message, wParam, lParam)) return 0;
    return DefWindowProcW(window, message, wParam, lParam);
  }

  // Returns true if it has handled the message.
  bool Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
      case WM_SIZE:
        OnLayout();
        return true;
      case WM_SETFOCUS:
        if (list_) SetFocus(list_);
        return true;
      case WM_COMMAND:
        if (docked_) SendMessageW(docked_, message, wParam, lParam);
        return docked_ != nullptr;
      case kTakePicture:
        TakePicture();
        return true;
      case WM_NCDESTROY:
        window_ = nullptr;
        watch_.reset();
        return false;
      default:
        return false;
    }
  }

  void OnLayout() override {
    RECT room = {};
    if (!window_ || !GetClientRect(window_, &room)) return;
    const DockAreas areas = PartContainer(room.right, room.bottom, minListWidth_, dockedHeight_);
    Place(list_, areas.list);
    Place(docked_, areas.docked);
  }

  void Place(HWND child, const DockArea& area) const {
    if (!child || GetParent(child) != window_) return;
    SetWindowPos(child, nullptr, area.x, area.y, area.width, area.height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  }

  void TakePicture() {
    watch_.reset();
    PictureRequest& picture = *controls_.Picture();
    if (std::exchange(picture.isTaken, true)) return;
    const HWND frame = GetAncestor(window_, GA_ROOT);
    picture.isSaved = SaveWindowPicture(frame, picture.path);
    PostMessageW(frame, WM_CLOSE, 0, 0);
  }

  HWND window_ = nullptr;
  std::optional<PreviewWatch> watch_;
};

}  // namespace

const bool kControlsAreDrawn = true;

std::unique_ptr<Control> MakeContainer(Controls& controls, HWND parent, u32 style) {
  auto container = std::make_unique<ContainerWindow>(controls, parent, style);
  return container->Handle() ? std::move(container) : nullptr;
}

std::unique_ptr<Control> MakeList(Controls& controls, HWND parent) {
  auto list = std::make_unique<ListView>(controls, parent);
  return list->Handle() ? std::move(list) : nullptr;
}

}  // namespace QxHost
