// Behaviour of the list that is the same in both builds, tested with the list that needs no window.
#include "host/controls/vector_list.h"

#include <gmock/gmock.h>

#include <thread>

#include "support/row_texts.h"
#include "support/scratch_folder.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace QxHost {
namespace {

using namespace Velmora::SDK;

struct ListOwner {
  ScratchFolder scratch;
  std::vector<std::string> warnings;
  SettingsFiles files{scratch.Path(W("config")),
                      [this](const std::string& text) { warnings.push_back(text); }};
  std::vector<std::pair<std::intptr_t, s32>> events;
  Controls controls{files, "MultiRename",
                    [this](std::intptr_t source, s32 code) { events.emplace_back(source, code); }, nullptr};
};

class ListControlTest : public testing::Test {
 protected:
  void AddRows(const std::vector<WString>& names) {
    for (const WString& name : names) list_.AddRow(list_.CreateRow(rows_.Add(name)));
  }

  // Returns the names of the rows in the order of GetRows.
  std::vector<WString> Names() {
    std::vector<void*> items(list_.GetRows(nullptr, 0));
    EXPECT_EQ(list_.GetRows(items.data(), static_cast<u32>(items.size())), items.size());
    std::vector<WString> names;
    for (void* const item : items) names.push_back(*static_cast<const WString*>(item));
    return names;
  }

  std::pair<u32, u32> Counts() {
    std::pair<u32, u32> counts;
    list_.GetCounts(&counts.first, &counts.second);
    return counts;
  }

