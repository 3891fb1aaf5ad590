#include "host/verbs/script_verb.h"

#include <optional>

#include "host/output/failures.h"
#include "host/services/script_call.h"
#include "host/verbs/run.h"

namespace QxHost {
namespace {

// Adds an explanation to the module's message about an invalid number, which does not name the parameter.
std::string WithHint(const std::string& failure) {
  if (failure.find("stoi argument") == std::string::npos) return failure;
  return failure + ". A parameter that takes a number has no digits, or too large a number; nothing was done";
}

bool IsGivenEmpty(ScriptCall& call, const char* name) {
  const WCHAR* const value = call.GetValue(name);
  return value && !*value;
}

class ScriptVerb final : public Verb {
 public:
  const char* Name() const override { return "script"; }
  const char* Help() const override { return "Run a script command, or list them"; }

  void Declare(CLI::App& app) override {
    AddOptional(app, "NAME", name_,
                "The script command; without a name all are shown. Letter case does not matter");
    AddRest(app, "PARAMETER", parameters_,
            "KEY=VALUE, or KEY alone for a switch. A path may be /a/b, Z:\\a\\b or relative");
    AddFlag(app, "--list", list_, "Show the command with its parameters, and run nothing");
  }

  const char* HelpFooter() const override {
    return "Examples:\n"
           "  qxhost script                    all script commands with their parameters\n"
           "  qxhost script SortLines --list   the parameters of one\n"
           "  qxhost --answer ok script SortLines FILE=a.txt \"TARGET=*.sorted\" REVERSE\n"
           "                                   the lines of a.txt in reverse order, into a.sorted\n"
           "Each --answer answers the next question; with SILENT a command asks no questions. --json gives "
           "one JSON "
           "object per line.\n";
  }

  void CheckDryRun() const override {
    if (IsList()) return;
    throw BadCall("--dry-run applies to renames, and script commands rename nothing: work on a copy");
  }

  int Execute(Run& run) override {
    if (name_ && name_->empty()) throw BadCall("the NAME of the script command is empty");
    if (list_ && !parameters_.empty()) {
      throw BadCall("--list shows one command, and takes nothing but its NAME: \"" + parameters_.front() +
                    "\" is too much");
    }
    return IsList() ? List(run) : Call(run);
  }

  std::string NoteOfZero() const override { return noteOfZero_; }

 private:
  bool IsList() const { return !name_ || list_; }

  int List(Run& run) {
    Extensions& extensions = run.LoadExtensions();
    const bool started = extensions.Start();
    if (name_) {
      extensions.ReportScriptCommand(*name_);
    } else {
      extensions.ReportAllScriptCommands();
    }
    extensions.Stop();
    return started ? 1 : 0;
  }

  int Call(Run& run) {
    run.MakeConfigFolder();
    Extensions& extensions = run.LoadExtensions();
    extensions.Start();
    const DeclaredScriptCommand& command = extensions.ScriptCommand(*name_);
    ScriptCall call(command, parameters_);
    s32 answer = 0;
    try {
      answer = extensions.RunScriptCommand(call);
    } catch (const ModuleFailure& failure) {
      throw ModuleFailure(WithHint(failure.what()));
    }
    if (call.HasFlag("LNKTRG") && !call.resultCode) {
      noteOfZero_ += "; LNKTRG must exist, and ASADMIN is for a process that is not elevated";
    } else if (call.Misses("TARGET")) {
      noteOfZero_ += "; TARGET must be given: without it " + command.name + " does nothing";
    } else if (IsGivenEmpty(call, "FIND") || IsGivenEmpty(call, "REPLACEWITH")) {
      noteOfZero_ += "; FIND and REPLACEWITH must not be empty";
    }
    extensions.Stop();
    return answer;
  }

  std::optional<std::string> name_;
  std::vector<std::string> parameters_;
  bool list_ = false;
  std::string noteOfZero_ = "the script command returned that it did nothing or failed";
};

}  // namespace

std::unique_ptr<Verb> MakeScriptVerb() { return std::make_unique<ScriptVerb>(); }

}  // namespace QxHost
