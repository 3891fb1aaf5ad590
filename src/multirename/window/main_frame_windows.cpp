#include "multirename/window/main_frame_windows.h"

// Needs windows.h first.
#include <commctrl.h>

#include <array>

#include "multirename/window/menu_rows.h"
#include "platform/screen_scale.h"
#include "ui/common_controls.h"
#include "ui/module_instance.h"
#include "ui/resource_ids.h"

namespace Velmora::SDK {

namespace {

constexpr WCHAR kFrameClass[] = L"QXMultiRenameFrame";

// Posted to the frame after the system has resized the controls for a monitor with a different scale, which
// is the first parameter.
constexpr UINT kFrameScaleMessage = WM_APP + 1;

// WM_DPICHANGED, since Windows 8.1.
constexpr UINT kFrameScaleChanged = 0x02E0;

// Registers the class. Fails without effect if it is already registered.
void RegisterFrameClass(WNDPROC procedure) {
  WNDCLASSEXW made = {};
  made.cbSize = sizeof(made);
  made.lpfnWndProc = procedure;
  made.hInstance = Ui::ModuleInstance();
  made.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  made.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  made.lpszClassName = kFrameClass;
  RegisterClassExW(&made);
}

// The icon is a resource of the host's program.
LPARAM LoadFrameIcon(int width, int height) {
  return reinterpret_cast<LPARAM>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(FrameLayout::kIcon),
                                             IMAGE_ICON, GetSystemMetrics(width), GetSystemMetrics(height),
                                             LR_SHARED));
}

// Returns whether the list of the focused combo box is open. Escape then closes the list.
bool IsListOpen() {
  const HWND focus = GetFocus();
  if (!focus) return false;
  return SendMessageW(focus, CB_GETDROPPEDSTATE, 0, 0) != 0 ||
         SendMessageW(GetParent(focus), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

}  // namespace

bool MainFrame::Create() {
  RegisterFrameClass(Procedure);
  if (!CreateWindowExW(WS_EX_CONTROLPARENT, kFrameClass, nullptr, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                       CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr,
                       Ui::ModuleInstance(), this)) {
    return false;
  }
  scale_ = PixelsOfAnInch(window_);
  SetWindowPos(window_, nullptr, 0, 0, MulDiv(FrameLayout::kWidth, scale_, USER_DEFAULT_SCREEN_DPI),
               MulDiv(FrameLayout::kHeight, scale_, USER_DEFAULT_SCREEN_DPI),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  SetIcons();
  const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_BAR_CLASSES};
  InitCommonControlsEx(&classes);
  statusBar_ = CreateWindowExW(0, STATUSCLASSNAMEW, nullptr, WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0,
                               0, window_, nullptr, Ui::ModuleInstance(), nullptr);
  keys_ = LoadAcceleratorsW(Ui::ModuleInstance(), MAKEINTRESOURCEW(QX_FRAME_KEYS));
  OnSize();
  return true;
}

void MainFrame::SetIcons() {
  SendMessageW(window_, WM_SETICON, ICON_BIG, LoadFrameIcon(SM_CXICON, SM_CYICON));
  SendMessageW(window_, WM_SETICON, ICON_SMALL, LoadFrameIcon(SM_CXSMICON, SM_CYSMICON));
}

void MainFrame::SetClient(HWND client) {
  client_ = client;
  OnSize();
}

LRESULT CALLBACK MainFrame::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* const create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    static_cast<MainFrame*>(create->lpCreateParams)->window_ = window;
  }
  // The first message arrives before the object is known.
  auto* const frame = reinterpret_cast<MainFrame*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (frame && frame->Handle(message, wParam, lParam)) return 0;
  return DefWindowProcW(window, message, wParam, lParam);
}

bool MainFrame::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {
          MulDiv(FrameLayout::kMinWidth, scale_, USER_DEFAULT_SCREEN_DPI),
          MulDiv(FrameLayout::kMinHeight, scale_, USER_DEFAULT_SCREEN_DPI)};
      return true;
    case WM_SIZE:
      OnSize();
      return true;
    case WM_ACTIVATE:
      OnActivate(LOWORD(wParam) != WA_INACTIVE);
      return true;
    case WM_SETFOCUS:
      if (focus_) SetFocus(focus_);
      return true;
    case WM_COMMAND:
      OnCommand(wParam, lParam);
      return true;
    case MRM_CONFIRM_CLOSE:
      // Asks only one question at a time.
      if (form_ && !calls_.AreRunning()) calls_.Run([&] { form_->OnMessage(message); });
      return true;
    case kFrameScaleChanged:
      OnScale(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
      return true;
    case kFrameScaleMessage:
      if (events_.setScale) events_.setScale(static_cast<int>(wParam));
      return true;
    case WM_CLOSE:
      OnClose();
      return true;
    case WM_DESTROY:
      form_ = nullptr;
      if (events_.destroy) events_.destroy();
      return true;
    case WM_NCDESTROY:
      SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
      window_ = statusBar_ = client_ = focus_ = nullptr;
      // The owner may destroy the frame in this call; do not use it afterwards.
      if (events_.destroyed) events_.destroyed();
      return false;
    default:
      return false;
  }
}

