// The session of MultiRename: the compiled rules, the rows in the list's order, the counters, the worker and
// the undo store.
//
// Implemented in multi_rename_engine.cpp and check_conflicts.cpp (CheckConflicts, ComputeNames), and in the
// folder of the rules: compile_rules.cpp, compute_name.cpp, tag_values.cpp (AppendTagValue),
// property_text.cpp and case_rules.cpp (ApplyCaseRule).
//
// Threads: CompileRules writes rules and rows on the window's thread, and only while the worker is idle and
// `busy` is clear; the worker reads them. There is one engine, which lives as long as the extension; the
// extension owns it as an OwnedEngine.
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
  // Creates the folder of the undo files in the host's configuration folder. The host may be null; then there
  // is no such folder, and nothing can be renamed.
  explicit MultiRenameEngine(IHostApp* hostApp);
  MultiRenameEngine(const MultiRenameEngine&) = delete;
  MultiRenameEngine& operator=(const MultiRenameEngine&) = delete;
  // Ends the worker and waits for its thread without a time limit.
  ~MultiRenameEngine();

  RenameTags filenameTags;
  RenameTags extensionTags;
  SYSTEMTIME now{};  // local, at the end of the last compilation; the value of all date tags (C-606)
  SharedReplaceItems searchItems;
  u32 flags = 0;        // rule_flags.h
  u32 counterNext = 1;  // the value of the next [C] without parameters
  u32 counterStep = 1;
  u32 counterDigits = 2;
  std::vector<MultiRenameItem*> items;          // in the list's order at the last compilation
  SharedItems itemsOwner;                       // keeps the items alive while the worker uses them
  std::vector<MultiRenameItem*> spareItems;     // earlier items, kept for their memory
  std::shared_ptr<MultiRenameUndo> restoreSet;  // the session that the next restore run undoes
  MultiRenameUndoStore undoStore;
  HWND notifyWindow = nullptr;   // receives the worker's messages; changed only while the worker is idle
  WStringView currentBase;       // of the row that is being computed: its old base name
  WStringView currentExtension;  // and its old extension without the dot
  MultiRenameItem* currentItem = nullptr;
  IHostApp* host;
  // Provides the values of [?...] tags; if null, they are empty. Any thread may change it, even while the
  // worker uses it, as the host's managers live as long as the host.
  std::atomic<IHostPropertyManager*> propertyManager{nullptr};
  RunStatus status;
  std::atomic<bool> busy{false};  // the worker computes or runs; no compilation may begin

  // The working memory of ComputeName, reused from row to row. Used by the worker; CompileRules sets
  // replaceRules.
  std::optional<ReplaceRules> replaceRules;
  WString nameBeingMade;
  WString extensionBeingMade;
  ConflictFinder conflicts;

  RenameWorker worker;  // last, because its thread uses all other members
};

// Ends the worker, waits for its thread for at most `timeout`, and deletes the engine. If the worker is
// still running then, in a rename of the host, the engine is never freed and the module stays loaded.
struct EngineCloser {
  void operator()(MultiRenameEngine* engine) const;

  DWORD timeout = 3000;  // milliseconds
};
using OwnedEngine = std::unique_ptr<MultiRenameEngine, EngineCloser>;

// The contents of the panel's controls.
struct RuleInput {
  SharedItems itemsOwner;               // the set that contains the rows
  std::vector<MultiRenameItem*> items;  // the rows in the order of the list
  WString filenameTemplate;             // of each text, only the first 1024 characters are used
  WString extensionTemplate;
  WString startAt;
  WString stepBy;
  WString digits;
  u32 caseRule = 0;
  u32 searchFlags = 0;             // of SearchFlag
  SharedReplaceItems searchItems;  // without the quotes in the panel's list; may be null
};

// Stores the rules, the rows and the local time in the engine. If a search text must be a regular expression
// and is not valid, sets only the error in the engine's status and returns false. Call it on the window's
// thread while the worker is idle; if `busy` is still set, it waits, in steps of 150 ms, until it is clear.
bool CompileRules(MultiRenameEngine& engine, RuleInput input);

// Computes the new name of one row. Runs on the worker's thread.
void ComputeName(MultiRenameEngine& engine, MultiRenameItem& item);

// Sets the states of all rows after their names were computed: forbidden characters, and names that equal the
// first row's. Runs on the worker's thread.
void CheckConflicts(MultiRenameEngine& engine);

// Does both for all rows, for a preview. If `abort` is set, stops at the next row and returns false. Runs on
// the worker's thread.
bool ComputeNames(MultiRenameEngine& engine, const std::atomic<bool>& abort);

// Appends the value of one tag for the row that is being computed. Advances a counter.
void AppendTagValue(MultiRenameEngine& engine, RenameTag& tag, WString& text);

// Returns the text of a property of the row that is being computed, before its range is applied. Returns
// std::nullopt if the host throws; the tag's value is then a word without a range (C-609).
std::optional<WString> PropertyText(MultiRenameEngine& engine, const RenameTag& tag);

// Applies the case rule of the flag word.
void ApplyCaseRule(u32 flags, WString& name, WString& extension);

}  // namespace Velmora::SDK
