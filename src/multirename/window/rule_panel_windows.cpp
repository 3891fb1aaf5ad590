#include "multirename/window/rule_panel_windows.h"

// Needs windows.h first.
#include <commctrl.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "multirename/form/panel_controls.h"
#include "multirename/window/menu_rows.h"
#include "multirename/window/rename_dialog.h"
#include "multirename/window/rule_panel_ids.h"
#include "platform/screen_scale.h"
#include "ui/module_instance.h"
#include "ui/resource_ids.h"

namespace Velmora::SDK {

namespace {

// The numbers of the resource script and of the form must be equal.
struct SamePanelNumber {
  int resource;
  int form;
};
constexpr SamePanelNumber kSamePanelNumbers[] = {
    {QX_RULE_PANEL, kRulePanel},
    {QX_PANEL_NAME_LABEL, kNameTemplateLabel},
    {QX_PANEL_NAME, kNameTemplate},
    {QX_PANEL_NAME_TAGS, kNameTags},
    {QX_PANEL_EXTENSION_LABEL, kExtensionTemplateLabel},
    {QX_PANEL_EXTENSION, kExtensionTemplate},
    {QX_PANEL_EXTENSION_TAGS, kExtensionTags},
    {QX_PANEL_CASE_LABEL, kCaseBoxLabel},
    {QX_PANEL_CASE, kCaseBox},
    {QX_PANEL_COUNTER_GROUP, kCounterGroup},
    {QX_PANEL_START_AT_LABEL, kStartAtLabel},
    {QX_PANEL_START_AT, kStartAt},
    {QX_PANEL_STEP_BY_LABEL, kStepByLabel},
    {QX_PANEL_STEP_BY, kStepBy},
    {QX_PANEL_DIGITS_LABEL, kDigitsLabel},
    {QX_PANEL_DIGITS, kDigits},
    {QX_PANEL_SEARCH_GROUP, kSearchGroup},
    {QX_PANEL_PAIR_LIST, kPairList},
    {QX_PANEL_PAIR_FIND, kPairFind},
    {QX_PANEL_PAIR_REPLACE, kPairReplace},
    {QX_PANEL_PAIR_ADD, kPairAdd},
    {QX_PANEL_PAIR_DIALOG, kPairDialog},
    {QX_PANEL_PARTS_NAME, kPartsName},
    {QX_PANEL_PARTS, kPartsBox},
    {QX_PANEL_REGEX, kRegexBox},
    {QX_PANEL_REPLACE_ALL, kReplaceAllBox},
    {QX_PANEL_CASE_SENSITIVE, kCaseSensitiveBox},
    {QX_PANEL_PROFILE_GROUP, kProfileGroup},
    {QX_PANEL_PROFILE, kProfileBox},
    {QX_PANEL_DELETE_PROFILE, kDeleteProfile},
    {QX_PANEL_SAVE_UNDO, kSaveUndoBox},
    {QX_PANEL_LIVE_PREVIEW, kLivePreviewBox},
    {QX_PANEL_RESET, kResetButton},
    {QX_PANEL_UNDO, kUndoButton},
    {QX_PANEL_UNDO_MANAGER, kUndoManagerButton},
    {QX_PANEL_START, kStartButton},
    {QX_PANEL_CLOSE, kCloseButton},
};
static_assert(std::ranges::all_of(kSamePanelNumbers,
                                  [](const SamePanelNumber& row) { return row.resource == row.form; }));

bool IsIn(HWND parent, HWND window) { return window == parent || IsChild(parent, window); }

int NumberOf(HWND control) { return control ? GetDlgCtrlID(control) : 0; }

// Returns the button that Enter presses if no other button has the focus.
int DefaultButtonOf(HWND panel) { return LOWORD(SendMessageW(panel, DM_GETDEFID, 0, 0)); }

bool IsShownAsDefault(HWND control) {
  return (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0;
}

// While the list has the focus, access keys still move to the panel's controls, and Enter presses its default
// button. Alt with a blank is left to the system.
bool IsForPanel(const MSG& message) {
  if (message.message == WM_SYSCHAR) return message.wParam != VK_SPACE;
  return message.message == WM_KEYDOWN && message.wParam == VK_RETURN;
}

bool IsKeyDown(int key) { return GetKeyState(key) < 0; }

// Returns the control that has the focus itself or in its edit field.
HWND FocusedControlOf(HWND panel) {
  HWND focus = GetFocus();
  while (focus && GetParent(focus) != panel) focus = GetParent(focus);
  return focus;
}

}  // namespace

bool RulePanel::Create(HWND parent) {
  const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&classes);
  return CreateDialogParamW(Ui::ModuleInstance(), MAKEINTRESOURCEW(QX_RULE_PANEL), parent, Procedure,
                            reinterpret_cast<LPARAM>(this)) != nullptr;
}

INT_PTR CALLBACK RulePanel::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    auto& self = *reinterpret_cast<RulePanel*>(lParam);
    self.controls_.Attach(window);
    self.stretch_.Attach(window, PixelsOfAnInch(window));
    self.tips_.Create(window);
    SendDlgItemMessageW(window, kPairList, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_GRIDLINES, LVS_EX_GRIDLINES);
    return FALSE;  // the frame sets the focus
  }
  // Messages before WM_INITDIALOG arrive when the object is not known yet.
  auto* const self = reinterpret_cast<RulePanel*>(GetWindowLongPtrW(window, DWLP_USER));
  return self && self->Handle(message, wParam, lParam);
}