void MainFrame::OnSize() {
  RECT room = {};
  if (!statusBar_ || !GetClientRect(window_, &room)) return;
  SendMessageW(statusBar_, WM_SIZE, 0, 0);
  FitPanes();
  RECT bar = {};
  GetWindowRect(statusBar_, &bar);
  if (client_) {
    SetWindowPos(client_, nullptr, 0, 0, room.right, room.bottom - (bar.bottom - bar.top),
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

// Sets the right edges of the panes; -1 is the edge of the bar.
void MainFrame::FitPanes() {
  RECT bar = {};
  GetClientRect(statusBar_, &bar);
  const LONG statusWidth = MulDiv(FrameLayout::kStatusPaneWidth, scale_, USER_DEFAULT_SCREEN_DPI);
  std::array<int, 2> edges = {static_cast<int>(bar.right > statusWidth ? bar.right - statusWidth : 0), -1};
  SendMessageW(statusBar_, SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
}

void MainFrame::OnCommand(WPARAM wParam, LPARAM lParam) {
  bool isDone = false;
  if (form_) calls_.Run([&] { isDone = form_->OnCommand(LOWORD(wParam)); });
  if (!isDone && client_) SendMessageW(client_, WM_COMMAND, wParam, lParam);
}

// Restores the focus of the control that had it, as in a dialog.
void MainFrame::OnActivate(bool isActive) {
  if (isActive) {
    if (focus_ && !IsIconic(window_)) SetFocus(focus_);
    return;
  }
  const HWND focus = GetFocus();
  if (focus && IsChild(window_, focus)) focus_ = focus;
}

// The system scales the controls of the panel after this message.
void MainFrame::OnScale(int pixelsOfAnInch, const RECT& area) {
  if (pixelsOfAnInch <= 0) return;
  scale_ = pixelsOfAnInch;
  SetWindowPos(window_, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
  PostMessageW(window_, kFrameScaleMessage, static_cast<WPARAM>(pixelsOfAnInch), 0);
}

// While a form runs a dialog, box or menu, the frame remains; WM_CLOSE is posted again afterwards.
void MainFrame::OnClose() {
  if (calls_.AreRunning()) {
    calls_.CloseAfter(window_);
    if (events_.endBoxes) events_.endBoxes();
    return;
  }
  ShowOwnedPopups(window_, FALSE);
  ShowWindow(window_, SW_HIDE);
  SetWindowPos(window_, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  DestroyWindow(window_);
}

void MainFrame::SetTitle(const WString& title) { SetWindowTextW(window_, title.c_str()); }

void MainFrame::SetPane(int pane, const WString& text) {
  // A tab would change the alignment of the text after it.
  const auto shown = static_cast<WPARAM>(pane | SBT_NOTABPARSING);
  SendMessageW(statusBar_, SB_SETTEXTW, shown, reinterpret_cast<LPARAM>(text.c_str()));
}

int MainFrame::ShowMenu(HWND owner, int x, int y, const MenuLines& lines) {
  return Ui::ShowMenuAt(owner, {x, y}, MenuRowsOf(lines));
}

int MainFrame::ShowBox(const WString& title, const WString& text, UINT style) {
  const Ui::CommonControlsScope controls;
  return MessageBoxW(window_, text.c_str(), title.c_str(), style);
}

bool MainFrame::FilterMessage(MSG& message) {
  if (!window_ || (message.hwnd != window_ && !IsChild(window_, message.hwnd))) return false;
  if (keys_ && TranslateAcceleratorW(window_, keys_, &message)) return true;
  if (message.message != WM_KEYDOWN || message.wParam != kCloseKey || IsListOpen() || !form_) return false;
  form_->PressEscape();
  return true;
}

}  // namespace Velmora::SDK
