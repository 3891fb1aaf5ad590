// The dialog of earlier runs.
#include "multirename/form/undo_manager_form.h"

#include <gmock/gmock.h>

#include "multirename/panel_window.h"
#include "platform/windows_api.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UndoManager : public testing::Test {
 protected:
  UndoManager() {
    host_.configFolder = scratch_.Path() + W("\\");
    store_.emplace(&host_);
  }

  // Stores a session of a day in March 2026 with that many entries.
  MultiRenameUndo* Keep(WORD day, int entries = 1, bool restored = false) {
    auto session = std::make_unique<MultiRenameUndo>();
    session->date = {2026, 3, 0, day, 12, 30, 0, 0};
    session->haveRestored = restored;
    for (int entry = 0; entry < entries; ++entry) {
      const WString number = FromUtf8(std::to_string(day) + "-" + std::to_string(entry));
      session->entries.push_back({W("C:\\f") + number, W("new") + number, W("old") + number});
    }
    store_->Save(*session);
    MultiRenameUndo* const kept = session.get();
    store_->sessions.push_back(std::move(session));
    return kept;
  }

  UndoManagerForm& Open(const MultiRenameUndo* loaded = nullptr) {
    form_.emplace(host_, *store_, loaded);
    form_->Open(dialog_);
    return *form_;
  }

  std::vector<WString> Column(int list, std::size_t column) {
    std::vector<WString> cells;
    for (const std::vector<WString>& row : dialog_[list].rows) cells.push_back(row[column]);
    return cells;
  }

  const ScratchFolder scratch_;
  RenameHost host_;
  std::optional<MultiRenameUndoStore> store_;
  DialogWindow dialog_;
  std::optional<UndoManagerForm> form_;
};

TEST_F(UndoManager, HasItsTextsAndColumns) {
  Open();
  const std::map<int, WString> texts = {{0, W("T01F40064")},
                                        {kUndoSessionsLabel, W("T01F50064")},
                                        {kUndoDateLabel, W("T01F60064")},
                                        {kUndoFilesLabel, W("T01F70064")},
                                        {kUndoDelete, W("T01F80064")},
                                        {kUndoDeleteAll, W("T01F90064")},
                                        {IDOK, W("T01FA0064")},
                                        {IDCANCEL, W("T01FB0064")}};
  for (const auto& [control, text] : texts) EXPECT_EQ(dialog_[control].text, text) << control;
  EXPECT_THAT(dialog_.Columns(kUndoSessions),
              ElementsAre(std::pair(WString(W("T01FE0064")), 150), std::pair(WString(W("T01FF0064")), 100),
                          std::pair(WString(W("T02000064")), 200)));
  EXPECT_THAT(dialog_.Columns(kUndoFiles),
              ElementsAre(std::pair(WString(W("T02030064")), 250), std::pair(WString(W("T02040064")), 250),
                          std::pair(WString(W("T02050064")), 200)));
}

TEST_F(UndoManager, ShowsTheNewestSessionFirst) {
  Keep(5, 2);
  const MultiRenameUndo* const newest = Keep(17, 3, true);
  Keep(9, 1);
  Open();
  EXPECT_THAT(Column(kUndoSessions, 1), ElementsAre(W("3"), W("1"), W("2")));
  EXPECT_THAT(Column(kUndoSessions, 2), ElementsAre(W("T02080064"), W(""), W("")));
  EXPECT_EQ(Column(kUndoSessions, 0)[0], DateText(*newest));
  EXPECT_THAT(dialog_[kUndoFiles].rows, IsEmpty());
  EXPECT_EQ(dialog_[kUndoSessions].selectedRow, -1);
}

TEST_F(UndoManager, AClickShowsTheSession) {
  const MultiRenameUndo* const session = Keep(5, 2);
  UndoManagerForm& form = Open();
  form.ClickRow(kUndoSessions, 0);
  EXPECT_THAT(dialog_[kUndoFiles].rows, ElementsAre(ElementsAre(W("old5-0"), W("new5-0"), W("C:\\f5-0")),
                                                    ElementsAre(W("old5-1"), W("new5-1"), W("C:\\f5-1"))));
  EXPECT_EQ(dialog_[kUndoDate].text, DateText(*session));
  EXPECT_EQ(dialog_[kUndoCount].text, W("T01FF0064 : 2"));
  EXPECT_EQ(form.Chosen(), session);
}