bool RulePanel::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      stretch_.Apply(LOWORD(lParam));
      return true;
    case WM_COMMAND:
      HandleCommand(LOWORD(wParam), HIWORD(wParam));
      return true;
    case WM_NOTIFY: {
      const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
      if (header.code != NM_DBLCLK || !form_) return false;
      calls_.Run([&] { form_->DoubleClick(static_cast<int>(header.idFrom)); });
      return true;
    }
    default: {
      if (message < WM_APP || !form_) return false;
      bool isDone = false;
      calls_.Run([&] { isDone = form_->OnMessage(message, wParam, lParam); });
      return isDone;
    }
  }
}

void RulePanel::HandleCommand(int control, int notification) {
  if (!form_) return;
  switch (notification) {
    case BN_CLICKED:
      calls_.Run([&] { form_->Press(control); });
      return;
    case EN_CHANGE:
      Change(control);
      SetDefaultButton(NumberOf(FocusedControlOf(Window())));
      return;
    case EN_SETFOCUS:
      SetDefaultButton(control);
      return;
    case EN_KILLFOCUS:
      SetDefaultButton(0);
      return;
    case CBN_EDITCHANGE:
      Change(control);
      return;
    case CBN_DROPDOWN:
      openedList_ = {control, controls_.SelectedLine(control)};
      return;
    case CBN_SELCHANGE:
      // A line that is marked in an open list is selected only when the list closes.
      if (SendMessageW(controls_.Control(control), CB_GETDROPPEDSTATE, 0, 0)) {
        openedList_.isOtherMarked = true;
      } else {
        Change(control);
      }
      return;
    case CBN_SELENDCANCEL:
      openedList_.isCancelled = true;
      return;
    case CBN_CLOSEUP:
      OnListClosed(control);
      return;
    default:
      return;
  }
}

// Escape, and moving to another control, restore the line that was selected before the list opened. The text
// of an edit field, however, has followed the marks and remains.
void RulePanel::OnListClosed(int control) {
  const OpenedList list = std::exchange(openedList_, {});
  if (list.control != control || !list.isOtherMarked) return;
  const HWND box = controls_.Control(control);
  if (!list.isCancelled || EditFieldOf(box) != box) return Change(control);
  // Not every system restores the line itself.
  controls_.SelectLine(control, list.line);
}

// Only the fields of the next pair have a different default button.
void RulePanel::SetDefaultButton(int focused) {
  int button = 0;
  if (form_) calls_.Run([&] { button = form_->DefaultButton(focused); });
  if (button != 0 && button != DefaultButtonOf(Window()))
    SendMessageW(Window(), DM_SETDEFID, static_cast<WPARAM>(button), 0);
}