  ListOwner owner_;
  RowTexts rows_;
  VectorList list_{owner_.controls};
};

TEST_F(ListControlTest, AsksForACellWhenItIsShownAndNotBefore) {
  list_.SetRowProvider(&rows_);
  AddRows({W("one"), W("two")});
  list_.Refresh();
  EXPECT_EQ(rows_.texts, 0);
  EXPECT_EQ(list_.CellAt(1, 2), W("two"));
  EXPECT_EQ(list_.CellAt(1, 3), W("owt"));
  EXPECT_EQ(rows_.texts, 2);
}

TEST_F(ListControlTest, ACellBeyondTheRowsOrWithoutAProviderIsEmpty) {
  AddRows({W("one")});
  EXPECT_EQ(list_.CellAt(0, 2), W(""));
  list_.SetRowProvider(&rows_);
  EXPECT_EQ(list_.CellAt(0, 2), W("one"));
  EXPECT_EQ(list_.CellAt(1, 2), W(""));
  EXPECT_EQ(list_.CellAt(static_cast<std::size_t>(-1), 2), W(""));
}

TEST_F(ListControlTest, TextsOfAnyKindAreShownAsTheyAreAndCutAtWhatALineCanShow) {
  list_.SetRowProvider(&rows_);
  AddRows({W("100 %s %n && &x"), W("a\r\nb\tc"), WString(40000, W('m')), W("")});
  EXPECT_EQ(list_.CellAt(0, 2), W("100 %s %n && &x"));
  EXPECT_EQ(list_.CellAt(1, 2), W("a\r\nb\tc"));
  EXPECT_EQ(list_.CellAt(2, 2), WString(2047, W('m')));
  EXPECT_EQ(list_.CellAt(3, 2), W(""));
}

TEST_F(ListControlTest, GivesItsRowsInTheOrderOfTheScreenAndNoMoreThanAreWanted) {
  AddRows({W("one"), W("two"), W("three")});
  list_.Select({{2, 3}});
  list_.MoveRowUp();
  EXPECT_THAT(Names(), ElementsAre(W("one"), W("three"), W("two")));
  void* items[3] = {};
  EXPECT_EQ(list_.GetRows(items, 2), 2u);
  EXPECT_EQ(*static_cast<const WString*>(items[1]), W("three"));
  EXPECT_EQ(items[2], nullptr);
}

TEST_F(ListControlTest, MovesAllSelectedRowsAtOnceWithTheFocus) {
  AddRows({W("a"), W("b"), W("c"), W("d"), W("e")});
  list_.Select({{1, 2}, {3, 4}});
  list_.Focus(3);
  list_.MoveRowUp();
  EXPECT_THAT(Names(), ElementsAre(W("b"), W("a"), W("d"), W("c"), W("e")));
  EXPECT_EQ(list_.Selected(), (RowRanges{{0, 1}, {2, 3}}));
  EXPECT_EQ(list_.Focused(), 2u);
  list_.MoveRowBottom();
  EXPECT_THAT(Names(), ElementsAre(W("a"), W("c"), W("e"), W("b"), W("d")));
  list_.MoveRowTop();
  EXPECT_THAT(Names(), ElementsAre(W("b"), W("d"), W("a"), W("c"), W("e")));
  list_.MoveRowDown();
  EXPECT_THAT(Names(), ElementsAre(W("a"), W("b"), W("d"), W("c"), W("e")));
  EXPECT_EQ(list_.Selected(), (RowRanges{{1, 3}}));
  EXPECT_EQ(list_.Focused(), 2u);
}

TEST_F(ListControlTest, AnotherSelectionIsAnEventAndAMoveIsNone) {
  AddRows({W("a"), W("b"), W("c")});
  const std::intptr_t source = static_cast<std::intptr_t>(list_.GetId());
  list_.Select({{1, 2}});
  EXPECT_THAT(owner_.events, ElementsAre(Pair(source, 52300)));
  EXPECT_THAT(Counts(), Pair(3u, 1u));
  list_.MoveRowUp();
  list_.Select({{0, 1}});
  EXPECT_EQ(owner_.events.size(), 1u);
  list_.Select({{0, 2}});
  EXPECT_EQ(owner_.events.size(), 2u);
  EXPECT_THAT(Counts(), Pair(3u, 2u));
}

TEST_F(ListControlTest, ClearTakesOutRowsAndSelectionWhichIsAnEventIfThereWasOne) {
  list_.Clear();
  AddRows({W("a"), W("b")});
  list_.Clear();
  EXPECT_THAT(owner_.events, IsEmpty());
  AddRows({W("a"), W("b")});
  list_.Select({{0, 2}});
  list_.Clear();
  EXPECT_EQ(owner_.events.size(), 2u);
  EXPECT_THAT(Counts(), Pair(0u, 0u));
  EXPECT_THAT(Names(), IsEmpty());
  AddRows({W("c")});
  EXPECT_THAT(Counts(), Pair(1u, 0u));
}

TEST_F(ListControlTest, AfterClearOnAnotherThreadNoRowOfBeforeIsAskedFor) {
  list_.SetRowProvider(&rows_);
  for (int round = 0; round < 200; ++round) {
    auto names = std::make_unique<RowTexts>();
    list_.SetRowProvider(names.get());
    for (int row = 0; row < 20; ++row) list_.AddRow(names->Add(W("name")));
    std::thread other([&] {
      list_.Clear();
      list_.SetRowProvider(nullptr);
      names.reset();  // a later use would be a use of freed memory
    });
    for (std::size_t row = 0; row < 20; ++row) {
      const WString text = list_.CellAt(row, 2);
      EXPECT_TRUE(text == W("name") || text.empty());
    }
    list_.MoveRowUp();
    other.join();
  }
}

// Happens when the shell takes messages of the thread while it loads an image.
TEST_F(ListControlTest, ARowMayBeAskedForWhileAnotherIs) {
  class AskingRows final : public RowTexts {
   public:
    explicit AskingRows(VectorList& list) : list_(list) {}
    u32 GetCellText(void* item, u32 column, WCHAR* buffer, u32 size) override {
      if (texts == 0) {
        ++texts;
        other = list_.CellAt(1, column);
      }
      return RowTexts::GetCellText(item, column, buffer, size);
    }
    WString other;

   private:
    VectorList& list_;
  };
  AskingRows rows(list_);
  list_.SetRowProvider(&rows);
  for (const WCHAR* const name : {W("one"), W("two")}) list_.AddRow(rows.Add(name));
  EXPECT_EQ(list_.CellAt(0, 2), W("one"));
  EXPECT_EQ(rows.other, W("two"));
}

TEST_F(ListControlTest, WithoutPlacesForThemCountsAreNotStored) {
  AddRows({W("a")});
  u32 count = 0;
  list_.GetCounts(nullptr, &count);
  list_.GetCounts(&count, nullptr);
  EXPECT_EQ(count, 1u);
}

TEST_F(ListControlTest, TheWidthThatAUserGivesAColumnIsKeptForTheNextList) {
  list_.AddColumn(W("Old"), 200, 2);
  list_.AddColumn(W("New"), 200, 3);
  list_.SetColumnWidth(3, 345);
  VectorList next(owner_.controls);
  next.AddColumn(W("Old"), 200, 2);
  next.AddColumn(W("New"), 200, 3);
  EXPECT_EQ(next.Columns().at(0).width, 200u);
  EXPECT_EQ(next.Columns().at(1).width, 345u);
  EXPECT_EQ(next.Columns().at(1).heading, W("New"));
}

TEST_F(ListControlTest, AKeptWidthThatCannotBeIsPassedOver) {
  Settings settings(owner_.files, "qxhost");
  for (const u32 width : {0u, 19u, 5001u, 0xFFFFFFFFu}) {
    settings.SetInt(1, W("MultiRename list"), W("column 2"), width);
    VectorList next(owner_.controls);
    next.AddColumn(W("Old"), 200, 2);
    EXPECT_EQ(next.Columns().at(0).width, 200u) << width;
  }
}

class MenuCallback final : public IEventCallback {
 public:
  explicit MenuCallback(std::vector<std::string>& calls) : calls_(calls) {}
  void Destroy() override { calls_.push_back("destroy"); }
  void Release() override {
    calls_.push_back("release");
    delete this;
  }
  s32 OnEvent(u32 event, void* information) override {
    const auto& menu = *static_cast<const ListContextMenu*>(information);
    calls_.push_back(std::to_string(event) + " at " + std::to_string(menu.x) + " " + std::to_string(menu.y));
    window = menu.window;
    return 0;
  }
  static inline HWND window = nullptr;