TEST_F(UndoManager, ASelectionByTheKeyboardChoosesNothing) {
  Keep(5);
  UndoManagerForm& form = Open();
  dialog_[kUndoSessions].selectedRow = dialog_[kUndoSessions].markedRow = 0;
  form.Change(kUndoSessions);
  EXPECT_THAT(dialog_[kUndoFiles].rows, IsEmpty());
  form.Press(IDOK);
  EXPECT_EQ(dialog_.result, IDOK);
  EXPECT_EQ(form.Chosen(), nullptr);
}

TEST_F(UndoManager, AClickOutsideTheRowsOrOnAFileChangesNothing) {
  const MultiRenameUndo* const session = Keep(5);
  UndoManagerForm& form = Open();
  form.ClickRow(kUndoSessions, 0);
  form.ClickRow(kUndoSessions, -1);
  form.ClickRow(kUndoSessions, 1);
  form.ClickRow(kUndoFiles, 0);
  EXPECT_EQ(form.Chosen(), session);
  EXPECT_EQ(dialog_[kUndoFiles].rows.size(), 1u);
}

TEST_F(UndoManager, OnOpeningTheLoadedSessionIsSelectedAndItsFilesShow) {
  Keep(17);
  MultiRenameUndo* const loaded = Keep(9, 4);
  UndoManagerForm& form = Open(loaded);
  EXPECT_EQ(dialog_[kUndoSessions].selectedRow, 1);
  EXPECT_EQ(dialog_[kUndoFiles].rows.size(), 4u);
  EXPECT_EQ(form.Chosen(), loaded);
}

TEST_F(UndoManager, ALoadedSessionThatTheStoreDoesNotHaveIsNotShown) {
  Keep(17);
  MultiRenameUndo other;
  EXPECT_EQ(Open(&other).Chosen(), nullptr);
  EXPECT_EQ(dialog_[kUndoSessions].selectedRow, -1);
}

TEST_F(UndoManager, LoadAndCloseEndTheDialog) {
  MultiRenameUndo* const session = Keep(5);
  UndoManagerForm& form = Open();
  form.ClickRow(kUndoSessions, 0);
  form.Press(IDCANCEL);
  EXPECT_EQ(dialog_.result, IDCANCEL);
  form.Press(IDOK);
  EXPECT_EQ(dialog_.result, IDOK);
  EXPECT_EQ(form.Chosen(), session);
}

TEST_F(UndoManager, DeleteAsksAndDeletesTheMarkedSessionAndItsFile) {
  Keep(5);
  MultiRenameUndo* const newest = Keep(17);
  const WString file = newest->GetFileName();
  UndoManagerForm& form = Open();
  dialog_[kUndoSessions].markedRow = 0;
  dialog_.boxes.answers = {IDYES};
  form.Press(kUndoDelete);
  EXPECT_THAT(dialog_.boxes.shown, ElementsAre(RecordedBox{W("T020D0064"), W("T020E0064"), MB_YESNOCANCEL}));
  EXPECT_FALSE(scratch_.Exists(W("Undo\\") + file));
  EXPECT_EQ(store_->sessions.size(), 1u);
  EXPECT_EQ(dialog_[kUndoSessions].rows.size(), 1u);
}

TEST_F(UndoManager, NoAndCancelDeleteNothing) {
  Keep(5);
  UndoManagerForm& form = Open();
  dialog_[kUndoSessions].markedRow = 0;
  dialog_.boxes.answers = {IDNO, IDCANCEL, IDNO, IDCANCEL};
  form.Press(kUndoDelete);
  form.Press(kUndoDelete);
  form.Press(kUndoDeleteAll);
  form.Press(kUndoDeleteAll);
  EXPECT_EQ(dialog_.boxes.shown.size(), 4u);
  EXPECT_EQ(store_->sessions.size(), 1u);
  EXPECT_EQ(scratch_.Names(W("Undo")).size(), 1u);
}

