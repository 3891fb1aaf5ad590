#include "host/rename/rename_session.h"

#include <algorithm>
#include <utility>

#include "host/output/failures.h"
#include "host/rename/interruption.h"
#include "host/rename/planned_renames.h"
#include "host/rename/temporary_name.h"
#include "host/system/paths.h"

namespace QxHost {

namespace {

using namespace Velmora::SDK;

// The extension with the window, so that both use the same settings and histories.
constexpr u32 kMultiRenameIndex = 2;
constexpr const char* kMultiRenameModule = "QXMultiRename";

WString SearchMistake(const RenameRules& rules) {
  WString message;
  const u32 number = ValidateExpressions(rules.pairs, message);
  return number == 0 ? WString() : rules.pairs[number - 1].first;
}

}  // namespace

RenameSession::RenameSession(Shared& shared)
    : shared_(shared),
      host_(shared, kMultiRenameIndex, kMultiRenameModule),
      engine_(new MultiRenameEngine(&host_)) {
  engine_->propertyManager = host_.GetPropertyManager();
  if (!engine_->worker.Start()) throw ModuleFailure("cannot create a thread for the renames");
}

void RenameSession::Work() {
  engine_->worker.Wake();
  if (!engine_->worker.WaitUntilIdle()) throw ModuleFailure("cannot wait for the renames");
}

void RenameSession::Preview(const RenameRules& rules) {
  const SharedItems rows = ReadSelection(host_);
  if (!CompileRules(*engine_, InputOf(rules, rows))) {
    throw BadCall("\"" + ToUtf8(SearchMistake(rules)) +
                  "\" is not a regular expression: " + ToUtf8(engine_->status.ErrorText()));
  }
  areIndependent_ = false;
  engine_->worker.WantPreview();
  Work();
}

bool RenameSession::IsBlocked() const {
  return std::ranges::any_of(engine_->items,
                             [](const MultiRenameItem* row) { return BlocksStart(row->state); });
}

std::vector<u32> RenameSession::PredictResults() {
  if (!shared_.fileOperation.IsInOrder()) {
    std::vector<RenameToPredict> renames;
    renames.reserve(engine_->items.size());
    for (const MultiRenameItem* const row : engine_->items) {
      renames.push_back({static_cast<const FileItem*>(row->hostItem), row->newName});
    }
    PredictedRenames predicted = PredictRenames(renames, shared_.listings);
    areIndependent_ = predicted.areIndependent;
    return std::move(predicted.results);
  }
  Output silence([](std::string_view) { return true; }, [](std::string_view) { return true; });
  const std::unique_ptr<Reporter> silentReporter = MakeProseReporter(silence);
  FileOperation dryOperation(shared_.items, *silentReporter, silence, true, true);
  IHostRenameBatch* const batch = dryOperation.CreateRenameBatch();
  for (MultiRenameItem* const row : engine_->items) {
    batch->AddByItem(row->hostItem, row->newName.c_str(), row);
  }
  dryOperation.RunBatch(batch, nullptr);
  std::vector<u32> results;
  for (u32 index = 0, count = batch->Count(); index < count; ++index) {
    results.push_back(batch->At(index)->ResultCode());
  }
  batch->Release();
  return results;
}

MultiRenameUndo RenameSession::Planned() {
  const std::vector<u32> predicted = PredictResults();
  MultiRenameUndo planned;
  planned.entries.reserve(predicted.size());
  for (std::size_t index = 0; index < predicted.size(); ++index) {
    const MultiRenameItem& row = *engine_->items[index];
    if (predicted[index] != kRenameDone) continue;
    planned.entries.push_back({row.folderPath, WString(NameToMake(row.newName)), row.oldName});
  }
  return planned;
}

void RenameSession::Run() {
  MultiRenameUndoStore& store = engine_->undoStore;
  // A store that is marked as loaded records the session of the run. The sessions of other files are not
  // needed.
  store.loaded = true;
  store.sessions.clear();
  if (areIndependent_) shared_.fileOperation.ExpectIndependent();
  engine_->worker.WantRename(false);
  Work();
  CheckAllTried(engine_->items.size());
  AddTemporarilyNamed();
}

void RenameSession::AddTemporarilyNamed() {
  constexpr unsigned kMaxNamesAside = 16;
  auto& sessions = engine_->undoStore.sessions;
  for (const MultiRenameItem* const row : engine_->items) {
    if (row->state != StateFailed) continue;
    const WStringView name = static_cast<const FileItem*>(row->hostItem)->Name();
    if (name == row->oldName) continue;
    for (unsigned number = 1; number <= kMaxNamesAside; ++number) {
      if (name != TemporaryName(row->oldName, number)) continue;
      if (sessions.empty()) sessions.push_back(std::make_unique<MultiRenameUndo>());
      sessions.back()->entries.push_back({row->folderPath, WString(name), row->oldName});
      break;
    }
  }
}

MultiRenameUndo* RenameSession::Written() {
  const auto& sessions = engine_->undoStore.sessions;
  return sessions.empty() ? nullptr : sessions.back().get();
}

void RenameSession::Restore(const MultiRenameUndo& session) {
  const SharedItems rows = LoadSession(session);
  std::vector<MultiRenameItem*> order;
  for (MultiRenameItem& row : *rows) {
    // If the system cuts a name, the file does not have the name that the run requested.
    if (const WStringView made = NameToMake(row.newName); !made.empty()) row.newName.resize(made.size());
    order.push_back(&row);
  }
  FileOperation& operation = shared_.fileOperation;
  operation.DeferUnreachable();
  u32 succeeded = 0;
  u32 failed = 0;
  u32 ignored = 0;
  for (;;) {
    auto restored = std::make_shared<MultiRenameUndo>();
    restored->FromRows(order, false);
    engine_->restoreSet = std::move(restored);
    engine_->worker.WantRestore();
    Work();
    CheckAllTried(order.size());
    RunStatus& status = engine_->status;
    const bool isAnyDone = status.succeeded != 0;
    status.succeeded += std::exchange(succeeded, status.succeeded + succeeded);
    status.ignored += std::exchange(ignored, status.ignored + ignored);
    status.failed += std::exchange(failed, status.failed + failed);
    // Paths that were too long may be reachable now that the folders above have their old names.
    std::vector<MultiRenameItem*> again;
    const std::vector<u32>& results = operation.LastResults();
    for (std::size_t index = 0; index < results.size() && index < order.size(); ++index) {
      if (FileOperation::IsUnreachable(results[index])) again.push_back(order[index]);
    }
    if (again.empty() || !isAnyDone || operation.IsDry() || IsInterrupted()) break;
    failed -= static_cast<u32>(again.size());
    operation.DiscardUnreachable();
    order = std::move(again);
  }
  operation.ReportUnreachable();
}

std::string RenameSession::StatusText() const {
  std::string text = ToUtf8(Velmora::SDK::StatusText(engine_->status));
  if (const std::size_t untried = shared_.fileOperation.Untried(); untried != 0) {
    text += ": interrupted, and " + std::to_string(untried) + " not tried";
  }
  return text;
}

void RenameSession::CheckAllTried(std::size_t renames) const {
  const RunStatus& status = engine_->status;
  const std::size_t tried =
      std::size_t{status.succeeded} + std::size_t{status.failed} + std::size_t{status.ignored};
  if (tried == renames) return;
  throw ModuleFailure("the run ended early: " + std::to_string(tried) + " of " + std::to_string(renames) +
                      " renames were tried");
}

}  // namespace QxHost
