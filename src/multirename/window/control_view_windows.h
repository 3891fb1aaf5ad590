// The operations of ControlView on the controls of a real window, with one call of the system each. Windows
// build only.
#pragma once

#include <map>

#include "multirename/form/control_view.h"
#include "platform/text.h"

namespace Velmora::SDK {

// Returns the edit field of a combo box that has one, otherwise the control itself.
HWND EditFieldOf(HWND control);

// The operations of ControlView for the controls of one window, by their numbers. Lists with columns must be
// created with LVS_REPORT and LVS_OWNERDATA: this object stores the rows and provides them when the list
// requests them.
class WindowControls {
 public:
  WindowControls() = default;
  WindowControls(const WindowControls&) = delete;
  WindowControls& operator=(const WindowControls&) = delete;
  ~WindowControls() { Detach(); }

  // Call it when the window and its controls exist. The window may be destroyed before or after this object.
  void Attach(HWND window);
  void Detach();
  // Null before Attach and after the window was destroyed.
  HWND Window() const { return window_; }
  HWND Control(int control) const { return GetDlgItem(window_, control); }

  WString GetText(int control) const;
  void SetText(int control, const WString& text);
  void SelectEnd(int control);
  bool IsChecked(int control) const;
  void SetChecked(int control, bool isChecked);
  bool IsEnabled(int control) const;
  void SetEnabled(int control, bool isEnabled);
  void GiveFocus(int control);
  void SetLines(int control, const std::vector<WString>& lines);
  int SelectedLine(int control) const;
  void SelectLine(int control, int line);
  void SetColumns(int control, std::span<const TableColumn> columns);
  void SetRows(int control, const TableRows& rows);
  int MarkedRow(int control) const;
  void SelectRow(int control, int row);
  int ShowBox(const WString& title, const WString& text, UINT style);

 private:
  static LRESULT CALLBACK OnWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                          UINT_PTR id, DWORD_PTR controls);
  bool OnNotify(NMHDR& header, LRESULT& result);

  HWND window_ = nullptr;
  std::map<int, TableRows> rows_;  // by the list's number
};

// Implements ControlView, or a view derived from it, with the controls of a window.
template <typename View>
class WindowView : public View {
 public:
  HWND Window() override { return controls_.Window(); }
  WString GetText(int control) override { return controls_.GetText(control); }
  void SetText(int control, const WString& text) override { controls_.SetText(control, text); }
  void SelectEnd(int control) override { controls_.SelectEnd(control); }
  bool IsChecked(int control) override { return controls_.IsChecked(control); }
  void SetChecked(int control, bool isChecked) override { controls_.SetChecked(control, isChecked); }
  bool IsEnabled(int control) override { return controls_.IsEnabled(control); }
  void SetEnabled(int control, bool isEnabled) override { controls_.SetEnabled(control, isEnabled); }
  void GiveFocus(int control) override { controls_.GiveFocus(control); }
  void SetLines(int control, const std::vector<WString>& lines) override {
    controls_.SetLines(control, lines);
  }
  int SelectedLine(int control) override { return controls_.SelectedLine(control); }
  void SelectLine(int control, int line) override { controls_.SelectLine(control, line); }
  void SetColumns(int control, std::span<const TableColumn> columns) override {
    controls_.SetColumns(control, columns);
  }
  void SetRows(int control, const TableRows& rows) override { controls_.SetRows(control, rows); }
  int MarkedRow(int control) override { return controls_.MarkedRow(control); }
  void SelectRow(int control, int row) override { controls_.SelectRow(control, row); }
  int ShowBox(const WString& title, const WString& text, UINT style) override {
    return controls_.ShowBox(title, text, style);
  }

 protected:
  ~WindowView() = default;

  WindowControls controls_;
};

}  // namespace Velmora::SDK
