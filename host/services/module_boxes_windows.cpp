#include "host/services/module_boxes.h"

// Must be included after windows.h, which the header above includes.
#include <commctrl.h>

#include <array>
#include <set>
#include <vector>

namespace QxHost {
namespace {

constexpr UINT_PTR kSubclassId = 1;
constexpr int kLowestButton = IDOK;
constexpr int kHighestButton = IDNO;

WString TextOfWindow(HWND window) {
  WString text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, WCHAR());
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

WString ClassOf(HWND window) {
  std::array<WCHAR, 64> name{};
  return WString(name.data(),
                 static_cast<std::size_t>(GetClassNameW(window, name.data(), static_cast<int>(name.size()))));
}

std::uint32_t StyleOfIcon(HICON icon) {
  struct Row {
    const WCHAR* icon;
    std::uint32_t style;
  };
  static const Row kRows[] = {{IDI_HAND, MB_ICONERROR},
                              {IDI_QUESTION, MB_ICONQUESTION},
                              {IDI_EXCLAMATION, MB_ICONWARNING},
                              {IDI_ASTERISK, MB_ICONINFORMATION}};
  for (const Row& row : kRows) {
    if (icon && icon == LoadIconW(nullptr, row.icon)) return row.style;
  }
  return 0;
}

bool IsDisabled(HWND control) { return control && !IsWindowEnabled(control); }

// The visible parts of a box or dialog.
struct Seen {
  std::vector<int> buttons;  // their numbers, as MessageBoxW returns them
  WString text;              // the first static text
  std::uint32_t icon = 0;
  bool isBox = true;  // a message box, with only buttons and static texts
};

BOOL CALLBACK LookAtChild(HWND child, LPARAM parameter) {
  Seen& seen = *reinterpret_cast<Seen*>(parameter);
  const WString className = ClassOf(child);
  const int id = GetDlgCtrlID(child);
  if (className == L"Button") {
    const bool isButton = id >= kLowestButton && id <= kHighestButton;
    if (isButton && (GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE) != 0) seen.buttons.push_back(id);
    if (!isButton) seen.isBox = false;
  } else if (className == L"Static") {
    if ((GetWindowLongW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON) {
      seen.icon = StyleOfIcon(reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0)));
    } else if (seen.text.empty()) {
      seen.text = TextOfWindow(child);
    }
  } else {
    seen.isBox = false;
  }
  return TRUE;
}

// A box that is on the screen.
struct OpenBox {
  QuestionEvent event;
  int pressed = IDCANCEL;
};

class RealBoxes final : public ModuleBoxes {
 public:
  RealBoxes(Questions& questions, Reporter& reporter) : questions_(questions), reporter_(reporter) {
    current_ = this;
    hook_ = SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId());
  }
  ~RealBoxes() override {
    if (hook_) UnhookWindowsHookEx(hook_);
    current_ = nullptr;
  }
  RealBoxes(const RealBoxes&) = delete;
  RealBoxes& operator=(const RealBoxes&) = delete;

 private:
  static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE && current_) current_->OnActivate(reinterpret_cast<HWND>(wParam));
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }

  // Records the last button that was clicked, which is the one that ends the box.
  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                    DWORD_PTR data) {
    OpenBox* const box = reinterpret_cast<OpenBox*>(data);
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
      const int id = LOWORD(wParam);
      if (id >= kLowestButton && id <= kHighestButton) box->pressed = id;
    } else if (message == WM_NCDESTROY) {
      RemoveWindowSubclass(window, OnMessage, kSubclassId);
      const std::unique_ptr<OpenBox> closed(box);
      if (current_) current_->OnClosed(window, *closed);
    }
    return DefSubclassProc(window, message, wParam, lParam);
  }

  void OnActivate(HWND window) {
    // Wine reports the windows of other processes too; do not touch them.
    if (GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) return;
    if (ClassOf(window) != L"#32770" || open_.contains(window)) return;
    auto box = std::make_unique<OpenBox>();
    Seen seen;
    EnumChildWindows(window, LookAtChild, reinterpret_cast<LPARAM>(&seen));
    box->event.kind = seen.isBox ? QuestionEvent::kBox : QuestionEvent::kDialog;
    box->event.title = TextOfWindow(window);
    box->event.text = seen.text;
    if (seen.isBox) box->event.style = StyleOfButtons(seen.buttons) | seen.icon;
    box->pressed = Press(window, box->event, seen);
    if (SetWindowSubclass(window, OnMessage, kSubclassId, reinterpret_cast<DWORD_PTR>(box.get()))) {
      box.release();  // the subclass deletes it with the window
      open_.insert(window);
    }
  }

  // Posts the click of a button, so that the box is pressed when it waits for input. Returns the button; the
  // harmless one if the user will press a button.
  int Press(HWND window, const QuestionEvent& event, const Seen& seen) {
    std::vector<BoxButton> buttons;
    for (const BoxButton& button : ButtonsOfStyle(StyleOfButtons(seen.buttons))) buttons.push_back(button);
    BoxButton pressed = HarmlessButton(buttons);
    const std::optional<Answer> answer = questions_.TakeAnswer();
    if (answer) {
      if (const std::optional<BoxButton> button = ButtonOfAnswer(buttons, *answer)) {
        pressed = *button;
      } else if (answer->kind != Answer::kCancel) {
        questions_.Refuse("\"" + ToUtf8(event.title) + "\" cannot be answered with " + AnswerText(*answer) +
                          "; it has the buttons " + ButtonNames(buttons));
      }
      if (IsDisabled(GetDlgItem(window, pressed.number))) {
        questions_.Refuse("\"" + ToUtf8(event.title) + "\" cannot be answered with " + AnswerText(*answer) +
                          ", which is disabled");
        pressed = HarmlessButton(buttons);
      }
    }
    if (!answer && !questions_.HasTerminal() && buttons.size() > 1) {
      questions_.NoteUnanswerable(event.title, ButtonNames(buttons));
    }
    if (answer || !questions_.HasTerminal()) {
      PostMessageW(window, WM_COMMAND, MAKEWPARAM(pressed.number, BN_CLICKED),
                   reinterpret_cast<LPARAM>(GetDlgItem(window, pressed.number)));
    }
    return pressed.number;
  }

  void OnClosed(HWND window, OpenBox& box) {
    open_.erase(window);
    box.event.answer = ButtonName(box.pressed);
    reporter_.Question(box.event);
  }

  static thread_local RealBoxes* current_;
  Questions& questions_;
  Reporter& reporter_;
  HHOOK hook_ = nullptr;
  std::set<HWND> open_;  // boxes already handled, because a box can be activated several times
};

thread_local RealBoxes* RealBoxes::current_ = nullptr;

}  // namespace

const bool kDialogsHaveForms = false;

std::unique_ptr<ModuleBoxes> InstallModuleBoxes(Questions& questions, Reporter& reporter) {
  return std::make_unique<RealBoxes>(questions, reporter);
}

}  // namespace QxHost
