#include "host/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <sstream>

#include "host/answers.h"
#include "host/failures.h"

namespace QxHost {
namespace {

// The library takes an argument in brackets for a list, and loses its way at a `--` behind an ITEM. This
// character in front hides an argument from it; no argument of ours begins with it otherwise.
constexpr char kGuard = '\x1F';

bool LooksLikeList(const std::string& text) {
  return text.size() >= 2 && text.front() == '[' && text.back() == ']';
}

// What stands behind `--` is no option, and no verb either.
std::vector<std::string> Guarded(std::vector<std::string> arguments) {
  const auto mark = std::find(arguments.begin(), arguments.end(), "--");
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    if (argument > mark || LooksLikeList(*argument)) argument->insert(argument->begin(), kGuard);
  }
  if (mark != arguments.end()) arguments.erase(mark);
  return arguments;
}

std::string Unguarded(const std::string& text) { return text.starts_with(kGuard) ? text.substr(1) : text; }

std::function<void(const std::vector<std::string>&)> Collect(std::vector<std::string>& target) {
  return [&target](const std::vector<std::string>& texts) {
    target.resize(texts.size());
    std::transform(texts.begin(), texts.end(), target.begin(), Unguarded);
  };
}

constexpr const char* kAbout =
    "qxhost loads the QXUtils module and runs its commands on real files, without the file manager.\n"
    "What it does is real: try a rename with --dry-run first, and all else on a copy.";

constexpr const char* kFooter = R"(Paths may be written /a/b or Z:\a\b.

Questions. A command may ask something: whether to rename, what to replace. Each --answer answers the next
question: ok, yes, no, cancel, text=TEXT (ok takes the text that is offered) or choice=ROWTEXT. Where no answer
is left you are asked on the terminal, where the first letter of a button will do; where there is no terminal,
the question is cancelled, and a note says so.

Dialogs. A dialog is filled with --form FIELD=VALUE and ended with --answer ok. To see which fields a command's
dialog has, with their present values, give one that there is not; nothing is done then:
  qxhost --form help= command 30150 a.txt
They are filled in the order in which they are given, and one that is grey takes no value: sortBy=item comes
before separator. Switches are 0 or 1.
  30010  find, replace, part: 1 the name without its extension, 2 the extension with its dot, 3 the whole name
  30150  saveAs: new, keep-backup or delete-backup; targetName; keepLinesTop, keepLinesBottom; startPosition;
         skipLeadingSpace; sortBy: line, substring (length, endCharacter, endAtWhitespace) or item (separator,
         item); sortMethod: text (languageAware, ignoreCase, naturalNumbers), number or date (dateFormat);
         reverse; removeBlank
  30151  find; replace; findMode: One, Many, ManySame or Multiline; saveMode: new, keep-backup or delete-backup;
         targetName; wildcard; ignoreCase; forceUtf8; silent
  30350  linkKind: hard, junction, symbolic or shortcut; linkName; targetName
A dialog that comes later is filled by its name. The one that asks about a match, of 30151 and FindAndReplace, is
ConfirmReplaceDlg with the field result: replace, all, next or cancel. --answer ok alone is replace. Where a field
comes again, it is for the next dialog of that name.

Examples:
  qxhost menu                                    the commands and their numbers
  qxhost --answer ok command 30000 *.txt         names in upper case
  qxhost --dry-run --answer ok command 30002 *   what Title Case would do
  qxhost --answer text=log command 30060 *.txt   another extension: a.txt becomes a.log
  qxhost --form find=_ --form replace=- --answer ok --answer ok command 30010 *
                                                 replace _ with -: first the dialog, then the question
  qxhost --answer text=new --focus a.c command 30020
                                                 a.c, a.h and a.o become new.c, new.h and new.o
  find . -name '*.JPG' | qxhost --items - --answer ok command 30041
                                                 extensions in lower case, for any number of files
  qxhost script                                  the script commands and their parameters
  qxhost script SortLines FILE=a.txt "TARGET=*.sorted" SORTBY=item "ITEMSEP=;" ITEM=2 SORTAS=num
                                                 by the numbers behind the first semicolon, into a.sorted
  qxhost --form sortBy=item --form "separator=;" --form item=2 --form sortMethod=number
         --answer ok --answer ok command 30150 a.txt
                                                 the same from the menu, into a_sorted.txt: first the dialog,
                                                 then the closing message
  qxhost --form find=grey --form replace=gray --form ConfirmReplaceDlg.result=next
         --form ConfirmReplaceDlg.result=all --answer ok --answer ok --answer ok --answer ok command 30151 *.txt
                                                 the first match stays and all others are replaced: the dialog,
                                                 two questions, and the closing message
  qxhost --json menu                             one JSON object a line, for programs

Exit status: 0 the module handled the command, 1 it did not, 2 the call was wrong, 3 the module could not be
loaded or failed.)";

