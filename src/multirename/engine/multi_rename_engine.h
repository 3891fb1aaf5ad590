// The session of MultiRename: the compiled rules, the rows in the list's order, the counters, the worker and
// the undo store.
//
// Threads: CompileRules writes rules and rows on the window's thread, only while the worker is idle and
// `busy` is clear; the worker reads them. An engine is made once and lives as long as the extension, which
// holds it as an OwnedEngine.
#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

#include "frame/host/host_app.h"
#include "multirename/engine/conflict_finder.h"
#include "multirename/engine/multi_rename_item.h"
#include "multirename/engine/rename_worker.h"
#include "multirename/engine/run_status.h"
#include "multirename/rules/rename_tag.h"
#include "multirename/rules/replace_list.h"
#include "multirename/saved/multi_rename_undo_store.h"

namespace Velmora::SDK {

class MultiRenameEngine {
 public:
  // Makes the folder of the undo files in the host's configuration folder. The host may be null: then there
  // is no such folder, and nothing can be renamed.
  explicit MultiRenameEngine(IHostApp* hostApp);
  MultiRenameEngine(const MultiRenameEngine&) = delete;
  MultiRenameEngine& operator=(const MultiRenameEngine&) = delete;
  // Ends the worker and waits for its thread, however long that takes.
  ~MultiRenameEngine();

  RenameTags filenameTags;
  RenameTags extensionTags;
  SYSTEMTIME now{};  // local, at the end of the last compilation; what all date tags show (C-606)
  SharedReplaceItems searchItems;
  u32 flags = 0;        // rule_flags.h
  u32 counterNext = 1;  // what the next [C] without parameters shows
  u32 counterStep = 1;
  u32 counterDigits = 2;
  std::vector<MultiRenameItem*> items;          // in the list's order at the last compilation
  SharedItems itemsOwner;                       // keeps them while the worker may look at them
  std::vector<MultiRenameItem*> spareItems;     // of before; nobody reads them, their memory is for the next
  std::shared_ptr<MultiRenameUndo> restoreSet;  // what the next restore run takes back
  MultiRenameUndoStore undoStore;
  HWND notifyWindow = nullptr;   // receives the worker's messages; changed only while that is idle
  WStringView currentBase;       // of the row that is being computed: its old name,
  WStringView currentExtension;  // without its dot
  MultiRenameItem* currentItem = nullptr;
  IHostApp* host;
  // Gives the values of [?...]; null: there are none. Changed on any thread, also while the worker asks it:
  // the host's lives as long as the host.
  std::atomic<IHostPropertyManager*> propertyManager{nullptr};
  RunStatus status;
  std::atomic<bool> busy{false};  // the worker computes or runs: no compilation may begin

  // What ComputeName works with, kept from row to row for its memory. The worker's.
  std::optional<ReplaceRules> replaceRules;
  WString nameBeingMade;
  WString extensionBeingMade;
  ConflictFinder conflicts;

  RenameWorker worker;  // last: its thread uses all the others
};

// Ends the worker, waits for its thread as long as `patience` says, and deletes the engine. An engine whose
// worker still runs then, in a rename of the host's, is left to it and never freed, and the module stays
// loaded.
struct EngineCloser {
  void operator()(MultiRenameEngine* engine) const;

  DWORD patience = 3000;  // milliseconds
};
using OwnedEngine = std::unique_ptr<MultiRenameEngine, EngineCloser>;

// What the panel's controls hold.
struct RuleInput {
  SharedItems itemsOwner;               // the set that the rows are of
  std::vector<MultiRenameItem*> items;  // the rows in the order of the list
  WString filenameTemplate;             // 1024 characters of each text are read
  WString extensionTemplate;
  WString startAt;
  WString stepBy;
  WString digits;
  u32 caseRule = 0;
  u32 searchFlags = 0;             // of SearchFlag
  SharedReplaceItems searchItems;  // without the quotes of the panel's list; may be null
};

// Takes the rules and rows over, and the local time. False, with the engine as it was but for the error in
// its status, if a search text is no regular expression and should be one. Called on the window's
// thread with the worker idle, when `busy` is clear; a caller that has not stopped the worker waits here, in
// steps of 150 ms, until it is.
bool CompileRules(MultiRenameEngine& engine, RuleInput input);

// Computes the new name of one row. On the worker's thread.
void ComputeName(MultiRenameEngine& engine, MultiRenameItem& item);

// Sets the states of all rows after their names were computed: forbidden characters, and names that equal the
// first row's. On the worker's thread.
void CheckConflicts(MultiRenameEngine& engine);

// Both for all rows, as a preview does it. Stops at the next row when `abort` is set, and returns false. On
// the worker's thread.
bool ComputeNames(MultiRenameEngine& engine, const std::atomic<bool>& abort);

// Appends the value of one tag for the row that is being computed. A counter moves on.
void AppendTagValue(MultiRenameEngine& engine, RenameTag& tag, WString& text);

// The text of a property of the row that is being computed, before its range; nothing after an exception of
// the host, which becomes a word without a range (C-609).
std::optional<WString> PropertyText(MultiRenameEngine& engine, const RenameTag& tag);

// Applies the case rule of the flag word.
void ApplyCaseRule(u32 flags, WString& name, WString& extension);

}  // namespace Velmora::SDK
