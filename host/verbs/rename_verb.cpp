#include "host/verbs/rename_verb.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "host/command_line/help_text.h"
#include "host/output/failures.h"
#include "host/rename/interruption.h"
#include "host/rename/queued_rename.h"
#include "host/rename/rename_properties.h"
#include "host/rename/rename_saved.h"
#include "host/rename/rename_session.h"
#include "host/rename/rename_undo.h"
#include "host/rename/run_undo.h"
#include "host/system/paths.h"
#include "host/verbs/run.h"

namespace QxHost {
namespace {

using Velmora::SDK::BlocksStart;
using Velmora::SDK::kRenameDone;
using Velmora::SDK::kRenameIgnored;
using Velmora::SDK::MultiRenameItem;
using Velmora::SDK::StateDuplicate;
using Velmora::SDK::StateInvalidName;

constexpr std::size_t kWidestNameColumn = 60;  // characters; longer names push the new ones aside

std::size_t CharactersOf(WStringView text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](WCHAR unit) { return unit < 0xDC00 || unit > 0xDFFF; }));
}

std::string RowCount(std::size_t count) { return std::to_string(count) + (count == 1 ? " row" : " rows"); }

// Returns the reason why the row prevents a run. Names are compared regardless of their folders, so the text
// says so if the folders differ.
std::string BlockText(const MultiRenameItem& row, const MultiRenameItem& first) {
  if (row.state == StateDuplicate) {
    if (&row == &first) return "another row gets this name as well";
    const bool isElsewhere = row.folderPath != first.folderPath;
    return std::string("the first row gets this name") +
           (isElsewhere ? "; that it is in another folder does not matter" : "");
  }
  const std::size_t at = row.newName.find_first_of(W("*|\\/:\"<>?"));
  if (row.state != StateInvalidName || at == WString::npos) return "the rename failed";
  return "no name may hold " + ToUtf8(row.newName.substr(at, 1));
}

// Returns the new name as the system will create it: without dots and blanks at its end.
WStringView NameShown(const MultiRenameItem& row) {
  const WStringView made = NameToMake(row.newName);
  return made.empty() || row.newName == row.oldName ? WStringView(row.newName) : made;
}

// The numbers of rows of a preview, by result.
struct PreviewCounts {
  std::size_t renamed = 0;
  std::size_t staying = 0;
  std::size_t refused = 0;
  std::size_t blocking = 0;
};

std::string CountsText(const PreviewCounts& counts, std::size_t rows) {
  std::string text = RowCount(rows) + ": " + std::to_string(counts.renamed) + " to rename";
  if (counts.staying != 0) text += ", " + std::to_string(counts.staying) + " as before (=)";
  if (counts.refused != 0) text += ", " + std::to_string(counts.refused) + " that would be refused (?)";
  if (counts.blocking != 0) text += ", " + std::to_string(counts.blocking) + " in the way of a run (!)";
  return text;
}

class RenameVerb final : public Verb {
 public:
  const char* Name() const override { return "rename"; }
  const char* Help() const override { return "Rename items by rules: MultiRename without its window"; }

