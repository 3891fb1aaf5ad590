// MultiRename's window over the real host in the native build: the user renames files, undoes a session in
// another window, and moves rows. Runs under the thread sanitizer too.
#include "frame/host/command_numbers.h"
#include "host/hosted_rename_window.h"
#include "multirename/form/frame_form.h"
#include "multirename/form/panel_controls.h"
#include "multirename/form/undo_manager_form.h"
#include "platform/windows_api.h"

namespace QxHost {
namespace {

using namespace Velmora::SDK;
using testing::ElementsAre;

VectorList& ListOf(UndrawnParts& parts) { return static_cast<VectorList&>(parts.list); }

std::vector<WString> Cells(UndrawnParts& parts, u32 column) {
  std::vector<WString> cells;
  u32 rows = 0;
  parts.list.GetCounts(&rows, nullptr);
  for (u32 row = 0; row < rows; ++row) cells.push_back(ListOf(parts).CellAt(row, column));
  return cells;
}

class HostedWindowRun : public testing::Test {
 protected:
  void StartWith(std::initializer_list<WStringView> names) {
    for (const WStringView name : names) hosted_.Add(name);
    hosted_.Start();
  }
  std::vector<WString> Names() const { return hosted_.scratch.Names(W("files")); }

  HostedRenameWindow hosted_;
};

TEST_F(HostedWindowRun, APersonRenamesFilesAndTakesTheSessionBackInAnotherWindow) {
  StartWith({W("a.txt"), W("b.txt")});
  EXPECT_EQ(hosted_.RunWindow([](UndrawnWindow& window) {
    window.Do([](UndrawnParts& parts) { parts.Type(kNameTemplate, W("new[C]")); });
    window.Do([](UndrawnParts& parts) {
      SettleWindow(parts);
      EXPECT_THAT(Cells(parts, 2), ElementsAre(W("a.txt"), W("b.txt")));
      EXPECT_THAT(Cells(parts, 3), ElementsAre(W("new01.txt"), W("new02.txt")));
      parts.Press(kStartButton);
      SettleWindow(parts);
      EXPECT_EQ(parts.panes[1], W("2 Renamed"));
      parts.Press(kCloseButton);
    });
  }),
            1);
  EXPECT_THAT(Names(), ElementsAre(W("new01.txt"), W("new02.txt")));
  EXPECT_EQ(hosted_.scratch.Read(W("files\\new01.txt")), "a.txt");

  class User final : public UndrawnUser {
   public:
    int ChooseLine(const MenuLines&) override { return 0; }
    void UseDialog(int resource, DialogForm& form, UndrawnDialog& dialog) override {
      EXPECT_EQ(resource, kUndoManagerDialog);
      EXPECT_EQ(dialog[kUndoSessions].rows.size(), 1u);
      form.ClickRow(kUndoSessions, 0);
      form.Press(IDOK);
    }
  } user;
  InstallUndrawnUser(&user);
  hosted_.extensions->Renew(kCommandMultiRename);
  EXPECT_EQ(hosted_.RunWindow([](UndrawnWindow& window) {
    window.Do([](UndrawnParts& parts) {
      parts.Press(kUndoManagerButton);
      EXPECT_TRUE(parts.panel.SessionLoaded());
      parts.Press(kUndoButton);
      SettleWindow(parts);
      EXPECT_EQ(parts.panes[1], W("2 Restored"));
      parts.Press(kCloseButton);
    });
  }),
            1);
  InstallUndrawnUser(nullptr);
  EXPECT_THAT(Names(), ElementsAre(W("a.txt"), W("b.txt")));
  EXPECT_EQ(hosted_.recorded.problems, "");
}

TEST_F(HostedWindowRun, RowsThatAreMovedAreCountedInTheirNewOrderFromTheNextChangeOn) {
  StartWith({W("a"), W("b"), W("c")});
  hosted_.RunWindow([](UndrawnWindow& window) {
    window.Do([](UndrawnParts& parts) {
      parts.Type(kNameTemplate, W("[N][C]"));
      SettleWindow(parts);
      ListOf(parts).Select({{2, 3}});
      EXPECT_EQ(parts.panes[0], W("Items: 3, selected: 1"));
      EXPECT_TRUE(parts.frame.OnCommand(kMoveRowTop));
      EXPECT_THAT(Cells(parts, 3), ElementsAre(W("c03"), W("a01"), W("b02")));
      parts.Type(kDigits, W("1"));
      SettleWindow(parts);
      EXPECT_THAT(Cells(parts, 3), ElementsAre(W("c1"), W("a2"), W("b3")));
      parts.Press(kCloseButton);
    });
  });
  EXPECT_THAT(Names(), ElementsAre(W("a"), W("b"), W("c")));
}

TEST_F(HostedWindowRun, AResetShowsTheNamesOfNow) {
  StartWith({W("a.t"), W("b.t")});
  hosted_.RunWindow([](UndrawnWindow& window) {
    window.Do([](UndrawnParts& parts) {
      parts.Type(kNameTemplate, W("x[C]"));
      SettleWindow(parts);
      parts.Press(kStartButton);
      SettleWindow(parts);
      parts.Press(kResetButton);
      SettleWindow(parts);
      EXPECT_THAT(Cells(parts, 2), ElementsAre(W("x01.t"), W("x02.t")));
      parts.Press(kCloseButton);
    });
  });
}

TEST_F(HostedWindowRun, TheHostsShutdownClosesTheWindow) {
  StartWith({W("a.t")});
  EXPECT_EQ(hosted_.RunWindow([](UndrawnWindow& window) {
    window.Do([](UndrawnParts& parts) { parts.context.host.PostCommand(kCommandShutdown, 0, 0); });
  }),
            1);
  EXPECT_EQ(UndrawnWindow::Current(), nullptr);
}

TEST_F(HostedWindowRun, AWindowThatIsOpenWhenTheHostEndsIsClosed) {
  StartWith({W("a.t")});
  EXPECT_EQ(hosted_.extensions->RunCommand(kCommandMultiRename), 1);
  EXPECT_NE(UndrawnWindow::Current(), nullptr);
  hosted_.extensions->Stop();
  EXPECT_EQ(UndrawnWindow::Current(), nullptr);
}

}  // namespace
}  // namespace QxHost
