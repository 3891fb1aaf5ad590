// The window of the rule panel: its controls, their tool tips, and the keys that move between them. Its rules
// are in panel_form.h. Windows build only.
#pragma once

#include "frame/host/host_controls.h"
#include "multirename/form/panel_form.h"
#include "multirename/window/control_view_windows.h"
#include "multirename/window/form_calls.h"
#include "multirename/window/message_loop.h"
#include "multirename/window/panel_stretch_windows.h"
#include "multirename/window/panel_tips_windows.h"
#include "ui/controls.h"

namespace Velmora::SDK {

class RulePanel final : public WindowView<PanelView>, public IMultiWindow, public MessageFilter {
 public:
  explicit RulePanel(FormCalls& calls) : calls_(calls) {}
  RulePanel(const RulePanel&) = delete;
  RulePanel& operator=(const RulePanel&) = delete;

  // Creates the panel in a window of the frame, not visible yet. Returns false if that fails.
  bool Create(HWND parent);
  // Sets the form that handles input; null for none.
  void SetForm(PanelForm* form) { form_ = form; }
  // Sets the hints of kPanelHints; `texts` returns the text of an id.
  void SetHints(const Ui::TextSource& texts);
  // Sets the window that follows the panel's last control in the tab order and precedes the first.
  void SetNeighbour(HWND window) { neighbour_ = window; }

  // Returns the height in pixels.
  int Height() const { return stretch_.Height(); }
  // Call it when the scale of the monitor, in pixels per inch, changes, before the panel is resized.
  void SetScale(int pixelsOfAnInch);

  // PanelView.
  // A focused control that is disabled gets the focus back when it is enabled, unless the user has moved the
  // focus.
  void SetEnabled(int control, bool isEnabled) override;
  void Post(RenameMessage message) override {
    if (Window()) PostMessageW(Window(), message, 0, 0);
  }
  int ShowMenu(int control, const MenuLines& lines) override;
  int RunDialog(int resource, DialogForm& form) override;
  void SetTip(int control, const WString& text) override { tips_.SetTip(control, text); }
  bool RunsDialog() const { return runsDialog_; }

  // IMultiWindow.
  HWND GetHandle() override { return Window(); }
  bool FilterMessage(tagMSG* message) override { return message && FilterMessage(*message); }
  void DestroyHandle() override;

  // Passes mouse messages to the tool tips, and handles the keys of a dialog.
  bool FilterMessage(MSG& message) override;

 private:
  // The open list of a combo box.
  struct OpenedList {
    int control = 0;
    int line = kNoLine;  // selected when the list opened
    bool isOtherMarked = false;
    bool isCancelled = false;
  };

  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool Handle(UINT message, WPARAM wParam, LPARAM lParam);
  void HandleCommand(int control, int notification);
  void OnListClosed(int control);
  void SetDefaultButton(int focused);
  void ShowDefaultButton();
  void Change(int control);
  bool LeaveByTab(const MSG& message);

  FormCalls& calls_;
  PanelForm* form_ = nullptr;
  HWND neighbour_ = nullptr;
  PanelStretch stretch_;
  PanelTips tips_;
  HWND lostFocus_ = nullptr;        // the control that lost the focus by being disabled; otherwise null
  HWND substituteFocus_ = nullptr;  // the control that has the focus instead
  OpenedList openedList_;
  bool runsDialog_ = false;
};

}  // namespace Velmora::SDK