TEST_F(UndoManager, DeleteWithoutAMarkOnlyFillsTheListAgain) {
  Keep(5);
  UndoManagerForm& form = Open();
  form.ClickRow(kUndoSessions, 0);
  Keep(17);
  form.Press(kUndoDelete);
  EXPECT_EQ(dialog_[kUndoSessions].rows.size(), 2u);
  EXPECT_THAT(dialog_[kUndoFiles].rows, IsEmpty());
  EXPECT_THAT(dialog_.boxes.shown, IsEmpty());
  EXPECT_EQ(store_->sessions.size(), 2u);
}

TEST_F(UndoManager, ADeleteThatFailsSaysSoAndChangesNothing) {
  MultiRenameUndo* const session = Keep(5);
  UndoManagerForm& form = Open();
  form.ClickRow(kUndoSessions, 0);
  dialog_[kUndoSessions].markedRow = 0;
  session->fileName = W("no such file.dat");
  dialog_.boxes.answers = {IDYES, IDOK};
  form.Press(kUndoDelete);
  ASSERT_EQ(dialog_.boxes.shown.size(), 2u);
  EXPECT_EQ(dialog_.boxes.shown[1], (RecordedBox{W("T020D0064"), W("T02120064"), MB_OK | MB_ICONERROR}));
  EXPECT_EQ(store_->sessions.size(), 1u);
  EXPECT_EQ(form.Chosen(), session);
}

TEST_F(UndoManager, ADeletedSessionIsChosenNoMore) {
  Keep(5);
  UndoManagerForm& form = Open();
  form.ClickRow(kUndoSessions, 0);
  dialog_[kUndoSessions].markedRow = 0;
  dialog_.boxes.answers = {IDYES};
  form.Press(kUndoDelete);
  EXPECT_EQ(form.Chosen(), nullptr);
  EXPECT_EQ(dialog_[kUndoDate].text, W(""));
  EXPECT_EQ(dialog_[kUndoCount].text, W(""));
}

TEST_F(UndoManager, AnotherSessionsDeletionLeavesTheChosenOneButClearsItsFiles) {
  MultiRenameUndo* const kept = Keep(17);
  Keep(5);
  UndoManagerForm& form = Open();
  form.ClickRow(kUndoSessions, 0);
  dialog_[kUndoSessions].markedRow = 1;
  dialog_.boxes.answers = {IDYES};
  form.Press(kUndoDelete);
  EXPECT_EQ(form.Chosen(), kept);
  EXPECT_THAT(dialog_[kUndoFiles].rows, IsEmpty());
}

TEST_F(UndoManager, DeleteAllKeepsWhatCannotBeDeleted) {
  Keep(5);
  MultiRenameUndo* const stays = Keep(9);
  Keep(17);
  stays->fileName = W("no such file.dat");
  UndoManagerForm& form = Open();
  dialog_.boxes.answers = {IDYES};
  form.Press(kUndoDeleteAll);
  EXPECT_THAT(dialog_.boxes.shown, ElementsAre(RecordedBox{W("T020F0064"), W("T02100064"), MB_YESNOCANCEL}));
  ASSERT_EQ(store_->sessions.size(), 1u);
  EXPECT_EQ(store_->sessions[0].get(), stays);
  EXPECT_EQ(dialog_[kUndoSessions].rows.size(), 1u);
}

TEST_F(UndoManager, AfterDeleteAllADeletedSessionIsChosenNoMore) {
  Keep(5);
  Keep(9);
  UndoManagerForm& form = Open();
  form.ClickRow(kUndoSessions, 0);
  ASSERT_TRUE(form.Chosen());
  dialog_.boxes.answers = {IDYES};
  form.Press(kUndoDeleteAll);
  EXPECT_EQ(form.Chosen(), nullptr);
  EXPECT_EQ(dialog_[kUndoDate].text, W(""));
  EXPECT_EQ(dialog_[kUndoCount].text, W(""));
}

TEST_F(UndoManager, SessionsWithoutADateComeLast) {
  Keep(5);
  Keep(0);
  Keep(9);
  store_->sessions[1]->entries.resize(1);
  Open();
  EXPECT_EQ(dialog_[kUndoSessions].rows.size(), 3u);
  form_->ClickRow(kUndoSessions, 2);
  EXPECT_EQ(dialog_[kUndoFiles].rows[0][0], W("old0-0"));
}

}  // namespace
}  // namespace Velmora::SDK
