#include <algorithm>
#include <deque>

#include "support/box_answers.h"

// A box is answered by its own message loop: when it becomes active the press of the button is posted to it.
class BoxAnswers::Responder {
 public:
  explicit Responder(std::initializer_list<int> buttons) : answers(buttons) {
    current_ = this;
    hook_ = SetWindowsHookExW(WH_CBT, &Responder::OnHook, nullptr, GetCurrentThreadId());
  }
  ~Responder() {
    UnhookWindowsHookEx(hook_);
    current_ = nullptr;
  }
  Responder(const Responder&) = delete;
  Responder& operator=(const Responder&) = delete;

  std::deque<int> answers;
  std::vector<ShownBox> boxes;
  std::vector<ShellStart> starts;
  int unexpected = 0;

 private:
  static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE && current_) current_->OnActivate(reinterpret_cast<HWND>(wParam));
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }

  void OnActivate(HWND window) {
    WCHAR className[16] = {};
    GetClassNameW(window, className, 16);
    if (WString(className) != L"#32770" || window == answered_) return;
    answered_ = window;
    boxes.push_back(Read(window));
    int button = IDCANCEL;
    if (answers.empty()) {
      ++unexpected;
    } else {
      button = answers.front();
      answers.pop_front();
    }
    PostMessageW(window, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(window, button)));
  }

  static WString TextOf(HWND window) {
    WString text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
  }

  static ShownBox Read(HWND window) {
    ShownBox box = {TextOf(window), {}, {}, false, 0};
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
  HHOOK hook_;
  HWND answered_ = nullptr;
};

BoxAnswers::BoxAnswers(std::initializer_list<int> buttons)
    : responder_(std::make_unique<Responder>(buttons)) {}
BoxAnswers::~BoxAnswers() = default;

const std::vector<ShownBox>& BoxAnswers::Boxes() const { return responder_->boxes; }
const std::vector<ShellStart>& BoxAnswers::Starts() const { return responder_->starts; }
int BoxAnswers::Unexpected() const { return responder_->unexpected; }
int BoxAnswers::Unused() const { return static_cast<int>(responder_->answers.size()); }