  void Declare(CLI::App& app) override {
    AddRest(app, "ITEM", items_,
            "Files and folders, in the order of the counters: /a/b, Z:\\a\\b or relative");
    AddFlag(app, "--run", run_, "Rename; without it only a preview is shown");
    AddOptionalText(app, "--name", "TEMPLATE", rules_.name, "New name without its extension [\"[N]\"]");
    AddOptionalText(app, "--extension", "TEMPLATE", rules_.extension, "New extension, no dot [\"[E]\"]");
    AddOptionalText(app, "--start", "N", rules_.start, "First value of the counter [C] [1]");
    AddOptionalText(app, "--step", "N", rules_.step, "What is added for each [C] [1]");
    AddOptionalText(app, "--digits", "N", rules_.digits, "Digits of the counter, at least [2]");
    AddOptionalText(app, "--case", "RULE", rules_.caseRule, std::string("Letter case: ") + kCaseRuleNames);
    AddTexts(app, "--find", "TEXT", rules_.finds, "Text to replace in the new name; repeatable, in order");
    AddTexts(app, "--replace", "TEXT", rules_.replaces, "What takes its place: one for each --find, or none");
    AddSwitch(app, "--regex", rules_.regex,
              "Each --find is a regular expression (ECMAScript); replaces all matches");
    AddSwitch(app, "--replace-all", rules_.replaceAll, "Replace each occurrence, and not the first alone");
    AddSwitch(app, "--case-sensitive", rules_.caseSensitive, "--find heeds letter case");
    AddOptionalText(app, "--parts", "PART", rules_.parts,
                    "Where --find searches: both (each by itself), name or extension [both]");
    AddOptionalText(app, "--profile", "NAME", rules_.profile,
                    "Start from the rules of a profile; rules that are given as well override them, and "
                    "--no-regex, --no-replace-all and --no-case-sensitive switch its switches off");
    AddOptionalText(app, "--save-profile", "NAME", saveProfile_, "Save the rules as a profile");
    AddFlag(app, "--list-profiles", listProfiles_, "Show all profiles");
    AddOptionalText(app, "--delete-profile", "NAME", deleteProfile_, "Delete a profile");
    AddOptionalText(app, "--pairs", "N", rules_.pairs, "Start from the pairs of the saved list N, 1 to 24");
    AddOptionalText(app, "--save-pairs", "N", savePairs_, "Save the --find and --replace texts as list N");
    AddFlag(app, "--list-pairs", listPairs_, "Show all lists of --save-pairs");
    AddFlag(app, "--no-undo", noUndo_, "Write no undo file");
    AddOptionalText(app, "--undo", "FILE", undo_, "Undo a run: last, or an undo file by name or path");
    AddFlag(app, "--list-undo", listUndo_, "Show the undo files, the newest first");
    AddOptionalText(app, "--delete-undo", "FILE", deleteUndo_,
                    "Delete an undo file: last, all, or by name or path");
    AddFlag(app, "--list-properties", listProperties_, "Show the properties that [?NAME] takes");
  }

  const char* HelpFooter() const override { return kRenameHelp; }
  const std::vector<std::string>& Items() const override { return items_; }

  void CheckDryRun() const override {
    if (saveProfile_ || deleteProfile_ || savePairs_ || deleteUndo_) {
      throw BadCall("--dry-run applies to renames, not to changes of profiles, pairs and undo files");
    }
  }

  int Execute(Run& run) override {
    const std::vector<Action> actions = Actions();
    CheckCall(actions, run.HasItemList());
    run.MakeConfigFolder();
    RenameSession session(run.Host());
    if (!actions.empty()) {
      if (listProperties_) AddColumnsAsProperties(run);
      if (!actions.front().does(run, session)) run.Host().hasFailedFiles = true;
      return 1;
    }
    if (!SaveRules(run, session)) run.Host().hasFailedFiles = true;
    if (!WorksOnItems(run.HasItemList())) return 1;
    const RenameRules rules = RulesOf(rules_, session.Host());
    if (UsesProperty(rules)) {
      AddColumnsAsProperties(run);
      WarnOfUnknownProperties(run.Host(), rules);
    }
    if (rules.pairs.empty() && rules_.AnySearchSwitch()) {
      run.Host().output.Problem(
          "note: --regex, --replace-all, --case-sensitive and --parts do nothing without --find, --pairs or "
          "a "
          "profile with pairs");
    }
    session.Preview(rules);
    if (const std::size_t count = session.AbortedSearches(); count != 0) {
      run.Host().output.Problem("note: the search took too long and was stopped in " + std::to_string(count) +
                                (count == 1 ? " name" : " names") +
                                ", which it leaves as they are; a simpler expression finds more");
    }
    run_ ? Rename(run, session, rules) : Show(run, session);
    return 1;
  }

 private:
  // An action of a call other than renaming by rules. `does` returns false if it failed.
  struct Action {
    const char* option;
    std::function<bool(Run&, RenameSession&)> does;
  };

