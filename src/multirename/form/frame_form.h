// The main frame of MultiRename: its title, its status bar, the list with its keys and its context menu, and
// the question before it closes. Used on the window's thread.
//
// The frame's window creates the status bar, the host's container (kind 1000), the host's list (kind 500) and
// the rule panel with the constants below, passes the list to Open, and reports the following: an
// accelerator's command, the list's context menu (event 1 of its callback), Escape, its own posted
// MRM_CONFIRM_CLOSE, and the host's events that the extension object receives on this thread.
#pragma once

#include "multirename/engine/rename_list.h"
#include "multirename/form/control_view.h"
#include "multirename/form/menu_line.h"
#include "multirename/form/rename_texts.h"
#include "multirename/form/row_info.h"
#include "multirename/rules/rename_context.h"

namespace Velmora::SDK {

// In pixels at 96 pixels per inch, except for the style and the icon's number.
struct FrameLayout {
  static constexpr int kWidth = 855;  // initial size
  static constexpr int kHeight = 410;
  static constexpr int kMinWidth = 850;
  static constexpr int kMinHeight = 400;
  static constexpr int kStatusPaneWidth = 650;  // of pane 1; pane 0 takes the rest
  static constexpr int kListWidth = 200;        // as requested from the host
  static constexpr int kColumnWidth = 200;
  static constexpr int kRowHeight = 16;
  // The distance from the right edge of the search dialog's client area to that of the rule panel.
  static constexpr int kPairsDialogGap = 4;
  static constexpr u32 kContainerStyle = 0x56000000;
  static constexpr u32 kIcon = 128;  // a resource of the host's program
};

struct FrameColumn {
  RenameColumn number;
  TextId heading;
};
inline constexpr FrameColumn kFrameColumns[] = {{kColumnOldName, kRenameTextOldName},
                                                {kColumnNewName, kRenameTextNewName}};

// The two panes of the status bar.
enum StatusPane : int { kCountsPane = 0, kStatusPane = 1 };

enum FrameCommand : int {
  kMoveRowUp = 40001,
  kMoveRowDown = 40002,
  kMoveRowTop = 40003,
  kMoveRowBottom = 40004,
};

// How the selected rows are moved: by accelerators, which are these virtual keys with Alt, and by the lines
// of the list's context menu. A move does not compute names (C-676).
struct FrameMove {
  FrameCommand command;
  u32 key;
  int menuNumber;
  TextId text;
  void (IHostList::*move)();
};
inline constexpr FrameMove kFrameMoves[] = {
    {kMoveRowUp, 0x26, 10, kRenameTextMoveUp, &IHostList::MoveRowUp},
    {kMoveRowDown, 0x28, 11, kRenameTextMoveDown, &IHostList::MoveRowDown},
    {kMoveRowTop, 0x24, 12, kRenameTextMoveTop, &IHostList::MoveRowTop},
    {kMoveRowBottom, 0x23, 13, kRenameTextMoveBottom, &IHostList::MoveRowBottom},
};
constexpr u32 kCloseKey = 0x1B;  // Escape, without Alt: PressEscape

// Codes of OnHostEvent.
enum RenameHostEvent : s32 {
  kEventStatusChanged = 1000,  // from the panel; the source is the panel's window
  kEventSelectionChanged = 52300,
};

class FrameView {
 public:
  virtual HWND Window() = 0;
  virtual void SetTitle(const WString& title) = 0;
  virtual void SetPane(int pane, const WString& text) = 0;
  // Opens a menu at a position on the screen and returns the number of the chosen line.
  virtual int ShowMenu(HWND owner, int x, int y, const MenuLines& lines) = 0;
  // Works as ControlView::ShowBox.
  virtual int ShowBox(const WString& title, const WString& text, UINT style) = 0;
  // Posts a message to the frame, which passes it to OnMessage.
  virtual void Post(RenameMessage message) = 0;
  // Posts WM_CLOSE to the frame.
  virtual void PostClose() = 0;

 protected:
  ~FrameView() = default;
};

class FrameForm {
 public:
  FrameForm(FrameView& view, RenameContext& context);
  FrameForm(const FrameForm&) = delete;
  FrameForm& operator=(const FrameForm&) = delete;

  // Call it when the controls exist. Sets the title to "MultiRename", which the panel replaces. `list` is the
  // host's list, which must stay valid until Close, or null if the host provides none.
  void Open(IHostList* list);

  // Call it before the list is returned to the host.
  void Close();

  // Sets the window of the rule panel, which is the source of the panel's events.
  void SetPanel(HWND panel) { panel_ = panel; }

  // Shows the rows of the context in the list, and their number in the status bar.
  void FillList() { FillList(context_.rows.Get()); }
  // Does the same with these rows.
  void FillList(SharedItems rows);

  // Handles a host event that the extension object received on the window's thread. Returns true if the list
  // exists, for any code.
  bool OnHostEvent(std::intptr_t source, s32 code);

  // Returns false for a command that is not in kFrameMoves, which the client window receives instead.
  bool OnCommand(int command);

  // Shows the list's context menu at a position on the screen, and performs the chosen move.
  void ShowContextMenu(HWND owner, int x, int y);

  // Handles Escape by posting MRM_CONFIRM_CLOSE.
  void PressEscape() { view_.Post(MRM_CONFIRM_CLOSE); }
  // Handles MRM_CONFIRM_CLOSE: asks the user, and closes the window on Yes.
  void OnMessage(UINT message);

  // Sets the title: "MultiRename" in the user's language, followed by " - " and `more` if that is not empty.
  void SetTitle(WStringView more = {});
  void PostClose() { view_.PostClose(); }

  RenameList& List() { return list_; }

 private:
  void ShowCounts();
  void ShowStatus();

  FrameView& view_;
  RenameContext& context_;
  RenameRowInfo rowInfo_;
  RenameList list_;
  HWND panel_ = nullptr;
  WString closeQuestion_;
};

}  // namespace Velmora::SDK
