// Which windows count as message boxes while several programs share the display: only those of this thread.
#include "support/box_answers.h"

#include <gmock/gmock.h>

#include <functional>
#include <utility>

#include "window/modal_driver.h"

namespace {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

// A window of the message boxes' class that was created before, like those of other programs.
class ForeignBox {
 public:
  ForeignBox()
      : window_(CreateWindowExW(0, L"#32770", L"foreign", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                nullptr, nullptr, nullptr)) {}
  ForeignBox(const ForeignBox&) = delete;
  ForeignBox& operator=(const ForeignBox&) = delete;
  ~ForeignBox() { DestroyWindow(window_); }
  HWND Get() const { return window_; }

 private:
  HWND window_;
};

// Runs an action in the message loop of the first box that becomes active, before the click that answers it.
// Must be created after the BoxAnswers, because of two hooks the later one is called first.
class InFirstBox {
 public:
  explicit InFirstBox(std::function<void(HWND)> action)
      : action_(std::move(action)),
        helper_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)),
        hook_(SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId())) {
    current_ = this;
    SetWindowLongPtrW(helper_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&OnMessage));
  }
  InFirstBox(const InFirstBox&) = delete;
  InFirstBox& operator=(const InFirstBox&) = delete;
  ~InFirstBox() {
    UnhookWindowsHookEx(hook_);
    DestroyWindow(helper_);
    current_ = nullptr;
  }
  bool HasRun() const { return hasRun_; }

 private:
  static constexpr UINT kRun = WM_APP + 1;

  static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE && !std::exchange(current_->isPosted_, true)) {
      PostMessageW(current_->helper_, kRun, wParam, 0);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }
  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != kRun) return DefWindowProcW(window, message, wParam, lParam);
    current_->hasRun_ = true;
    current_->action_(reinterpret_cast<HWND>(wParam));
    return 0;
  }

  static inline InFirstBox* current_ = nullptr;
  std::function<void(HWND)> action_;
  bool isPosted_ = false;
  bool hasRun_ = false;
  HWND helper_;
  HHOOK hook_;
};

TEST(BoxAnswersOfWindows, ForeignBoxThatBecomesActiveIsNone) {
  const OwnerWindow owner(200, 100);
  const ForeignBox foreign;
  SetActiveWindow(owner.Get());
  BoxAnswers boxes{IDOK};
  SetActiveWindow(foreign.Get());
  ASSERT_EQ(GetActiveWindow(), foreign.Get());
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_EQ(boxes.Unused(), 1);
}

TEST(BoxAnswersOfWindows, BoxThatIsActiveAgainAfterAnotherCountsOnce) {
  const OwnerWindow owner(200, 100);
  const ForeignBox foreign;
  BoxAnswers boxes{IDOK};
  const InFirstBox meanwhile([&](HWND box) {
    SetActiveWindow(foreign.Get());
    EXPECT_EQ(GetActiveWindow(), foreign.Get());
    SetActiveWindow(box);
    EXPECT_EQ(GetActiveWindow(), box);
  });
  EXPECT_EQ(MessageBoxW(owner.Get(), W("text"), W("title"), MB_OKCANCEL), IDOK);
  EXPECT_TRUE(meanwhile.HasRun());
  EXPECT_THAT(boxes.Boxes(), ElementsAre(Field(&ShownBox::text, W("text"))));
  EXPECT_THAT(boxes.UnexpectedBoxes(), IsEmpty());
}

TEST(BoxAnswersOfWindows, BoxOpenedOverABoxCountsToo) {
  BoxAnswers boxes{IDOK};
  const InFirstBox meanwhile(
      [](HWND box) { EXPECT_EQ(MessageBoxW(box, W("above"), W("title"), MB_OKCANCEL), IDCANCEL); });
  EXPECT_EQ(MessageBoxW(nullptr, W("below"), W("title"), MB_OKCANCEL), IDOK);
  EXPECT_TRUE(meanwhile.HasRun());
  EXPECT_THAT(boxes.Boxes(),
              ElementsAre(Field(&ShownBox::text, W("below")), Field(&ShownBox::text, W("above"))));
  EXPECT_THAT(boxes.UnexpectedBoxes(), ElementsAre(Field(&ShownBox::text, W("above"))));
}

}  // namespace
