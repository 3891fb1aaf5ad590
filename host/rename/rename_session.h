// MultiRename without its window: the engine in this process, with all of the host at its service.
#pragma once

#include <string>
#include <vector>

#include "host/rename/rename_rules.h"
#include "host/services/host_app.h"
#include "multirename/engine/multi_rename_engine.h"

namespace QxHost {

class RenameSession {
 public:
  // Makes the folder of undo files. Throws ModuleFailure if the engine's thread cannot be had.
  explicit RenameSession(Shared& shared);

  // Reads the selection and computes its new names. Throws BadCall for a text that is no regular expression.
  void Preview(const RenameRules& rules);

  // In the order of the selection.
  const std::vector<Velmora::SDK::MultiRenameItem*>& Rows() const { return engine_->items; }

  // The names and extensions that a search left as they were because it took too long.
  std::size_t GaveUp() const { return engine_->replaceRules ? engine_->replaceRules->GaveUp() : 0; }

  // No run starts with such a row.
  bool IsBlocked() const;

  // What the host would say of each row's rename: 0, 10 for a name that stays, or an error number.
  std::vector<u32> Outlook();

  // What a run is to rename, as far as the host would not refuse it; without a date.
  Velmora::SDK::MultiRenameUndo Planned();

  // Whether what Outlook or Planned has found last comes to the same in any order.
  bool AreIndependent() const { return areIndependent_; }

  // Renames all rows, and leaves the undo file to the caller, who knows how to keep it safe. What Outlook or
  // Planned has found of the rows is not looked for again. An interruption, for which the caller watches,
  // leaves the rest as it is.
  void Run();

  // Takes a session back, each file to the very name that it had.
  void Restore(const Velmora::SDK::MultiRenameUndo& session);

  // The session of the last run, with the files that a failed exchange of names has left under a temporary
  // name; null if nothing was renamed.
  Velmora::SDK::MultiRenameUndo* Written();

  // The renames of the last run that were done.
  u32 Succeeded() const { return engine_->status.succeeded; }

  u32 Failed() const { return engine_->status.failed; }

  // Counts files as failed that the last run was not asked for.
  void AddFailed(std::size_t count) { engine_->status.failed += static_cast<u32>(count); }

  // "3 Renamed, 1 Failed", with what an interruption left out.
  std::string StatusText() const;

  Velmora::SDK::MultiRenameUndoStore& UndoStore() { return engine_->undoStore; }
  HostApp& Host() { return host_; }

 private:
  // Lets the worker do what it was asked to, to its end.
  void Work();
  // Adds the files to the session of the run that have a temporary name after it.
  void AddLeftAside();
  // Throws ModuleFailure if fewer renames than these were tried.
  void CheckAllTried(std::size_t renames) const;

  Shared& shared_;
  HostApp host_;
  bool areIndependent_ = false;  // the rows, as Outlook has found
  Velmora::SDK::OwnedEngine engine_;
};

}  // namespace QxHost