void RulePanel::Change(int control) {
  calls_.Run([&] { form_->Change(control); });
}

void RulePanel::SetEnabled(int control, bool isEnabled) {
  const HWND window = controls_.Control(control);
  const HWND focused = FocusedControlOf(Window());
  WindowView::SetEnabled(control, isEnabled);
  if (!window) return;
  if (!isEnabled && focused == window) {
    // The focus may pass through several controls while all of them are being disabled.
    if (focused != substituteFocus_) lostFocus_ = window;
    substituteFocus_ = FocusedControlOf(Window());
  } else if (isEnabled && window == lostFocus_) {
    if (focused == substituteFocus_) controls_.GiveFocus(control);
    lostFocus_ = substituteFocus_ = nullptr;
  }
}

void RulePanel::SetHints(const Ui::TextSource& texts) {
  std::vector<Ui::ControlText> rows;
  for (const auto& [control, text] : kPanelHints) rows.push_back({control, text});
  Ui::SetCueBanners(Window(), rows, texts);
}

int RulePanel::ShowMenu(int control, const MenuLines& lines) {
  RECT button = {};
  const HWND window = controls_.Control(control);
  GetClientRect(window, &button);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&button), 2);
  return Ui::ShowMenuAt(Window(), {button.left, button.bottom}, MenuRowsOf(lines), &button);
}

int RulePanel::RunDialog(int resource, DialogForm& form) {
  runsDialog_ = true;
  INT_PTR result = kDialogCancel;
  try {
    result = RunRenameDialog(resource, form, GetAncestor(Window(), GA_ROOT));
  } catch (...) {
    runsDialog_ = false;
    throw;
  }
  runsDialog_ = false;
  return static_cast<int>(result);
}

void RulePanel::SetScale(int pixelsOfAnInch) { stretch_.SetScale(pixelsOfAnInch); }

void RulePanel::DestroyHandle() {
  if (const HWND window = Window()) DestroyWindow(window);
}

bool RulePanel::FilterMessage(MSG& message) {
  const HWND panel = Window();
  if (!panel) return false;
  const bool isOwn = IsIn(panel, message.hwnd);
  if (isOwn) tips_.Relay(message);
  if (LeaveByTab(message)) return true;
  if (isOwn) return IsDialogMessageW(panel, &message) != FALSE;
  if (message.hwnd != neighbour_) return false;
  if (message.message == WM_LBUTTONDOWN || message.message == WM_RBUTTONDOWN) ShowDefaultButton();
  if (!IsForPanel(message)) return false;
  MSG toPanel = message;
  toPanel.hwnd = panel;
  return IsDialogMessageW(panel, &toPanel) != FALSE;
}

// The tab key cycles through the list and the panel's controls.
bool RulePanel::LeaveByTab(const MSG& message) {
  if (message.message != WM_KEYDOWN || message.wParam != VK_TAB || !neighbour_ || IsKeyDown(VK_CONTROL))
    return false;
  const HWND panel = Window();
  const bool back = IsKeyDown(VK_SHIFT);
  const HWND first = GetNextDlgTabItem(panel, nullptr, FALSE);
  const HWND last = GetNextDlgTabItem(panel, first, TRUE);
  if (message.hwnd == neighbour_) {
    SendMessageW(panel, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(back ? last : first), TRUE);
    return true;
  }
  if (!IsIn(panel, message.hwnd) || FocusedControlOf(panel) != (back ? first : last)) return false;
  ShowDefaultButton();
  SetFocus(neighbour_);
  return true;
}

// Call it before the focus leaves the panel. A focused button is shown as the default button and would
// otherwise remain so.
void RulePanel::ShowDefaultButton() {
  const HWND panel = Window();
  const HWND focused = FocusedControlOf(panel);
  const HWND button = GetDlgItem(panel, DefaultButtonOf(panel));
  if (!focused || focused == button || !IsShownAsDefault(focused)) return;
  SendMessageW(focused, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
  SendMessageW(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
}

}  // namespace Velmora::SDK
