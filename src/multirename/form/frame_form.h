// The main frame of MultiRename: its title, its status bar, the list with its keys and its context menu, and
// the way to close it. On the window's thread.
//
// The frame makes the status bar, the host's container (kind 1000) and list (kind 500) and the rule panel by
// the constants below, hands the list to Open, and reports: an accelerator's command, the list's context menu
// (event 1 of its callback), Escape, its own posted MRM_CONFIRM_CLOSE, and the host's events that reach the
// extension object on this thread.
#pragma once

#include "multirename/engine/rename_list.h"
#include "multirename/form/control_view.h"
#include "multirename/form/menu_line.h"
#include "multirename/form/rename_texts.h"
#include "multirename/form/row_info.h"
#include "multirename/rules/rename_context.h"

namespace Velmora::SDK {

// In pixels of a screen of 96 to an inch, but for the style and the icon's number.
struct FrameLayout {
  static constexpr int kWidth = 855;  // at first
  static constexpr int kHeight = 410;
  static constexpr int kLeastWidth = 850;
  static constexpr int kLeastHeight = 400;
  static constexpr int kStatusPaneWidth = 650;  // of pane 1; pane 0 takes the rest
  static constexpr int kListWidth = 200;        // as it is asked for
  static constexpr int kColumnWidth = 200;
  static constexpr int kRowHeight = 16;
  // Between the right edges of the search dialog's client area and of the rule panel.
  static constexpr int kPairsDialogGap = 4;
  static constexpr u32 kContainerStyle = 0x56000000;
  static constexpr u32 kIcon = 128;  // of the host
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

// How the selected rows are moved: the accelerators, which are these keys with Alt (numbers of virtual keys),
// and the lines of the list's context menu. A move computes no names (C-676).
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
  kEventStatusChanged = 1000,  // from the panel; the source is its window
  kEventSelectionChanged = 52300,
};

class FrameView {
 public:
  virtual HWND Window() = 0;
  virtual void SetTitle(const WString& title) = 0;
  virtual void SetPane(int pane, const WString& text) = 0;
  // Opens a menu at a position of the screen and returns the line's number.
  virtual int ShowMenu(HWND owner, int x, int y, const MenuLines& lines) = 0;
  // As ControlView's.
  virtual int ShowBox(const WString& title, const WString& text, UINT style) = 0;
  // Posts a message to the frame; it comes back by OnMessage.
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

  // The controls are there: sets the title "MultiRename", which the panel replaces. The list is the host's,
  // or null where it cannot be had; it lives until Close.
  void Open(IHostList* list);

  // The list is given back to the host after this.
  void Close();

  // The window of the rule panel, by which its events are known.
  void SetPanel(HWND panel) { panel_ = panel; }

  // Shows the rows of the context in the list, and their number.
  void FillList() { FillList(context_.rows.Get()); }
  // The same with these rows.
  void FillList(SharedItems rows);

  // What the extension object does with a host event on the window's thread: true if the list exists,
  // whatever the code.
  bool OnHostEvent(std::intptr_t source, s32 code);

  // False for another command, which the client window gets.
  bool OnCommand(int command);

  // The list's context menu, at a position of the screen.
  void ShowContextMenu(HWND owner, int x, int y);

  // Escape: posts MRM_CONFIRM_CLOSE.
  void PressEscape() { view_.Post(MRM_CONFIRM_CLOSE); }
  // MRM_CONFIRM_CLOSE: asks, and on Yes closes.
  void OnMessage(UINT message);

  // The title: the system's name alone, or with " - " and more.
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
