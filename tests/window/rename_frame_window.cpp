#include "window/rename_frame_window.h"

// windows.h must be included first.
#include <commctrl.h>

#include <optional>
#include <stdexcept>

#include "window/held_key.h"
#include "window/modal_driver.h"

using namespace Velmora::SDK;

namespace {

// Ends the loop when nothing is left to do. Because some messages cause no idle handling, each is followed by
// one that does.
class EndOfWork final : public IdleHandler, public MessageFilter {
 public:
  explicit EndOfWork(MultiRenameEngine& engine) : engine_(engine) {}
  bool FilterMessage(MSG& message) override {
    if (message.hwnd) PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
    return false;
  }
  bool OnIdle(int) override {
    engine_.worker.WaitUntilIdle();
    MSG message = {};
    if (!PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) PostQuitMessage(0);
    return false;
  }

 private:
  MultiRenameEngine& engine_;
};

LRESULT AskList(HWND list, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return SendMessageW(list, message, wParam, lParam);
}

}  // namespace

HWND FrameHost::CreateControl(u32 kind, HWND parent, u32 style) {
  if (!hasContainer) return nullptr;
  container = controls_.Create(kind, parent, style);
  return container;
}

void* FrameHost::GetService(u32 number, std::uintptr_t handle) {
  if (number != kServiceContainerControl && number != kServiceListControl)
    return PanelHost::GetService(number, handle);
  if (number == kServiceListControl && !hasList) return nullptr;
  const auto control = reinterpret_cast<HWND>(handle);
  void* const service = controls_.Find(number, control);
  if (number == kServiceListControl) {
    list = control;
    listService_ = service;
  }
  if (service) ++controlsOut;
  return service;
}

void FrameHost::ReleaseService(void* service, u32 number) {
  if (!controls_.Release(service)) return PanelHost::ReleaseService(service, number);
  --controlsOut;
  returned.push_back(service == listService_ ? "list" : "container");
  FailAtClose();
}

IHostConfig* FrameHost::GetConfig() {
  FailAtClose();
  return PanelHost::GetConfig();
}

void FrameHost::FailAtClose() const {
  if (throwsAtClose) throw std::runtime_error("the host fails");
}

void RenameFrameWindow::OnWindowClosed() {
  ++closed_;
  host_.FailAtClose();
}

RenameFrameWindow::RenameFrameWindow() {
  host_.context = &context_;
  SpeakRenameEnglish(host_);
}

RenameFrameWindow::~RenameFrameWindow() {
  engine_->worker.Quit();
  engine_->worker.WaitForEnd(INFINITE);
  window_.reset();
  host_.Join();
  EXPECT_EQ(host_.controlsOut, 0);
}

void RenameFrameWindow::Select(const std::vector<WString>& names) {
  host_.selection.clear();
  host_.SelectFiles(names);
}

void RenameFrameWindow::OpenOnly(const std::vector<WString>& names) {
  Select(names);
  context_.rows.Set(ReadSelection(host_));
  engine_->propertyManager = &host_.properties;
  ASSERT_TRUE(engine_->worker.Start());
  window_ = OpenRenameWindow(*this, loop_);
  ASSERT_TRUE(window_);
  host_.window = window_.get();
  window_->Show();
  window_->Form().FillList();
}

void RenameFrameWindow::Open(const std::vector<WString>& names) {
  OpenOnly(names);
  Settle();
}

void RenameFrameWindow::Settle() {
  EndOfWork end(*engine_);
  loop_.AddIdleHandler(end);
  loop_.AddFilter(end);
  loop_.Run();
  loop_.RemoveFilter(end);
  loop_.RemoveIdleHandler(end);
}

HWND RenameFrameWindow::StatusBar() const {
  return FindWindowExW(Frame(), nullptr, STATUSCLASSNAMEW, nullptr);
}

void RenameFrameWindow::Press(int button) {
  const HWND window = GetDlgItem(Panel(), button);
  ASSERT_NE(window, nullptr) << button;
  ASSERT_TRUE(IsWindowEnabled(window)) << button;
  RECT area = {};
  GetClientRect(window, &area);
  const LPARAM middle = MAKELPARAM(area.right / 2, area.bottom / 2);
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  PostMessageW(window, WM_LBUTTONUP, 0, middle);
  Settle();
}

void RenameFrameWindow::Type(int control, const WString& text) {
  const HWND window = GetDlgItem(Panel(), control);
  SendMessageW(Panel(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window), TRUE);
  const HWND field = GetFocus();
  ASSERT_TRUE(field == window || GetParent(field) == window) << control;
  SendMessageW(field, EM_SETSEL, 0, -1);
  SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(W("")));
  for (const WCHAR character : text) PostMessageW(field, WM_CHAR, character, 1);
  Settle();
}

void RenameFrameWindow::Choose(int control, int line) {
  SetFocus(GetDlgItem(Panel(), control));
  for (int step = 0; step < 20 && SelectedRow(Panel(), control) != line; ++step)
    PressFrameKey(SelectedRow(Panel(), control) < line ? VK_DOWN : VK_UP);
  ASSERT_EQ(SelectedRow(Panel(), control), line);
}

void RenameFrameWindow::PressFrameKey(WORD key, bool withAlt) {
  const HWND focus = GetFocus();
  ASSERT_NE(focus, nullptr);
  const LPARAM alt = withAlt ? 1 << 29 : 0;
  std::optional<HeldKey> altKey;
  if (withAlt) altKey.emplace(VK_MENU);
  PostMessageW(focus, withAlt ? WM_SYSKEYDOWN : WM_KEYDOWN, key, 1 | alt);
  PostMessageW(focus, withAlt ? WM_SYSKEYUP : WM_KEYUP, key, static_cast<LPARAM>(0xC0000001) | alt);
  Settle();
}

void RenameFrameWindow::PressFrameAccessKey(WCHAR character) {
  PostMessageW(GetFocus(), WM_SYSCHAR, character, 1 | 1 << 29);
  Settle();
}

void RenameFrameWindow::SelectRows(const std::vector<int>& rows) {
  LVITEMW item = {};
  item.stateMask = LVIS_SELECTED;
  AskList(List(), LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
  item.state = LVIS_SELECTED;
  for (const int row : rows)
    AskList(List(), LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  Settle();
}

void RenameFrameWindow::CloseFrame() {
  PostMessageW(Frame(), WM_CLOSE, 0, 0);
  Settle();
}

std::vector<WString> RenameFrameWindow::Cells(int column) const {
  std::vector<WString> cells(static_cast<std::size_t>(AskList(List(), LVM_GETITEMCOUNT)));
  for (std::size_t row = 0; row < cells.size(); ++row) {
    WCHAR text[1024] = {};
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 1024;
    AskList(List(), LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
    cells[row] = text;
  }
  return cells;
}

std::vector<int> RenameFrameWindow::SelectedRowsOfList() const {
  std::vector<int> rows;
  const auto count = static_cast<int>(AskList(List(), LVM_GETITEMCOUNT));
  for (int row = 0; row < count; ++row) {
    if (AskList(List(), LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0) rows.push_back(row);
  }
  return rows;
}

WString RenameFrameWindow::Pane(int pane) const {
  WCHAR text[1024] = {};
  SendMessageW(StatusBar(), SB_GETTEXTW, static_cast<WPARAM>(pane), reinterpret_cast<LPARAM>(text));
  return text;
}

WString RenameFrameWindow::TitleOfFrame() const {
  WCHAR text[1024] = {};
  GetWindowTextW(Frame(), text, 1024);
  return text;
}
