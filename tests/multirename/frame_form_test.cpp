// The main frame: its list, its panes, its keys, its menu, and the question before it closes.
#include "multirename/form/frame_form.h"

#include <gmock/gmock.h>

#include "multirename/form/rename_texts.h"
#include "multirename/panel_window.h"
#include "platform/windows_api.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FrameFormTest : public PanelTest {
 protected:
  FrameFormTest() {
    host_.texts[kRenameTextRows] = W("%d rows");
    host_.texts[kRenameTextSelectedRows] = W("%d of rows, %d of them selected");
  }

  void OpenFrame(const std::vector<WString>& names) {
    Select(names);
    context_.rows.Set(ReadSelection(host_));
    frame.Open(&list);
  }
};

TEST_F(FrameFormTest, TheTitleIsTheSystemsUntilThePanelReplacesIt) {
  frame.Open(&list);
  EXPECT_EQ(frameView.title, W("MultiRename"));
  form.Open();
  EXPECT_EQ(frameView.title, W("T000A0063"));
}

TEST_F(FrameFormTest, TheListsImageSetIsNoted) {
  EXPECT_EQ(context_.imageSet, 1u);
  frame.Open(&list);
  EXPECT_EQ(context_.imageSet, 5u);
}

TEST_F(FrameFormTest, FillingTheListShowsTheRowsInOrderAndTheirNumber) {
  OpenFrame({W("b"), W("a")});
  frame.FillList();
  EXPECT_THAT(NewNames(), ElementsAre(W("b"), W("a")));
  EXPECT_THAT(list.calls, ElementsAre("clear", "provider", "refresh"));
  ASSERT_TRUE(list.provider);
  WCHAR buffer[10];
  list.provider->GetCellText(list.rows[1], 2, buffer, 10);
  EXPECT_EQ(WString(buffer), W("a"));
  EXPECT_EQ(frameView.panes[0], W("2 rows"));
}

TEST_F(FrameFormTest, AnEmptySelectionGivesAnEmptyList) {
  OpenFrame({});
  frame.FillList();
  EXPECT_THAT(list.rows, IsEmpty());
  EXPECT_EQ(frameView.panes[0], W("0 rows"));
  EXPECT_THAT(frame.List().CollectRows(), IsEmpty());
}

TEST_F(FrameFormTest, RowsAreCollectedAsTheListShowsThemWithoutNullRows) {
  OpenFrame({W("a"), W("b"), W("c")});
  frame.FillList();
  void* const first = list.rows[0];
  list.rows = {list.rows[2], nullptr, first};
  EXPECT_THAT(frame.List().CollectRows(), ElementsAre(list.rows[0], first));
}

TEST_F(FrameFormTest, RowsAreCollectedInTheMemoryThatIsGivenForThemAndNothingOfItIsLeft) {
  OpenFrame({W("a"), W("b")});
  frame.FillList();
  std::vector<MultiRenameItem*> memory(5, static_cast<MultiRenameItem*>(list.rows[1]));
  const MultiRenameItem* const* const place = memory.data();
  const std::vector<MultiRenameItem*> rows = frame.List().CollectRows(std::move(memory));
  EXPECT_THAT(rows, ElementsAre(list.rows[0], list.rows[1]));
  EXPECT_EQ(rows.data(), place);
}

TEST_F(FrameFormTest, ItemsLiveUntilTheListIsEmptyOrHasOthers) {
  OpenFrame({W("a")});
  frame.FillList();
  const std::weak_ptr<MultiRenameItems> shown = context_.rows.Get();
  context_.rows.Set(nullptr);
  EXPECT_FALSE(shown.expired());
  frame.List().Empty();
  EXPECT_THAT(list.rows, IsEmpty());
  EXPECT_TRUE(shown.expired());
}

TEST_F(FrameFormTest, TheListReleasesItsRowsBeforeTheyAreDestroyed) {
  OpenFrame({W("a")});
  frame.FillList();
  const std::weak_ptr<MultiRenameItems> shown = context_.rows.Get();
  context_.rows.Set(nullptr);
  bool isAlive = false;
  list.atClear = [&] { isAlive = !shown.expired(); };
  frame.List().Empty();
  EXPECT_TRUE(isAlive);
  EXPECT_TRUE(shown.expired());
}