void DeclareOptions(CLI::App& app, Options& options) {
  AddText(app, "--module", "PATH", options.module, "Module to load [the one beside this program]");
  AddText(app, "--language", "FILE", options.language,
          "Language table [english.language beside this program]");
  AddText(app, "--config", "DIR", options.config,
          "Folder of settings and histories, made if missing [qxhost in the user's configuration folder]");
  AddText(app, "--panel", "DIR", options.panel, "Folder that the other panel shows");
  AddText(app, "--focus", "ITEM", options.focus, "The focused item [the first ITEM]");
  AddText(app, "--view", "DIR", options.view, "Folder that the panel shows [the focused item's]");
  AddText(app, "--items", "FILE", options.items, "File with further ITEMs, one a line; - for standard input");
  AddTexts(app, "--answer", "A", options.answers, std::string("Answers the next question: ") + kAnswerForms);
  AddTexts(app, "--form", "F=V", options.form,
           "Fills field F of the next dialog, DIALOG.F of the next of that name (native build)");
  app.add_flag("--elevated", options.elevated, "As if the host ran with administrator rights");
  app.add_flag("--without-rights", options.withoutRights,
               "As if you were not allowed to make symbolic links; the elevated helper is (native build)");
  app.add_flag("--before-vista", options.beforeVista, "As if Windows were older than Vista");
  app.add_flag("--class-a", options.classA, "As if Windows were of class A");
  app.add_flag("--class-b", options.classB, "As if Windows were of class B");
  app.add_flag("--dry-run", options.dryRun,
               "Say what would be renamed, and rename nothing: for the commands 30000 to 30060. "
               "All others are refused with it, as they change more than names");
  app.add_flag("--json", options.json, "One JSON object a line instead of prose");
}

}  // namespace

void AddText(CLI::App& app, const std::string& name, const std::string& value, std::string& target,
             const std::string& help) {
  app.add_option_function<std::string>(
         name, [&target](const std::string& text) { target = Unguarded(text); }, help)
      ->type_name(value);
}

void AddOptional(CLI::App& app, const std::string& name, std::optional<std::string>& target,
                 const std::string& help) {
  app.add_option_function<std::string>(
         name, [&target](const std::string& text) { target = Unguarded(text); }, help)
      ->type_name("");
}

void AddFlag(CLI::App& app, const std::string& name, bool& target, const std::string& help) {
  app.add_flag(name, target, help);
}

void AddTexts(CLI::App& app, const std::string& name, const std::string& value,
              std::vector<std::string>& target, const std::string& help) {
  app.add_option_function<std::vector<std::string>>(name, Collect(target), help)
      ->allow_extra_args(false)
      ->type_name(value);
}

void AddRest(CLI::App& app, const std::string& name, std::vector<std::string>& target,
             const std::string& help) {
  app.add_option_function<std::vector<std::string>>(name, Collect(target), help)->type_name("");
}

void AddRequired(CLI::App& app, const std::string& name, std::string& target, const std::string& help) {
  app.add_option_function<std::string>(
         name, [&target](const std::string& text) { target = Unguarded(text); }, help)
      ->required()
      ->type_name("");
}

std::optional<int> ParseCommandLine(std::vector<std::string> arguments, CommandLine& line, Output& output) {
  std::vector<std::unique_ptr<Verb>> verbs = MakeVerbs();
  CLI::App app(kAbout, "qxhost");
  app.allow_windows_style_options(false);  // /a/b is a path
  app.fallthrough();
  app.require_subcommand(0, 1);  // at most one, so that an ITEM may be named as a verb; none is told below
  app.footer(kFooter);
  app.get_formatter()->column_width(22);
  app.get_formatter()->label("OPTIONS", "OPTION...");
  app.get_formatter()->label("SUBCOMMAND", "VERB ...");
  DeclareOptions(app, line.options);

  std::vector<CLI::App*> declared;
  for (const std::unique_ptr<Verb>& verb : verbs) {
    CLI::App* const sub = app.add_subcommand(verb->Name(), verb->Help());
    sub->group("Verbs");
    sub->footer(verb->HelpFooter() + std::string("qxhost --help tells of the options, and shows examples."));
    verb->Declare(*sub);
    declared.push_back(sub);
  }

  arguments = Guarded(std::move(arguments));
  std::reverse(arguments.begin(), arguments.end());  // the library takes them from the end
  try {
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& end) {
    std::ostringstream help;
    std::ostringstream problem;
    const bool isHelp = app.exit(end, help, problem) == 0;
    if (isHelp) {
      output.Line(help.str());
      return kExitHandled;
    }
    output.Problem(end.what() + std::string(". qxhost --help tells more."));
    return kExitBadCall;
  }
  std::string names;
  for (std::size_t index = 0; index < verbs.size(); ++index) {
    if (!names.empty()) names += ", ";
    names += verbs[index]->Name();
    if (declared[index]->parsed()) line.verb = std::move(verbs[index]);
  }
  if (line.verb) return std::nullopt;
  output.Problem("say what to do: " + names + ". qxhost --help tells more.");
  return kExitBadCall;
}

}  // namespace QxHost