  std::vector<Action> Actions() const {
    std::vector<Action> actions;
    if (undo_) {
      actions.push_back({"--undo", [this](Run& run, RenameSession& session) {
                           UndoRenames(run.Host(), session, *undo_, run.IsDry());
                           return true;
                         }});
    }
    if (listUndo_) {
      actions.push_back({"--list-undo", [](Run& run, RenameSession& session) {
                           ListUndoFiles(run.Host(), session.UndoStore(), run.ConfigOption());
                           return true;
                         }});
    }
    if (deleteUndo_) {
      actions.push_back({"--delete-undo", [this](Run& run, RenameSession& session) {
                           return DeleteUndoFiles(run.Host(), session.UndoStore(), *deleteUndo_);
                         }});
    }
    if (listProfiles_) {
      actions.push_back({"--list-profiles", [](Run& run, RenameSession& session) {
                           ListRenameProfiles(run.Host(), session.Host());
                           return true;
                         }});
    }
    if (deleteProfile_) {
      actions.push_back({"--delete-profile", [this](Run& run, RenameSession& session) {
                           return DeleteRenameProfile(run.Host(), session.Host(), *deleteProfile_);
                         }});
    }
    if (listPairs_) {
      actions.push_back({"--list-pairs", [](Run& run, RenameSession& session) {
                           ListPairs(run.Host(), session.Host());
                           return true;
                         }});
    }
    if (listProperties_) {
      actions.push_back({"--list-properties", [](Run& run, RenameSession&) {
                           Shared& shared = run.Host();
                           for (const FileProperty& property : shared.properties.All()) {
                             shared.reporter.Property(property.name, property.displayName);
                           }
                           return true;
                         }});
    }
    return actions;
  }

  bool WorksOnItems(bool hasItemList) const { return !items_.empty() || hasItemList; }

  void CheckCall(const std::vector<Action>& actions, bool hasItemList) const {
    if (actions.size() > 1) {
      throw BadCall(std::string(actions[0].option) + " and " + actions[1].option + " are two calls");
    }
    const bool hasRules = rules_.AnyGiven() || run_ || noUndo_ || saveProfile_ || savePairs_;
    if (!actions.empty() && (hasRules || WorksOnItems(hasItemList))) {
      throw BadCall(std::string(actions[0].option) + " takes no ITEMs, no rules and no --run");
    }
    if (!actions.empty()) return;
    if (noUndo_ && !run_) throw BadCall("--no-undo is for --run, which is missing");
    if (WorksOnItems(hasItemList)) return;
    if (run_ || (!saveProfile_ && !savePairs_)) {
      throw BadCall("rename needs ITEMs: files and folders to rename. qxhost rename --help shows more");
    }
  }

  bool SaveRules(Run& run, RenameSession& session) const {
    if (!saveProfile_ && !savePairs_) return true;
    const RenameRules rules = RulesOf(rules_, session.Host());
    if (savePairs_ && rules.pairs.empty()) {
      throw BadCall("--save-pairs saves the pairs of --find and --replace, and there are none");
    }
    CheckExpressions(rules);
    bool isSaved = !saveProfile_ || SaveRenameProfile(run.Host(), session.Host(), *saveProfile_, rules);
    if (savePairs_ && !SavePairs(run.Host(), session.Host(), *savePairs_, rules)) isSaved = false;
    return isSaved;
  }

  PreviewCounts ReportRows(Run& run, RenameSession& session) const {
    const std::vector<MultiRenameItem*>& rows = session.Rows();
    // Programs get only the states; they get the results of renames from a dry run.
    const std::vector<u32> predicted = run.IsForProgram() ? std::vector<u32>() : session.PredictResults();
    RowEvent event;
    for (const MultiRenameItem* const row : rows) {
      event.nameWidth = std::max(event.nameWidth, CharactersOf(row->oldName));
    }
    event.nameWidth = std::min(event.nameWidth, kWidestNameColumn);
    PreviewCounts counts;
    for (std::size_t index = 0; index < rows.size(); ++index) {
      const MultiRenameItem& row = *rows[index];
      const u32 result = index < predicted.size() ? predicted[index] : u32{kRenameDone};
      event.folder = row.folderPath;
      event.oldName = row.oldName;
      event.newName = NameShown(row);
      event.state = row.state;
      event.blocks = BlocksStart(row.state);
      event.stays = !event.blocks && result == kRenameIgnored;
      event.objection.clear();
      if (event.blocks) {
        ++counts.blocking;
        event.objection = BlockText(row, *rows.front());
      } else if (result == kRenameIgnored) {
        ++counts.staying;
      } else if (result == kRenameDone) {
        ++counts.renamed;
      } else {
        ++counts.refused;
        event.objection = RenameErrorText(PathInFolder(row.folderPath, row.oldName), result);
      }
      run.Host().reporter.Row(event);
    }
    return counts;
  }

  static std::string UndoCallOf(Run& run, const WString& fileName) {
    return "qxhost " + run.ConfigOption() + "rename --undo " + ToUtf8(fileName);
  }

  // After a run that has left the undo file from before it.
  static void SayHowToUndo(Run& run, const WString& planName) {
    if (planName.empty()) return;
    run.Host().output.Problem("what was renamed can be undone: " + UndoCallOf(run, planName));
  }

