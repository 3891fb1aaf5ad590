#include <algorithm>
#include <set>

#include "support/box_answers.h"

// A box is answered by its own message loop: when it first becomes active, a click on the button is posted to
// it.
//
// HCBT_ACTIVATE also reports boxes that become active again, and windows of other threads and processes that
// take the foreground. So a box is registered at HCBT_CREATEWND, which is reported on its own thread only,
// and answered at its first activation.
class BoxAnswers::Responder {
 public:
  explicit Responder(BoxAnswers& boxes)
      : boxes_(boxes), hook_(SetWindowsHookExW(WH_CBT, &Responder::OnHook, nullptr, GetCurrentThreadId())) {
    current_ = this;
  }
  Responder(const Responder&) = delete;
  Responder& operator=(const Responder&) = delete;
  ~Responder() {
    UnhookWindowsHookEx(hook_);
    current_ = nullptr;
  }

 private:
  static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    if (current_) {
      if (code == HCBT_CREATEWND && IsBox(window)) current_->notYetActive_.insert(window);
      if (code == HCBT_DESTROYWND) current_->notYetActive_.erase(window);
      if (code == HCBT_ACTIVATE && current_->notYetActive_.erase(window)) current_->OnOpened(window);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }

  static bool IsBox(HWND window) {
    WCHAR className[16] = {};
    return GetClassNameW(window, className, 16) && WStringView(className) == L"#32770";
  }

  void OnOpened(HWND window) {
    const int button = boxes_.AnswerBox(Read(window));
    PostMessageW(window, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(window, button)));
  }

  static WString TextOf(HWND window) {
    WString text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
  }

  static ShownBox Read(HWND window) {
    ShownBox box = {TextOf(window), {}, {}, false, 0, GetWindow(window, GW_OWNER)};
    EnumChildWindows(
        window,
        [](HWND child, LPARAM data) -> BOOL {
          auto& read = *reinterpret_cast<ShownBox*>(data);
          WCHAR className[16] = {};
          GetClassNameW(child, className, 16);
          const bool visible = (GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) != 0;
          if (lstrcmpiW(className, L"Button") == 0) {
            if (visible) read.buttons.push_back(GetDlgCtrlID(child));
          } else if ((GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON) {
            read.hasIcon = visible && SendMessageW(child, STM_GETICON, 0, 0) != 0;
          } else {
            read.text = TextOf(child);
          }
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&box));
    std::sort(box.buttons.begin(), box.buttons.end());
    return box;
  }

  static inline thread_local Responder* current_ = nullptr;
  BoxAnswers& boxes_;
  std::set<HWND> notYetActive_;
  HHOOK hook_;
};

BoxAnswers::BoxAnswers(std::initializer_list<int> buttons)
    : answers_(buttons), responder_(std::make_unique<Responder>(*this)) {}
BoxAnswers::~BoxAnswers() = default;
