// Random actions on MultiRename's window in the native build: typing, pressing buttons, moving rows, renaming
// real files, undo, closing and reopening. Nothing may crash or hang, and no file may be lost. Runs under
// address and thread sanitizers too.
//
// A long run: QX_MONKEY_SECONDS=3600 QX_MONKEY_SEED=7, with --gtest_filter='RenameWindowMonkey*'.
#include "frame/host/command_numbers.h"
#include "host/hosted_monkey.h"
#include "host/hosted_rename_window.h"
#include "platform/posix/user_interface.h"
#include "support/monkey_actions.h"
#include "support/monkey_session.h"

namespace QxHost {
namespace {

using namespace Velmora::SDK;

constexpr std::uint32_t kActionsOfShortRun = 400;

// Answers boxes, menus, dialogs and questions of the host at random, on the threads of the window and of the
// worker.
class MonkeyAnswers final : public Platform::UserInterface, public UndrawnUser {
 public:
  explicit MonkeyAnswers(std::uint32_t seed) : generator_(seed) {
    before_ = Platform::InstallUserInterface(this);
    InstallUndrawnUser(this);
  }
  ~MonkeyAnswers() override {
    InstallUndrawnUser(nullptr);
    Platform::InstallUserInterface(before_);
  }

  int MessageBox(const WCHAR*, const WCHAR*, UINT style) override {
    TakeSomeMessages();
    if (style == MB_YESNOCANCEL || style == MB_YESNO) return Chance(60) ? IDYES : IDNO;
    return IDOK;
  }
  INT_PTR Dialog(Platform::FormRequest&) override { return IDCANCEL; }
  INT_PTR ShellExecute(const WCHAR*, const WCHAR*, const WCHAR*, int) override { return 0; }

  int ChooseLine(const MenuLines& lines) override {
    TakeSomeMessages();
    if (lines.empty() || Chance(20)) return 0;
    return lines[Below(static_cast<std::uint32_t>(lines.size()))].number;
  }

  void UseDialog(int, DialogForm& form, UndrawnDialog& dialog) override {
    for (std::uint32_t left = Below(12); left > 0 && dialog.result == 0; --left) {
      TakeSomeMessages();
      UseControl(form, dialog);
    }
    if (dialog.result == 0) form.Press(Chance(50) ? kDialogOk : kDialogCancel);
  }

  // Returns the line that the user types at a question of the host.
  std::optional<std::string> Line() {
    const std::lock_guard lock(mutex_);
    return generator_.Line();
  }

 private:
  void UseControl(DialogForm& form, UndrawnDialog& dialog) {
    if (dialog.controls.empty()) return;
    auto found = dialog.controls.begin();
    std::advance(found, Below(static_cast<std::uint32_t>(dialog.controls.size())));
    const auto& [number, control] = *found;
    if (!control.isEnabled || number == kWindowTitle) return;
    switch (Below(5)) {
      case 0:
        return form.Press(number);
      case 1:
        dialog[number].text = Text();
        return form.Change(number);
      case 2:
        if (control.lines.empty()) return;
        dialog[number].selectedLine =
            static_cast<int>(Below(static_cast<std::uint32_t>(control.lines.size())));
        return form.Change(number);
      case 3: {
        const int row = static_cast<int>(Below(static_cast<std::uint32_t>(control.rows.size()) + 1)) - 1;
        dialog[number].markedRow = row;
        return form.ClickRow(number, row);
      }
      default:
        return form.PressFunctionKey(number, static_cast<int>(Below(24)) + 1, Chance(50));
    }
  }

  void TakeSomeMessages() {
    if (Chance(50)) UndrawnWindow::TakeMessages();
  }

  bool Chance(std::uint32_t percent) { return Below(100) < percent; }
  std::uint32_t Below(std::uint32_t limit) {
    const std::lock_guard lock(mutex_);
    return generator_.Below(limit);
  }
  WString Text() {
    const std::lock_guard lock(mutex_);
    return generator_.Text();
  }

  Platform::UserInterface* before_;
  std::mutex mutex_;  // guards the members below
  ActionGenerator generator_;
};

class RenameWindowMonkey : public testing::Test {
 protected:
  // Performs an action on the window's thread.
  void Act(UndrawnParts& parts, const MonkeyAction& action) {
    switch (action.deed) {
      case MonkeyDeed::kType:
        return parts.Type(action.control, action.text);
      case MonkeyDeed::kPress:
        return parts.Press(action.control);
      case MonkeyDeed::kChoose:
        return Choose(parts, action);
      case MonkeyDeed::kDoubleClick:
        return parts.DoubleClick(action.control);
      case MonkeyDeed::kSelectRows:
        return SelectRows(parts, action);
      case MonkeyDeed::kMoveRows:
        EXPECT_TRUE(parts.frame.OnCommand(action.control));
        return;
      case MonkeyDeed::kRun:
      case MonkeyDeed::kUndo:
        parts.Press(action.control);
        if (!action.isAwaited) return;
        SettleWindow(parts);
        return session_.ExpectNoFileLost(action.Shown());
      case MonkeyDeed::kEscape:
        return parts.frame.PressEscape();
      case MonkeyDeed::kContextMenu:
        return static_cast<VectorList&>(parts.list).OpenContextMenu(3, 4);
      case MonkeyDeed::kNewSelection:
        return parts.context.host.PostCommand(kCommandMultiRename, 0, 0);
      case MonkeyDeed::kClose:
        return parts.frame.PostClose();
      case MonkeyDeed::kShutDown:
        return parts.context.host.PostCommand(kCommandShutdown, 0, 0);
    }
  }
  static void Choose(UndrawnParts& parts, const MonkeyAction& action) {
    const std::size_t lines = parts.controls[action.control].lines.size();
    if (lines > 0) parts.Choose(action.control, static_cast<int>(action.number % lines));
  }
  static void SelectRows(UndrawnParts& parts, const MonkeyAction& action) {
    u32 rows = 0;
    parts.list.GetCounts(&rows, nullptr);
    if (rows == 0) return;
    const u32 begin = action.number % rows;
    const u32 end = std::min(rows, begin + action.count);
    static_cast<VectorList&>(parts.list).Select(begin < end ? RowRanges{{begin, end}} : RowRanges{});
  }

  // Runs on another thread until the session has ended.
  void Act() {
    ActionGenerator generator(MonkeySeed());
    while (!session_.IsTimeOver()) {
      const std::shared_ptr<UndrawnWindow> window = UndrawnWindow::Current();
      if (!window) {
        Sleep(1);
        continue;
      }
      const MonkeyAction action = generator.Next();
      session_.BeginAction(action.Shown());
      const auto act = [this, action](UndrawnParts& parts) { Act(parts, action); };
      if (action.isAwaited)
        window->Do(act);
      else
        window->Post(act);
    }
    session_.End();
    while (!session_.HasEnded()) {
      if (const std::shared_ptr<UndrawnWindow> window = UndrawnWindow::Current())
        window->Do([](UndrawnParts& parts) { parts.frame.PostClose(); });
      Sleep(1);
    }
  }

  MonkeyAnswers answers_{MonkeySeed() + 1};
  HostedRenameWindow hosted_{[this] { return answers_.Line(); }};
  HostedMonkey session_{hosted_, kActionsOfShortRun};
};

TEST_F(RenameWindowMonkey, LosesNoFileAndDoesNotHang) {
  session_.Play([this] { Act(); });
}

}  // namespace
}  // namespace QxHost
