// The rule panel as a window: its controls, their tips, and the keys that lead through them. It decides
// nothing; panel_form.h does. Windows build only.
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

  // Makes the panel in a window of the frame, not yet visible. False if the system makes none.
  bool Create(HWND parent);
  // Gets what the user does from now on; null: nobody does.
  void SetForm(PanelForm* form) { form_ = form; }
  // The texts of kPanelHints, by their ids.
  void SetHints(const Ui::TextSource& texts);
  // The window that the tab key leads to after the panel's last control, and from which it comes to the
  // first.
  void SetNeighbour(HWND window) { neighbour_ = window; }

  // In pixels.
  int Height() const { return stretch_.Height(); }
  // The monitor has another scale, in pixels of an inch. The panel gets its size after this.
  void SetScale(int pixelsOfAnInch);

  // PanelView.
  // A control that is disabled while it has the focus gets it back with its enabling, if the user has not
  // moved on.
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

  // Shows mouse messages to the tips, and handles the keys of a dialog.
  bool FilterMessage(MSG& message) override;

 private:
  // The list of a box, from its opening to its closing.
  struct OpenedList {
    int control = 0;
    int line = kNoLine;  // selected as it opened
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
  HWND lostFocus_ = nullptr;  // disabled while it had the focus; null without one
  HWND lentFocus_ = nullptr;  // has the focus instead
  OpenedList openedList_;
  bool runsDialog_ = false;
};

}  // namespace Velmora::SDK