 private:
  std::vector<std::string>& calls_;
};

TEST(ListCallbackTest, IsCalledForTheContextMenuAndReleasedOnce) {
  ListOwner owner;
  std::vector<std::string> calls;
  {
    VectorList list(owner.controls);
    list.OpenContextMenu(1, 2);
    list.SetEventCallback(1, new MenuCallback(calls));
    list.OpenContextMenu(30, -4);
    EXPECT_EQ(MenuCallback::window, list.Handle());
    list.SetEventCallback(1, new MenuCallback(calls));
    EXPECT_THAT(calls, ElementsAre("1 at 30 -4", "release"));
  }
  EXPECT_THAT(calls, ElementsAre("1 at 30 -4", "release", "release"));
}

TEST(ListCallbackTest, OfAnEventThatNeverComesIsReleasedAtOnce) {
  ListOwner owner;
  std::vector<std::string> calls;
  VectorList list(owner.controls);
  list.SetEventCallback(2, new MenuCallback(calls));
  EXPECT_THAT(calls, ElementsAre("release"));
}

TEST(ListNumbersTest, TwoListsHaveTwoNumbers) {
  ListOwner owner;
  VectorList one(owner.controls);
  VectorList other(owner.controls);
  EXPECT_NE(one.GetId(), other.GetId());
  EXPECT_NE(one.GetId(), 0u);
}

}  // namespace
}  // namespace QxHost
