// The controls of a window that is not drawn: their contents, and the views through which MultiRename's forms
// use them. Native build only; used on the window's thread.
#pragma once

#include <map>

#include "multirename/form/dialog_form.h"
#include "multirename/form/panel_form.h"

namespace Velmora::SDK {

struct UndrawnControl {
  WString text;
  bool isChecked = false;
  bool isEnabled = true;
  std::vector<WString> lines;
  int selectedLine = kNoLine;
  std::vector<TableColumn> columns;
  TableRows rows;
  int markedRow = kNoLine;
};

template <typename View>
class UndrawnControls : public View {
 public:
  HWND window = nullptr;
  std::map<int, UndrawnControl> controls;

  UndrawnControl& operator[](int control) { return controls[control]; }

  HWND Window() override { return window; }
  WString GetText(int control) override { return controls[control].text; }
  void SetText(int control, const WString& text) override { controls[control].text = text; }
  void SelectEnd(int) override {}
  bool IsChecked(int control) override { return controls[control].isChecked; }
  void SetChecked(int control, bool isChecked) override { controls[control].isChecked = isChecked; }
  bool IsEnabled(int control) override { return controls[control].isEnabled; }
  void SetEnabled(int control, bool isEnabled) override { controls[control].isEnabled = isEnabled; }
  void GiveFocus(int) override {}
  void SetLines(int control, const std::vector<WString>& lines) override {
    controls[control].lines = lines;
    controls[control].selectedLine = kNoLine;
  }
  int SelectedLine(int control) override { return controls[control].selectedLine; }
  void SelectLine(int control, int line) override { controls[control].selectedLine = line; }
  void SetColumns(int control, std::span<const TableColumn> columns) override {
    controls[control].columns.assign(columns.begin(), columns.end());
  }
  void SetRows(int control, const TableRows& rows) override {
    controls[control].rows = rows;
    controls[control].markedRow = kNoLine;
  }
  int MarkedRow(int control) override { return controls[control].markedRow; }
  void SelectRow(int control, int row) override { controls[control].markedRow = row; }
  int ShowBox(const WString& title, const WString& text, UINT style) override {
    return MessageBoxW(window, text.c_str(), title.c_str(), style);
  }

 protected:
  ~UndrawnControls() = default;
};

class UndrawnDialog final : public UndrawnControls<DialogView> {
 public:
  int result = 0;  // the result with which its form has closed it; 0 while it is open

  void Close(int closeResult) override { result = closeResult; }
};

class UndrawnPanel final : public UndrawnControls<PanelView> {
 public:
  std::map<int, WString> tips;

  void Post(RenameMessage message) override { PostMessageW(window, message, 0, 0); }
  int ShowMenu(int control, const MenuLines& lines) override;
  int RunDialog(int resource, DialogForm& form) override;
  void SetTip(int control, const WString& text) override { tips[control] = text; }
};

}  // namespace Velmora::SDK
