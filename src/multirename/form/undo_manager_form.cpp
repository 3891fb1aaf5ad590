#include "multirename/form/undo_manager_form.h"

#include <algorithm>
#include <functional>
#include <string>

#include "frame/services/language_text.h"
#include "multirename/form/dialog_texts.h"
#include "multirename/form/rename_texts.h"

namespace Velmora::SDK {

namespace {

constexpr ControlTextRow kUndoManagerTexts[] = {
    {kWindowTitle, kRenameTextUndoTitle},  {kUndoSessionsLabel, kRenameTextUndoSessions},
    {kUndoDateLabel, kRenameTextUndoDate}, {kUndoFilesLabel, kRenameTextUndoFiles},
    {kUndoDelete, kRenameTextUndoDelete},  {kUndoDeleteAll, kRenameTextUndoDeleteAll},
    {kUndoLoad, kRenameTextUndoLoad},      {kUndoClose, kRenameTextUndoClose},
};

struct UndoColumn {
  TextId heading;
  int width;
};
constexpr UndoColumn kSessionColumns[] = {{kRenameTextUndoDateHeading, 150},
                                          {kRenameTextUndoItemsHeading, 100},
                                          {kRenameTextUndoStateHeading, 200}};
constexpr UndoColumn kFileColumns[] = {
    {kRenameTextUndoOldHeading, 250}, {kRenameTextUndoNewHeading, 250}, {kRenameTextUndoFolderHeading, 200}};

std::vector<TableColumn> UndoColumns(IHostApp& host, std::span<const UndoColumn> rows) {
  std::vector<TableColumn> columns;
  for (const UndoColumn& row : rows) columns.push_back({LanguageText(host, row.heading), row.width});
  return columns;
}

// Returns the key for the order of sessions; 0 for an invalid date.
u64 TimeOfSession(const MultiRenameUndo& session) {
  FILETIME time{};
  if (!SystemTimeToFileTime(&session.date, &time)) return 0;
  return static_cast<u64>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

WString EntryCountText(const MultiRenameUndo& session) {
  return FromUtf8(std::to_string(session.entries.size()));
}

}  // namespace

void UndoManagerForm::Open(DialogView& view) {
  view_ = &view;
  SetDialogTexts(view, host_, kUndoManagerTexts, {});
  view.SetColumns(kUndoSessions, UndoColumns(host_, kSessionColumns));
  view.SetColumns(kUndoFiles, UndoColumns(host_, kFileColumns));
  FillSessions();
  const auto found = std::ranges::find(rows_, loaded_);
  if (!loaded_ || found == rows_.end()) return;
  view.SelectRow(kUndoSessions, static_cast<int>(found - rows_.begin()));
  Show(**found);
}

void UndoManagerForm::Press(int control) {
  if (control == kUndoDelete) Delete();
  if (control == kUndoDeleteAll) DeleteAll();
  if (control == kUndoLoad || control == kUndoClose) view_->Close(control);
}

void UndoManagerForm::ClickRow(int control, int row) {
  if (control != kUndoSessions) return;
  if (const auto index = static_cast<std::size_t>(row); row >= 0 && index < rows_.size()) Show(*rows_[index]);
}

// Lists the newest session first.
void UndoManagerForm::FillSessions() {
  view_->SetRows(kUndoFiles, {});
  rows_.clear();
  for (const auto& session : store_.sessions) rows_.push_back(session.get());
  std::ranges::stable_sort(rows_, std::greater<>(),
                           [](const MultiRenameUndo* session) { return TimeOfSession(*session); });
  TableRows cells;
  for (const MultiRenameUndo* const session : rows_) {
    cells.push_back({DateText(*session), EntryCountText(*session),
                     session->haveRestored ? LanguageText(host_, kRenameTextUndoRestored) : WString()});
  }
  view_->SetRows(kUndoSessions, cells);
}

void UndoManagerForm::Show(MultiRenameUndo& session) {
  chosen_ = &session;
  TableRows cells;
  for (const MultiRenameUndoEntry& entry : session.entries)
    cells.push_back({entry.oldName, entry.newName, entry.folder});
  view_->SetRows(kUndoFiles, cells);
  view_->SetText(kUndoDate, DateText(session));
  view_->SetText(kUndoCount,
                 LanguageText(host_, kRenameTextUndoItemsHeading) + W(" : ") + EntryCountText(session));
}

void UndoManagerForm::Delete() {
  const int row = view_->MarkedRow(kUndoSessions);
  const auto index = static_cast<std::size_t>(row);
  if (row < 0 || index >= rows_.size()) {
    FillSessions();
    return;
  }
  if (!Confirms(kRenameTextUndoDeleteTitle, kRenameTextUndoDeleteQuestion)) return;
  if (!store_.Delete(rows_[index])) {
    view_->ShowBox(LanguageText(host_, kRenameTextUndoDeleteTitle),
                   LanguageText(host_, kRenameTextUndoDeleteFailed), MB_OK | MB_ICONERROR);
    return;
  }
  DropDeleted();
  FillSessions();
}

void UndoManagerForm::DeleteAll() {
  if (!Confirms(kRenameTextUndoDeleteAllTitle, kRenameTextUndoDeleteAllQuestion)) return;
  store_.DeleteAll();
  DropDeleted();
  FillSessions();
}

bool UndoManagerForm::Confirms(TextId title, TextId question) {
  return view_->ShowBox(LanguageText(host_, title), LanguageText(host_, question), MB_YESNOCANCEL) == IDYES;
}

void UndoManagerForm::DropDeleted() {
  if (store_.Contains(chosen_)) return;
  chosen_ = nullptr;
  view_->SetText(kUndoDate, {});
  view_->SetText(kUndoCount, {});
}

}  // namespace Velmora::SDK