TEST_F(FrameFormTest, ClosingEmptiesTheListAndReleasesIt) {
  OpenFrame({W("a")});
  frame.FillList();
  frame.Close();
  EXPECT_THAT(list.rows, IsEmpty());
  EXPECT_FALSE(frame.OnHostEvent(77, kEventSelectionChanged));
  EXPECT_TRUE(frame.OnCommand(kMoveRowUp));
  EXPECT_THAT(list.calls, ElementsAre("clear", "provider", "refresh", "clear"));
}

TEST_F(FrameFormTest, WithoutAListNothingIsShownAndNothingFails) {
  Select({W("a")});
  context_.rows.Set(ReadSelection(host_));
  frame.Open(nullptr);
  frame.FillList();
  frame.List().Refresh();
  EXPECT_THAT(frame.List().CollectRows(), IsEmpty());
  EXPECT_FALSE(frame.OnHostEvent(0, kEventStatusChanged));
  EXPECT_TRUE(frameView.panes.empty());
}

TEST_F(FrameFormTest, AChangeOfTheSelectionShowsTheCounts) {
  OpenFrame({W("a"), W("b"), W("c")});
  frame.FillList();
  list.selected = {list.rows[0], list.rows[2]};
  EXPECT_TRUE(frame.OnHostEvent(77, kEventSelectionChanged));
  EXPECT_EQ(frameView.panes[0], W("3 of rows, 2 of them selected"));
  list.selected.clear();
  EXPECT_TRUE(frame.OnHostEvent(77, kEventSelectionChanged));
  EXPECT_EQ(frameView.panes[0], W("3 rows"));
}

TEST_F(FrameFormTest, EventsOfOthersChangeNothing) {
  OpenFrame({W("a")});
  frame.FillList();
  frame.SetPanel(view.Window());
  frameView.panes.clear();
  EXPECT_TRUE(frame.OnHostEvent(78, kEventSelectionChanged));  // another list
  EXPECT_TRUE(frame.OnHostEvent(77, kEventStatusChanged));     // not the panel
  EXPECT_TRUE(frame.OnHostEvent(77, 5));                       // another code
  EXPECT_TRUE(frameView.panes.empty());
}

TEST_F(FrameFormTest, TheStatusTextGoesToTheSecondPane) {
  OpenFrame({});
  frame.SetPanel(view.Window());
  engine_->status.SetError(W("no expression"));
  EXPECT_TRUE(frame.OnHostEvent(reinterpret_cast<std::intptr_t>(view.Window()), kEventStatusChanged));
  EXPECT_EQ(frameView.panes[1], W("no expression"));
}

TEST_F(FrameFormTest, AltWithFourKeysMovesTheSelectedRows) {
  ASSERT_EQ(std::size(kFrameMoves), 4u);
  const std::map<u32, int> commands = {
      {0x26, kMoveRowUp}, {0x28, kMoveRowDown}, {0x24, kMoveRowTop}, {0x23, kMoveRowBottom}};
  for (const FrameMove& key : kFrameMoves) EXPECT_EQ(commands.at(key.key), key.command);
  frame.Open(&list);
  for (const int command : {kMoveRowUp, kMoveRowDown, kMoveRowTop, kMoveRowBottom})
    EXPECT_TRUE(frame.OnCommand(command));
  EXPECT_THAT(list.calls, ElementsAre("up", "down", "top", "bottom"));
}

TEST_F(FrameFormTest, OtherCommandsAreLeftToTheClientWindow) {
  frame.Open(&list);
  for (const int command : {0, 1, 10, 40000, 40005}) EXPECT_FALSE(frame.OnCommand(command)) << command;
  EXPECT_THAT(list.calls, IsEmpty());
}

TEST_F(FrameFormTest, TheContextMenuHasFourLinesWithTheirKeys) {
  frame.Open(&list);
  frame.ShowContextMenu(nullptr, 3, 4);
  ASSERT_EQ(frameView.menus.size(), 1u);
  std::vector<std::pair<int, WString>> lines;
  for (const MenuLine& line : frameView.menus[0]) lines.emplace_back(line.number, line.text);
  EXPECT_THAT(
      lines,
      ElementsAre(std::pair(10, WString(W("T00640063\tkey"))), std::pair(11, WString(W("T00650063\tkey"))),
                  std::pair(12, WString(W("T00660063\tkey"))), std::pair(13, WString(W("T00670063\tkey")))));
  EXPECT_THAT(host_.recorder.CallsOf({"GetKeyText"}),
              ElementsAre("GetKeyText(64, 38, 16, 0)", "GetKeyText(64, 40, 16, 0)",
                          "GetKeyText(64, 36, 16, 0)", "GetKeyText(64, 35, 16, 0)"));
  EXPECT_THAT(list.calls, IsEmpty());  // no choice
}

