// Controls of a window as plain values, for the forms of MultiRename: a test reads what the form has set, and
// sets what a user would.
#pragma once

#include <gmock/gmock.h>

#include <deque>
#include <functional>
#include <map>

#include "multirename/form/dialog_form.h"

struct RecordedControl {
  WString text;
  bool isChecked = false;
  bool isEnabled = true;
  bool caretAtEnd = false;
  std::vector<WString> lines;
  int selectedLine = Velmora::SDK::kNoLine;
  std::vector<Velmora::SDK::TableColumn> columns;
  Velmora::SDK::TableRows rows;
  int markedRow = Velmora::SDK::kNoLine;
  int selectedRow = Velmora::SDK::kNoLine;
};

struct RecordedBox {
  WString title;
  WString text;
  UINT style;
  friend bool operator==(const RecordedBox&, const RecordedBox&) = default;
};
inline void PrintTo(const RecordedBox& box, std::ostream* out) {
  *out << ToUtf8(box.title) << ": " << ToUtf8(box.text) << " (" << box.style << ")";
}

// Boxes that are answered in order. A box without an answer left fails the test and returns 0.
struct RecordedBoxes {
  std::deque<int> answers;
  std::vector<RecordedBox> shown;

  int Show(const WString& title, const WString& text, UINT style) {
    shown.push_back({title, text, style});
    if (answers.empty()) {
      ADD_FAILURE() << "unexpected box: " << ToUtf8(text);
      return 0;
    }
    const int answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

template <typename View>
class RecordedControls : public View {
 public:
  std::map<int, RecordedControl> controls;
  RecordedBoxes boxes;
  int focus = 0;
  HWND window = nullptr;
  // Called for each change that the form makes itself, as windows report it.
  std::function<void(int control)> echo;
  std::function<void()> afterDisabling;

  RecordedControl& operator[](int control) { return controls[control]; }
  bool IsEnabled(int control) override { return controls[control].isEnabled; }

  HWND Window() override { return window; }
  WString GetText(int control) override { return controls[control].text; }
  void SetText(int control, const WString& text) override {
    controls[control].text = text;
    controls[control].caretAtEnd = false;
    Echo(control);
  }
  void SelectEnd(int control) override { controls[control].caretAtEnd = true; }
  bool IsChecked(int control) override { return controls[control].isChecked; }
  void SetChecked(int control, bool isChecked) override { controls[control].isChecked = isChecked; }
  void SetEnabled(int control, bool isEnabled) override {
    controls[control].isEnabled = isEnabled;
    if (!isEnabled && afterDisabling) afterDisabling();
  }
  void GiveFocus(int control) override { focus = control; }
  void SetLines(int control, const std::vector<WString>& lines) override {
    controls[control].lines = lines;
    controls[control].selectedLine = Velmora::SDK::kNoLine;
  }
  int SelectedLine(int control) override { return controls[control].selectedLine; }
  void SelectLine(int control, int line) override {
    controls[control].selectedLine = line;
    Echo(control);
  }
  void SetColumns(int control, std::span<const Velmora::SDK::TableColumn> columns) override {
    controls[control].columns.assign(columns.begin(), columns.end());
  }
  void SetRows(int control, const Velmora::SDK::TableRows& rows) override {
    RecordedControl& list = controls[control];
    list.rows = rows;
    list.markedRow = list.selectedRow = Velmora::SDK::kNoLine;
  }
  int MarkedRow(int control) override { return controls[control].markedRow; }
  void SelectRow(int control, int row) override { controls[control].selectedRow = row; }
  int ShowBox(const WString& title, const WString& text, UINT style) override {
    return boxes.Show(title, text, style);
  }

  // Returns the headings and widths of the columns.
  std::vector<std::pair<WString, int>> Columns(int control) {
    std::vector<std::pair<WString, int>> columns;
    for (const Velmora::SDK::TableColumn& column : controls[control].columns)
      columns.emplace_back(column.heading, column.width);
    return columns;
  }

 protected:
  ~RecordedControls() = default;

 private:
  void Echo(int control) {
    if (echo) echo(control);
  }
};

class DialogWindow final : public RecordedControls<Velmora::SDK::DialogView> {
 public:
  int result = 0;  // the result with which the form closed it

  void Close(int closeResult) override { result = closeResult; }
};
