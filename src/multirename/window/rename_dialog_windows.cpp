#include <algorithm>

#include "multirename/form/find_replace_dialog_form.h"
#include "multirename/form/frame_form.h"
#include "multirename/form/panel_controls.h"
#include "multirename/form/tag_dialog_form.h"
#include "multirename/form/undo_manager_form.h"
#include "multirename/window/add_tag_dlg_ids.h"
#include "multirename/window/control_view_windows.h"
#include "multirename/window/drop_edit.h"
#include "multirename/window/rename_dialog.h"
#include "multirename/window/search_pairs_dlg_ids.h"
#include "multirename/window/undo_manager_dlg_ids.h"
#include "platform/screen_scale.h"
#include "ui/dialog.h"
#include "ui/placement.h"
#include "ui/resource_ids.h"

// Needs windows.h first.
#include <commctrl.h>

namespace Velmora::SDK {

namespace {

// The numbers of the resource script and of the forms must be equal.
struct SameNumber {
  int resource;
  int form;
};
constexpr SameNumber kSameNumbers[] = {
    {QX_DIALOG_ADD_TAG, kAddTagDialog},
    {QX_DIALOG_UNDO_MANAGER, kUndoManagerDialog},
    {QX_DIALOG_SEARCH_PAIRS, kFindReplaceDialog},
    {QX_TAG_PROPERTY_LABEL, kTagPropertyLabel},
    {QX_TAG_CHOSEN_LABEL, kTagChosenLabel},
    {QX_TAG_START_LABEL, kTagStartLabel},
    {QX_TAG_LENGTH_LABEL, kTagLengthLabel},
    {QX_TAG_PROPERTIES, kTagProperties},
    {QX_TAG_CHOSEN, kTagChosen},
    {QX_TAG_COMPLETE, kTagComplete},
    {QX_TAG_SUB_STRING, kTagSubString},
    {QX_TAG_START, kTagStart},
    {QX_TAG_LENGTH, kTagLength},
    {QX_TAG_TEXT, kTagText},
    {QX_UNDO_SESSIONS, kUndoSessions},
    {QX_UNDO_FILES, kUndoFiles},
    {QX_UNDO_SESSIONS_LABEL, kUndoSessionsLabel},
    {QX_UNDO_DATE_LABEL, kUndoDateLabel},
    {QX_UNDO_DATE, kUndoDate},
    {QX_UNDO_COUNT, kUndoCount},
    {QX_UNDO_FILES_LABEL, kUndoFilesLabel},
    {QX_UNDO_DELETE, kUndoDelete},
    {QX_UNDO_DELETE_ALL, kUndoDeleteAll},
    {QX_PAIRS_LABEL, kPairsLabel},
    {QX_PAIRS_TEXT, kPairsText},
    {QX_PAIRS_HELP, kPairsHelp},
};
static_assert(std::ranges::all_of(kSameNumbers,
                                  [](const SameNumber& row) { return row.resource == row.form; }));

// The notifications of a change by edit controls and list boxes. Their numbers do not overlap.
constexpr int kDialogChanges[] = {EN_CHANGE, LBN_SELCHANGE};

// The lists with columns.
constexpr int kDialogTables[] = {kUndoSessions, kUndoFiles};

// Posts WM_CLOSE to a window and to all windows that it owns, the newest first: a box before its dialog.
void CloseWithPopups(HWND window) {
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND popup, LPARAM owner) -> BOOL {
        if (GetWindow(popup, GW_OWNER) == reinterpret_cast<HWND>(owner)) CloseWithPopups(popup);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(window));
  PostMessageW(window, WM_CLOSE, 0, 0);
}

// While this object exists, WM_CLOSE to the frame also closes a window that the frame owns.
class ClosedWithFrame {
 public:
  ClosedWithFrame() = default;
  ClosedWithFrame(const ClosedWithFrame&) = delete;
  ClosedWithFrame& operator=(const ClosedWithFrame&) = delete;
  ~ClosedWithFrame() {
    if (frame_) RemoveWindowSubclass(frame_, OnFrameMessage, Id());
  }
  void Attach(HWND frame, HWND window) {
    window_ = window;
    if (SetWindowSubclass(frame, OnFrameMessage, Id(), 0)) frame_ = frame;
  }

 private:
  UINT_PTR Id() const { return reinterpret_cast<UINT_PTR>(this); }
  static LRESULT CALLBACK OnFrameMessage(HWND frame, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR) {
    auto& self = *reinterpret_cast<ClosedWithFrame*>(id);
    if (message == WM_CLOSE) CloseWithPopups(self.window_);
    if (message == WM_NCDESTROY) self.frame_ = nullptr;
    return DefSubclassProc(frame, message, wParam, lParam);
  }

