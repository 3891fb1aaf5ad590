// Invalid names, and names that are equal to the first row's.
#include <gmock/gmock.h>

#include <atomic>

#include "multirename/engine/multi_rename_item.h"
#include "multirename/rename_host.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;

std::vector<u32> StatesOf(const std::vector<WString>& newNames) {
  MultiRenameEngine engine(nullptr);
  MultiRenameItems rows;
  for (const WString& name : newNames) {
    MultiRenameItem& row = rows.emplace_back();
    row.newName = name;
    row.state = StateFailed;
    engine.items.push_back(&row);
  }
  CheckConflicts(engine);
  std::vector<u32> states;
  for (const MultiRenameItem& row : rows) states.push_back(row.state);
  return states;
}

TEST(CheckConflictsTest, EveryRowIsReadyFirst) {
  EXPECT_THAT(StatesOf({W("a"), W("b")}), ElementsAre(0u, 0u));
}

TEST(CheckConflictsTest, NoRowsAreNoConflict) { EXPECT_TRUE(StatesOf({}).empty()); }

TEST(CheckConflictsTest, NineCharactersAreForbidden) {
  for (const WCHAR c : WStringView(W("*|\\/:\"<>?"))) {
    EXPECT_THAT(StatesOf({W("x"), WString(W("a")) + c}), ElementsAre(0u, 2u)) << static_cast<unsigned>(c);
  }
  EXPECT_THAT(StatesOf({W("x"), W(" .,;'!#%&()[]{}+-=~^@$`\t\r\n\x01\x7F\u00E4\u2215\uFF0F")}),
              ElementsAre(0u, 0u));
}

// Their low bytes equal those of the nine forbidden characters.
TEST(CheckConflictsTest, CharactersThatEndLikeAForbiddenOneAreAllowed) {
  EXPECT_THAT(StatesOf({W("x"), W("\u012A\u017C\u015C\u012F\u013A\u0122\u013C\u013E\u013F")}),
              ElementsAre(0u, 0u));
}

TEST(CheckConflictsTest, AnEmptyNameIsNotInvalid) {
  EXPECT_THAT(StatesOf({W("a"), W("")}), ElementsAre(0u, 0u));
}

TEST(CheckConflictsTest, NamesThatEqualTheFirstRowsAreDuplicatesAndItIsToo) {
  EXPECT_THAT(StatesOf({W("Ab"), W("aB"), W("abc"), W("AB"), W("a")}), ElementsAre(1u, 1u, 0u, 1u, 0u));
  EXPECT_THAT(StatesOf({W(""), W(""), W("a")}), ElementsAre(1u, 1u, 0u));
}

TEST(CheckConflictsTest, RowsFurtherDownThatEqualOneAnotherGetNoMark) {
  EXPECT_THAT(StatesOf({W("a"), W("b"), W("b"), W("B")}), ElementsAre(0u, 0u, 0u, 0u));
}

TEST(CheckConflictsTest, ADuplicateCountsForMoreThanAForbiddenCharacter) {
  EXPECT_THAT(StatesOf({W("a?"), W("a?"), W("b?")}), ElementsAre(1u, 1u, 2u));
}

TEST(CheckConflictsTest, LettersBeyondZAreTheirOwn) {
  EXPECT_THAT(StatesOf({W("\u00E4"), W("\u00C4")}), ElementsAre(0u, 0u));
}

TEST(ConflictFinderTest, AnAbortLeavesTheStatesAsTheyWere) {
  MultiRenameItems rows(2);
  for (MultiRenameItem& row : rows) row.state = StateFailed;
  MultiRenameItem* const pointers[] = {&rows[0], &rows[1]};
  ConflictFinder finder;
  finder.Begin(2);
  finder.Add(W("a"));
  finder.Add(W("a?"));
  std::atomic<bool> abort = true;
  EXPECT_FALSE(finder.SetStates(pointers, abort));
  EXPECT_EQ(rows[0].state, StateFailed);
  EXPECT_EQ(rows[1].state, StateFailed);
  abort = false;
  EXPECT_TRUE(finder.SetStates(pointers, abort));
  EXPECT_EQ(rows[0].state, StateReady);
  EXPECT_EQ(rows[1].state, StateInvalidName);
}

TEST(CheckConflictsTest, FoldersDoNotCountSoThatEqualNamesInTwoFoldersAreDuplicates) {
  RenameHost host;
  host.selection = {host.AddFileIn(W("C:\\one\\"), W("a.txt")), host.AddFileIn(W("C:\\two\\"), W("A.txt"))};
  MultiRenameEngine engine(&host);
  ASSERT_TRUE(CompileRules(engine, DefaultRules(ReadSelection(host))));
  const std::atomic<bool> never = false;
  ASSERT_TRUE(ComputeNames(engine, never));
  EXPECT_EQ(engine.items[0]->oldName, W("a.txt"));
  EXPECT_NE(engine.items[0]->folderPath, engine.items[1]->folderPath);
  EXPECT_EQ(engine.items[0]->state, u32{StateDuplicate});
  EXPECT_EQ(engine.items[1]->state, u32{StateDuplicate});
  // No row is being computed between rows.
  EXPECT_EQ(engine.currentItem, nullptr);
}

TEST(CheckConflictsTest, APreviewThatIsStoppedLeavesTheStatesOfBefore) {
  RenameHost host;
  MultiRenameEngine engine(&host);
  ASSERT_TRUE(CompileRules(engine, DefaultRules(RowsOf(host, {W("a"), W("A")}))));
  for (MultiRenameItem* const row : engine.items) row->state = StateFailed;
  const std::atomic<bool> abort = true;
  EXPECT_FALSE(ComputeNames(engine, abort));
  for (const MultiRenameItem* const row : engine.items) EXPECT_EQ(row->state, u32{StateFailed});
}

}  // namespace
}  // namespace Velmora::SDK
