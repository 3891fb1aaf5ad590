// What MultiRename's dialogs have in common: how they close, alone and with their frame.
#include <gmock/gmock.h>

#include <stdexcept>

#include "multirename/form/undo_manager_form.h"
#include "window/rename_dialog_window.h"

// windows.h must be included first.
#include <commctrl.h>

namespace {

using testing::ElementsAre;
using Velmora::SDK::DialogForm;
using Velmora::SDK::DialogView;

constexpr int kTagDialog = 105;
constexpr int kUndoDialog = 106;
constexpr int kNumber = 1002;  // an edit control of the first dialog

// Throws in the operations that a test selects.
class FailingForm final : public DialogForm {
 public:
  const char* inOpen = nullptr;
  const char* inPress = nullptr;
  const char* inChange = nullptr;
  bool isOpened = false;

  void Open(DialogView& view) override {
    isOpened = true;
    view_ = &view;
    Fail(inOpen);
  }
  void Press(int) override { Fail(inPress); }
  void Change(int) override { Fail(inChange); }

 private:
  static void Fail(const char* reason) {
    if (reason) throw std::runtime_error(reason);
  }
  DialogView* view_ = nullptr;
};

// Shows a message box at each press.
class AskingForm final : public DialogForm {
 public:
  std::vector<int> answers;

  void Open(DialogView& view) override { view_ = &view; }
  void Press(int control) override {
    if (control == Velmora::SDK::kDialogCancel) return view_->Close(control);
    answers.push_back(view_->ShowBox(W("title"), W("text"), MB_YESNOCANCEL));
  }

 private:
  DialogView* view_ = nullptr;
};

// Refuses to close a window and counts the attempts, like a frame with an open dialog.
class CloseCounter {
 public:
  explicit CloseCounter(HWND window) : window_(window) {
    SetWindowSubclass(window, OnMessage, kId, reinterpret_cast<DWORD_PTR>(this));
  }
  CloseCounter(const CloseCounter&) = delete;
  CloseCounter& operator=(const CloseCounter&) = delete;
  ~CloseCounter() { RemoveWindowSubclass(window_, OnMessage, kId); }
  int Count() const { return count_; }

 private:
  static constexpr UINT_PTR kId = 77;
  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                    DWORD_PTR self) {
    if (message != WM_CLOSE) return DefSubclassProc(window, message, wParam, lParam);
    ++reinterpret_cast<CloseCounter*>(self)->count_;
    return 0;
  }

  HWND window_;
  int count_ = 0;
};

class RenameDialogEnds : public RenameDialogWindow {
 protected:
  std::string FailureOf(FailingForm& form, const std::vector<Steps>& steps) {
    try {
      ShowDialog(kTagDialog, form, steps);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "none";
  }
};

TEST_F(RenameDialogEnds, AnExceptionOfTheFormEndsTheDialogAndLeaves) {
  FailingForm form;
  form.inPress = "press";
  EXPECT_EQ(FailureOf(form, {[](HWND dialog) { ClickButton(dialog, IDOK); }}), "press");
  EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
  form.inChange = "change";
  EXPECT_EQ(FailureOf(form, {[](HWND dialog) { SendText(dialog, kNumber, W("1")); }}), "change");
}

TEST_F(RenameDialogEnds, AFormThatFailsToOpenIsNeverSeen) {
  FailingForm form;
  form.inOpen = "open";
  EXPECT_EQ(FailureOf(form, {}), "open");
  EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
}

TEST_F(RenameDialogEnds, WithoutAResourceItEndsWithCancelAndTheFormIsNotOpened) {
  FailingForm form;
  EXPECT_EQ(ShowDialog(4711, form, {}), Velmora::SDK::kDialogCancel);
  EXPECT_FALSE(form.isOpened);
}

TEST_F(RenameDialogEnds, AFrameThatIsToCloseEndsTheDialogAsCancelDoes) {
  for (const int dialogNumber : {105, 106, 112}) {
    const CloseCounter close(owner_.Get());
    AskingForm form;
    EXPECT_EQ(ShowDialog(dialogNumber, form, {[this](HWND dialog) {
                           PostMessageW(owner_.Get(), WM_CLOSE, 0, 0);
                           Pump(dialog);
                         }}),
              2);
    EXPECT_EQ(close.Count(), 1);
  }
}

TEST_F(RenameDialogEnds, AFrameThatIsToCloseEndsTheBoxesOfTheDialogToo) {
  const CloseCounter close(owner_.Get());
  AskingForm form;
  EXPECT_EQ(ShowDialog(kUndoDialog, form,
                       {[](HWND dialog) { ClickButton(dialog, 1046); },
                        [this](HWND box) {
                          PostMessageW(owner_.Get(), WM_CLOSE, 0, 0);
                          Pump(box);
                        }}),
            2);
  EXPECT_THAT(form.answers, ElementsAre(IDCANCEL));
  EXPECT_EQ(close.Count(), 1);
}

TEST_F(RenameDialogEnds, AfterTheDialogTheFrameIsItsOwnAgain) {
  const CloseCounter close(owner_.Get());
  AskingForm form;
  ShowDialog(kTagDialog, form, {[](HWND dialog) { ClickButton(dialog, IDCANCEL); }});
  SendMessageW(owner_.Get(), WM_CLOSE, 0, 0);
  EXPECT_EQ(close.Count(), 1);
  EXPECT_EQ(ShowDialog(kTagDialog, form, {[](HWND) {}}), kLeftOpen);
}

TEST_F(RenameDialogEnds, CanBeShownWithoutAnOwner) {
  AskingForm form;
  EXPECT_EQ(RunModal([&] { return Velmora::SDK::RunRenameDialog(112, form, nullptr); },
                     [](HWND dialog) { PressKey(dialog, VK_ESCAPE); }),
            2);
}

}  // namespace