  HWND frame_ = nullptr;
  HWND window_ = nullptr;
};

// Returns the rule panel's button that opens the dialog of search pairs; null if the panel no longer exists.
HWND FindPairButton(HWND frame) {
  HWND button = nullptr;
  EnumChildWindows(
      frame,
      [](HWND child, LPARAM found) -> BOOL {
        if (GetDlgCtrlID(child) != kPairDialog) return TRUE;
        *reinterpret_cast<HWND*>(found) = child;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&button));
  return button;
}

// Scales the columns, with the widths that the user has set, to the new scale of the screen.
void ScaleColumns(HWND list, int from, int to) {
  const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
  const auto count = header ? static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0)) : 0;
  for (int column = 0; column < count; ++column) {
    const auto number = static_cast<WPARAM>(column);
    const auto width = static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, number, 0));
    SendMessageW(list, LVM_SETCOLUMNWIDTH, number, MulDiv(width, to, from));
  }
}

class DialogWindowView final : public WindowView<DialogView> {
 public:
  void Attach(HWND dialog) { controls_.Attach(dialog); }
  // Returns the control that the form has given the focus; 0 if none.
  int Focus() const { return focus_; }

  void Close(int result) override { EndDialog(Window(), result); }
  void GiveFocus(int control) override {
    focus_ = control;
    WindowView::GiveFocus(control);
  }

 private:
  int focus_ = 0;
};

class RenameDialog final : public Ui::Dialog {
 public:
  RenameDialog(int resource, DialogForm& form) : Dialog(resource), resource_(resource), form_(form) {}

 private:
  void OnInit() override {
    view_.Attach(Window());
    scale_ = PixelsOfAnInch(Window());
    if (const HWND frame = GetWindow(Window(), GW_OWNER)) closedWithFrame_.Attach(frame, Window());
    if (const HWND field = resource_ == kFindReplaceDialog ? Control(kPairsText) : nullptr) {
      CDropEdit::Attach(field);
      // Without this, the next key would replace all pairs.
      Ui::KeepSelection(field);
    }
    form_.Open(view_);
  }
  int FirstField() const override { return view_.Focus(); }
  void OnPlace() override {
    if (resource_ != kFindReplaceDialog || !PlaceAtPairButton()) Dialog::OnPlace();
  }

  void OnScale(int pixelsOfAnInch) override {
    for (const int list : kDialogTables) ScaleColumns(Control(list), scale_, pixelsOfAnInch);
    scale_ = pixelsOfAnInch;
  }

  void OnButton(int control) override { form_.Press(control); }
  void OnOk() override { form_.Press(kDialogOk); }
  void OnCancel() override { form_.Press(kDialogCancel); }
  bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  bool PlaceAtPairButton();

  int resource_;
  DialogForm& form_;
  DialogWindowView view_;
  ClosedWithFrame closedWithFrame_;
  int scale_ = USER_DEFAULT_SCREEN_DPI;
};

bool RenameDialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (std::ranges::find(kDialogChanges, HIWORD(wParam)) == std::end(kDialogChanges)) return false;
      form_.Change(LOWORD(wParam));
      return true;
    case WM_NOTIFY: {
      const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
      if (header.code != NM_CLICK) return false;
      form_.ClickRow(static_cast<int>(header.idFrom), reinterpret_cast<const NMITEMACTIVATE&>(header).iItem);
      return true;
    }
    case MRM_EDIT_FKEY:
    case MRM_EDIT_SHIFT_FKEY:
      form_.PressFunctionKey(GetDlgCtrlID(reinterpret_cast<HWND>(lParam)), static_cast<int>(wParam),
                             message == MRM_EDIT_SHIFT_FKEY);
      return true;
    case MRM_EDIT_FILE_DROPPED:
      form_.DropFile(GetDlgCtrlID(reinterpret_cast<HWND>(wParam)), reinterpret_cast<const WCHAR*>(lParam));
      return true;
    default:
      return false;
  }
}

// Returns false if the button does not exist.
bool RenameDialog::PlaceAtPairButton() {
  const HWND button = FindPairButton(GetWindow(Window(), GW_OWNER));
  RECT place = {};
  RECT panel = {};
  RECT own = {};
  RECT client = {};
  if (!button || !GetWindowRect(button, &place) || !GetWindowRect(GetParent(button), &panel) ||
      !GetWindowRect(Window(), &own) || !GetClientRect(Window(), &client)) {
    return false;
  }
  POINT end = {client.right, client.bottom};
  ClientToScreen(Window(), &end);
  const LONG gap = MulDiv(FrameLayout::kPairsDialogGap, PixelsOfAnInch(Window()), USER_DEFAULT_SCREEN_DPI);
  SetWindowPos(Window(), nullptr, own.left + (panel.right - gap) - end.x, place.top, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  Ui::MoveInside(Window());
  return true;
}

}  // namespace

INT_PTR RunRenameDialog(int resource, DialogForm& form, HWND owner) {
  RenameDialog dialog(resource, form);
  return dialog.ShowModal(owner);
}

}  // namespace Velmora::SDK
