// MultiRename without its window: the engine in this process, with all services of the host.
#pragma once

#include <string>
#include <vector>

#include "host/rename/rename_rules.h"
#include "host/services/host_app.h"
#include "multirename/engine/multi_rename_engine.h"

namespace QxHost {

class RenameSession {
 public:
  // Creates the folder of the undo files. Throws ModuleFailure if the engine's thread cannot be created.
  explicit RenameSession(Shared& shared);

  // Reads the selection and computes the new names. Throws BadCall for an invalid regular expression.
  void Preview(const RenameRules& rules);

  // The rows in the order of the selection.
  const std::vector<Velmora::SDK::MultiRenameItem*>& Rows() const { return engine_->items; }

  // Returns how often a search took too long and left a name or an extension unchanged.
  std::size_t AbortedSearches() const {
    return engine_->replaceRules ? engine_->replaceRules->AbortedSearches() : 0;
  }

  // Returns whether a row prevents a run from starting.
  bool IsBlocked() const;

  // Returns the result that the host would report for each row: 0, 10 for a rename to the present name, or an
  // error number.
  std::vector<u32> PredictResults();

  // Returns the renames of a run, without those that the host would refuse and without a date.
  Velmora::SDK::MultiRenameUndo Planned();

  // Returns whether the renames found by the last call of PredictResults or Planned can be done in any order.
  bool AreIndependent() const { return areIndependent_; }

  // Renames all rows. Writes no undo file, which is left to the caller (run_undo.h). Does not check again
  // what PredictResults or Planned has found. After an interruption, for which the caller watches, renames no
  // further rows.
  void Run();

  // Restores the files of a session, each to exactly the name that it had.
  void Restore(const Velmora::SDK::MultiRenameUndo& session);

  // Returns the session of the last run, including files that a failed exchange of names has left with a
  // temporary name; null if nothing was renamed.
  Velmora::SDK::MultiRenameUndo* Written();

  // Returns the number of renames that the last run has done.
  u32 Succeeded() const { return engine_->status.succeeded; }

  u32 Failed() const { return engine_->status.failed; }

  // Counts additional files as failed, which the last run has not tried.
  void AddFailed(std::size_t count) { engine_->status.failed += static_cast<u32>(count); }

  // Returns a text such as "3 Renamed, 1 Failed", with the renames that an interruption has prevented.
  std::string StatusText() const;

  Velmora::SDK::MultiRenameUndoStore& UndoStore() { return engine_->undoStore; }
  HostApp& Host() { return host_; }

 private:
  // Wakes the worker for its job and waits until it has completed.
  void Work();
  // Adds the files that have a temporary name after the run to its session.
  void AddTemporarilyNamed();
  // Throws ModuleFailure if fewer than this number of renames were tried.
  void CheckAllTried(std::size_t renames) const;

  Shared& shared_;
  HostApp host_;
  bool areIndependent_ = false;  // the renames of the rows, as PredictResults has found
  Velmora::SDK::OwnedEngine engine_;
};

}  // namespace QxHost
