#include "host/verbs/command_verb.h"

#include "frame/host/command_numbers.h"
#include "host/output/failures.h"
#include "host/services/command_names.h"
#include "host/verbs/run.h"

namespace QxHost {
namespace {

// The range of the quick rename commands, which only change names.
constexpr s32 kFirstRename = Velmora::SDK::kCommandUpperCase;
constexpr s32 kLastRename = Velmora::SDK::kCommandSetExtension;

// The command that opens MultiRename's window, which would close at once here; `qxhost window` keeps it open.
constexpr s32 kMultiRenameWindow = Velmora::SDK::kCommandMultiRename;

// Returns the name of the command, if it has one, and its number, for messages.
std::string CommandTitle(s32 number) {
  const std::string name(NameOfCommand(number));
  return name.empty() ? std::to_string(number) : name + " (" + std::to_string(number) + ")";
}

class CommandVerb final : public Verb {
 public:
  const char* Name() const override { return "command"; }
  const char* Help() const override { return "Run one menu command on the selected items"; }

  void Declare(CLI::App& app) override {
    AddRequired(app, "NUMBER|NAME", command_,
                "The command's number, or its name or a beginning of it that no other name has");
    AddRest(app, "ITEM", items_, "The selected files and folders, in this order: /a/b, Z:\\a\\b or relative");
  }

  const char* HelpFooter() const override {
    return "Examples:\n"
           "  qxhost --dry-run --answer ok command title-case *.TXT   what would be renamed\n"
           "  qxhost --answer ok command title-case *.TXT             rename them\n"
           "  qxhost --answer ok command 30002 *.TXT                  the same, by the number\n"
           "  qxhost --answer ok command title-case -- -x.TXT         -- before ITEMs that begin with -\n"
           "`qxhost menu` lists the commands with their numbers and names.\n";
  }

  const std::vector<std::string>& Items() const override { return items_; }

  void CheckDryRun() const override {
    const s32 number = CommandOfText(command_);
    if (number >= kFirstRename && number <= kLastRename) return;
    throw BadCall("--dry-run applies to renames, and the command " + CommandTitle(number) +
                  " renames nothing: leave --dry-run out and work on a copy. It is for the commands " +
                  std::to_string(kFirstRename) + " to " + std::to_string(kLastRename));
  }

  std::string NoteOfZero() const override {
    const s32 number = CommandOfText(command_);
    const bool isNamed = !NameOfCommand(number).empty();
    return "the module did not handle the command " + CommandTitle(number) +
           (isNamed ? ": it is still to come" : ": the menu has no such number, as `qxhost menu` shows");
  }

  int Execute(Run& run) override {
    const s32 number = CommandOfText(command_);
    if (number == kMultiRenameWindow)
      throw BadCall("the command " + CommandTitle(number) + " opens a window: use `qxhost window`");
    run.MakeConfigFolder();
    Extensions& extensions = run.LoadExtensions();
    extensions.Start();
    const s32 answer = extensions.RunCommand(number);
    extensions.Stop();
    return answer;
  }

 private:
  std::string command_;  // as it was typed
  std::vector<std::string> items_;
};

}  // namespace

std::unique_ptr<Verb> MakeCommandVerb() { return std::make_unique<CommandVerb>(); }

}  // namespace QxHost