TEST_F(FrameFormTest, ALineWhoseKeyHasNoNameHasNoTab) {
  host_.keyText.clear();
  frame.Open(&list);
  frame.ShowContextMenu(nullptr, 3, 4);
  ASSERT_EQ(frameView.menus.size(), 1u);
  std::vector<WString> texts;
  for (const MenuLine& line : frameView.menus[0]) texts.push_back(line.text);
  EXPECT_THAT(texts, ElementsAre(W("T00640063"), W("T00650063"), W("T00660063"), W("T00670063")));
}

TEST_F(FrameFormTest, TheContextMenuOpensWhereTheListAsksForItWithItsWindow) {
  frame.Open(&list);
  frame.ShowContextMenu(view.Window(), 3, -4);
  ASSERT_EQ(frameView.menuPlaces.size(), 1u);
  ASSERT_TRUE(view.Window());
  EXPECT_EQ(frameView.menuPlaces[0].owner, view.Window());
  EXPECT_EQ(frameView.menuPlaces[0].x, 3);
  EXPECT_EQ(frameView.menuPlaces[0].y, -4);
}

TEST_F(FrameFormTest, TheContextMenusLinesMoveTheRows) {
  frame.Open(&list);
  for (const int line : {10, 11, 12, 13, 99}) {
    frameView.menuAnswer = line;
    frame.ShowContextMenu(nullptr, 0, 0);
  }
  EXPECT_THAT(list.calls, ElementsAre("up", "down", "top", "bottom"));
}

TEST_F(FrameFormTest, TheWindowIsLaidOutByTheseNumbers) {
  EXPECT_EQ(FrameLayout::kWidth, 855);
  EXPECT_EQ(FrameLayout::kHeight, 410);
  EXPECT_EQ(FrameLayout::kMinWidth, 850);
  EXPECT_EQ(FrameLayout::kMinHeight, 400);
  EXPECT_EQ(FrameLayout::kStatusPaneWidth, 650);
  EXPECT_EQ(FrameLayout::kListWidth, 200);
  EXPECT_EQ(FrameLayout::kColumnWidth, 200);
  EXPECT_EQ(FrameLayout::kRowHeight, 16);
  EXPECT_EQ(FrameLayout::kPairsDialogGap, 4);
  EXPECT_EQ(FrameLayout::kContainerStyle, 0x56000000u);
  EXPECT_EQ(FrameLayout::kIcon, 128u);
  ASSERT_EQ(std::size(kFrameColumns), 2u);
  EXPECT_EQ(kFrameColumns[0].number, 2u);
  EXPECT_EQ(kFrameColumns[0].heading, 9830500u);
  EXPECT_EQ(kFrameColumns[1].number, 3u);
  EXPECT_EQ(kFrameColumns[1].heading, 9896036u);
}

TEST_F(FrameFormTest, EscapeAsksBeforeItCloses) {
  frame.PressEscape();
  EXPECT_THAT(frameView.posted, ElementsAre(MRM_CONFIRM_CLOSE));
  EXPECT_THAT(frameView.boxes.shown, IsEmpty());
  frameView.boxes.answers = {IDNO, IDCANCEL, IDYES};
  frame.OnMessage(MRM_CONFIRM_CLOSE);
  frame.OnMessage(MRM_CONFIRM_CLOSE);
  EXPECT_EQ(frameView.closes, 0);
  frame.OnMessage(MRM_CONFIRM_CLOSE);
  EXPECT_EQ(frameView.closes, 1);
  ASSERT_EQ(frameView.boxes.shown.size(), 3u);
  EXPECT_EQ(frameView.boxes.shown[0],
            (RecordedBox{W("Velmora - MultiRename"), W("T000A0064"), MB_YESNOCANCEL}));
}

TEST_F(FrameFormTest, OtherMessagesAreNoQuestion) {
  frame.OnMessage(MRM_ROWS_CHANGED);
  EXPECT_THAT(frameView.boxes.shown, IsEmpty());
}

}  // namespace
}  // namespace Velmora::SDK