  // Warns before a run, so that the user can rename fewer files at once.
  static void WarnOfLongUndoFile(Run& run, RenameSession& session) {
    const std::size_t beyond = RenamesBeyondUndo(session.Rows());
    if (beyond == 0) return;
    run.Host().output.Problem(
        "note: some " + std::to_string(beyond) + " of these renames could not be undone: of an undo file " +
        std::to_string(Velmora::SDK::kMaxUndoFileBytes) + " bytes are read. Rename fewer at once");
  }

  void Show(Run& run, RenameSession& session) const {
    const PreviewCounts counts = ReportRows(run, session);
    std::string text = CountsText(counts, session.Rows().size());
    if (counts.blocking == 0 && counts.renamed != 0) text += ". Nothing is renamed yet; --run does it";
    run.Host().reporter.Say(text);
    WarnOfLongUndoFile(run, session);
  }

  void Rename(Run& run, RenameSession& session, const RenameRules& rules) const {
    Shared& shared = run.Host();
    if (session.Rows().empty()) {
      shared.reporter.Say("There are no ITEMs: nothing was renamed");
      return;
    }
    if (session.IsBlocked()) {
      const PreviewCounts counts = ReportRows(run, session);
      shared.reporter.Say(CountsText(counts, session.Rows().size()));
      shared.output.Problem("nothing was renamed: change the rules, or leave out the rows marked with !");
      shared.hasFailedFiles = true;
      return;
    }
    const bool keepsUndo = !noUndo_ && !run.IsDry();
    RunUndo undoFile(shared.output, session.UndoStore());
    if (keepsUndo) {
      undoFile.Lock();
      // Another run may have changed names since they were read.
      shared.listings.clear();
    }
    if (!noUndo_) WarnOfLongUndoFile(run, session);
    Velmora::SDK::MultiRenameUndo* written = nullptr;
    UndoCheck check = UndoCheck::kNotWhole;
    {
      // The reader of the output may be slow or end this program, so write the undo file first.
      const HeldOutput held(shared.output);
      const InterruptionWatch watch;
      if (keepsUndo && !undoFile.Begin(session.Planned(), session.AreIndependent())) {
        shared.hasFailedFiles = true;
        return;
      }
      if (!run.IsDry()) KeepTemplates(session.Host(), rules);
      try {
        session.Run();
      } catch (const ModuleFailure&) {
        if (keepsUndo) SayHowToUndo(run, undoFile.PlanName());
        throw;
      }
      written = session.Written();
      if (keepsUndo && undoFile.End(written) && written)
        check = CheckUndoFile(shared.output, session.UndoStore(), *written, undoFile.Noted());
      if (check == UndoCheck::kKeepsNone) undoFile.Delete();
      undoFile.Unlock();
    }
    RowEvent event;
    event.isOutcome = true;
    for (const MultiRenameItem* const row : session.Rows()) {
      event.folder = row->folderPath;
      event.oldName = row->oldName;
      event.newName = NameShown(*row);
      event.state = row->state;
      shared.reporter.Row(event);
    }
    shared.reporter.Say(run.IsDry() ? "Nothing was renamed: this was a dry run" : session.StatusText());
    if (!keepsUndo || !written) return;
    if (check == UndoCheck::kKeepsNone) {
      shared.output.Problem("the run cannot be undone, so it has no undo file");
      return;
    }
    if (check == UndoCheck::kNotWhole) {
      SayHowToUndo(run, undoFile.PlanName());
      shared.hasFailedFiles = true;
      return;
    }
    UndoEvent undo = UndoEventOf(session.UndoStore(), *written);
    undo.undoCall = UndoCallOf(run, written->fileName);
    shared.reporter.Undo(undo);
  }

  std::vector<std::string> items_;
  RuleOptions rules_;
  std::optional<std::string> saveProfile_;
  std::optional<std::string> deleteProfile_;
  std::optional<std::string> savePairs_;
  std::optional<std::string> undo_;
  std::optional<std::string> deleteUndo_;
  bool run_ = false;
  bool noUndo_ = false;
  bool listUndo_ = false;
  bool listProfiles_ = false;
  bool listPairs_ = false;
  bool listProperties_ = false;
};

}  // namespace

std::unique_ptr<Verb> MakeRenameVerb() { return std::make_unique<RenameVerb>(); }

}  // namespace QxHost
