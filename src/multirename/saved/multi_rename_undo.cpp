#include "multirename/saved/multi_rename_undo.h"

#include "multirename/rules/date_text.h"
#include "multirename/rules/padded_number.h"

namespace Velmora::SDK {

void MultiRenameUndo::FromRows(std::span<MultiRenameItem* const> rows, bool onlyRenamed) {
  entries.reserve(entries.size() + rows.size());
  for (const MultiRenameItem* const row : rows) {
    if (onlyRenamed && row->state != StateRenamed) continue;
    entries.push_back({row->folderPath, row->newName, row->oldName});
  }
}

const WString& MultiRenameUndo::GetFileName() {
  if (!fileName.empty()) return fileName;
  fileName = W("MultiRenameUndoData-");
  AppendPadded(fileName, date.wYear, 0);
  for (const WORD field : {date.wMonth, date.wDay}) {
    fileName += W('-');
    AppendPadded(fileName, field, 2);
  }
  fileName += W('-');
  for (const WORD field : {date.wHour, date.wMinute, date.wSecond}) AppendPadded(fileName, field, 2);
  fileName += W(".dat");
  return fileName;
}

WString DateText(const MultiRenameUndo& session) {
  return FormatDate(session.date, LocaleFormat(LOCALE_SSHORTDATE)) + W(' ') +
         FormatTime(session.date, LocaleFormat(LOCALE_STIMEFORMAT));
}

}  // namespace Velmora::SDK
