#include "host/command_line/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <iterator>
#include <sstream>

#include "host/command_line/help_text.h"
#include "host/output/failures.h"
#include "host/output/nearest_name.h"
#include "host/services/answers.h"
#include "host/services/command_names.h"

namespace QxHost {
namespace {

// The command line library parses an argument in brackets as a list, and handles a `--` after an ITEM
// wrongly. Arguments are prefixed with this character to prevent that; no argument of qxhost begins with it
// otherwise.
constexpr char kGuard = '\x1F';

bool LooksLikeList(const std::string& text) {
  return text.size() >= 2 && text.front() == '[' && text.back() == ']';
}

// Prefixes all arguments that the library must not interpret: those that look like lists, and those after
// `--`, which are neither options nor verbs.
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

void DeclareOptions(CLI::App& app, Options& options) {
  AddText(app, "--module", "PATH", options.module, "Module to load [in the folder of this program]");
  AddText(app, "--language", "FILE", options.language,
          "Language table [english.language in the folder of this program]");
  AddText(app, "--config", "DIR", options.config,
          "Folder of settings and histories, made if missing [qxhost in the user's configuration folder]");
  AddText(app, "--panel", "DIR", options.panel, "Folder that the other panel shows");
  AddText(app, "--focus", "ITEM", options.focus, "The focused item [the first ITEM]");
  AddText(app, "--view", "DIR", options.view, "Folder that the panel shows [the focused item's]");
  AddText(app, "--items", "FILE", options.items,
          "File with further ITEMs, one per line; - for standard input");
  AddTexts(app, "--answer", "A", options.answers, std::string("Answers the next question: ") + kAnswerForms);
  AddTexts(app, "--form", "F=V", options.form,
           "Fills field F of the next dialog, DIALOG.F of the next of that name (native build)");
  app.add_flag("--elevated", options.elevated, "As if the host ran with administrator rights");
  app.add_flag("--without-rights", options.withoutRights,
               "Behave as if you may not create symbolic links; the elevated helper is (native build)");
  app.add_flag("--before-vista", options.beforeVista, "As if Windows were older than Vista");
  app.add_flag(
      "--class-a", options.classA,
      "Behave as on Windows of class A, which leaves some items of the control panel out of the menu");
  app.add_flag("--class-b", options.classB, "As if Windows were of class B, which leaves none out");
  app.add_flag("--dry-run", options.dryRun,
               "Report what would be renamed, and rename nothing; for the commands 30000 to 30060 and rename "
               "--run or --undo");
  app.add_flag("--in-order", options.inOrder,
               "Try the renames of a command one by one in order, instead of planning them as a whole");
  app.add_flag("--json", options.json, "One JSON object per line instead of prose");
}

std::vector<std::string> OptionNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  return names;
}

std::string NoSuchOption(const std::string& argument, const CLI::App& app, const CLI::App* verb) {
  const std::string typed = argument.substr(0, argument.find('='));
  std::vector<std::string> names = OptionNames(app);
  if (verb) std::ranges::copy(OptionNames(*verb), std::back_inserter(names));
  const std::vector<std::string_view> views(names.begin(), names.end());
  return (verb ? verb->get_name() + " has no option " : "there is no option ") + typed +
         DidYouMean(typed, views);
}

std::string JoinedNames(const std::vector<std::string_view>& names) {
  std::string list;
  for (const std::string_view name : names) list += (list.empty() ? "" : ", ") + std::string(name);
  return list;
}

std::string NoSuchVerb(const std::string& argument, const std::vector<std::string_view>& verbs) {
  std::string proposal = DidYouMean(argument, verbs);
  // The verb before a command may be missing.
  const std::string command = proposal.empty() ? ProposedCommand(argument) : std::string();
  if (!command.empty()) proposal = ". Did you mean command " + command + "?";
  return "\"" + argument + "\" is not a verb; the verbs are: " + JoinedNames(verbs) + proposal;
}

// Returns the message about arguments that are not accepted. Reports an option first, because its value is
// among the arguments too.
std::string UnexpectedArgument(const std::vector<std::string>& arguments, const CLI::App& app,
                               const CLI::App* verb, const std::vector<std::string_view>& verbs) {
  const auto option =
      std::ranges::find_if(arguments, [](const std::string& argument) { return argument.starts_with('-'); });
  if (option != arguments.end()) return NoSuchOption(*option, app, verb);
  const std::string argument = Unguarded(arguments.front());
  return verb ? verb->get_name() + " takes no argument \"" + argument + "\"" : NoSuchVerb(argument, verbs);
}

// Returns the message about a wrong number of values of an option, whose name the library's message begins
// with.
std::string WrongCount(const std::string& message, const CLI::App& app, const CLI::App* verb) {
  const std::string name = message.substr(0, message.find(':'));
  const CLI::Option* option = verb ? verb->get_option_no_throw(name) : nullptr;
  if (!option) option = app.get_option_no_throw(name);
  if (!option) return message;
  if (option->get_expected_max() == 1 && option->count() > 1) return name + " is given more than once";
  return name + " needs a value: " + name + " " + option->get_type_name();
}

std::string MissingArgument(const std::string& message, const CLI::App* verb) {
  if (!verb) return message;
  for (const CLI::Option* option : verb->get_options()) {
    if (!option->get_required() || option->count() != 0) continue;
    return verb->get_name() + " needs " + option->get_name() + ": " + option->get_description();
  }
  return message;
}

std::string TextOfMistake(const CLI::ParseError& error, const CLI::App& app,
                          const std::vector<std::string_view>& verbs) {
  const std::vector<const CLI::App*> parsed = app.get_subcommands({});
  const auto found = std::ranges::find_if(parsed, [](const CLI::App* verb) { return verb->parsed(); });
  const CLI::App* const verb = found == parsed.end() ? nullptr : *found;
  const std::vector<std::string> unexpected = app.remaining(true);
  std::string text = error.what();
  if (dynamic_cast<const CLI::ExtrasError*>(&error) && !unexpected.empty()) {
    text = UnexpectedArgument(unexpected, app, verb, verbs);
  } else if (dynamic_cast<const CLI::ArgumentMismatch*>(&error)) {
    text = WrongCount(text, app, verb);
  } else if (dynamic_cast<const CLI::RequiredError*>(&error)) {
    text = MissingArgument(text, verb);
  }
  return text + (text.ends_with('?') ? "" : ".") + " qxhost --help shows more.";
}

std::string WithoutLastLineEnd(std::string text) {
  if (text.ends_with('\n')) text.pop_back();
  return text;
}

}  // namespace

void AddText(CLI::App& app, const std::string& name, const std::string& value, std::string& target,
             const std::string& help) {
  app.add_option_function<std::string>(
         name, [&target](const std::string& text) { target = Unguarded(text); }, help)
      ->type_name(value);
}

void AddOptionalText(CLI::App& app, const std::string& name, const std::string& value,
                     std::optional<std::string>& target, const std::string& help) {
  app.add_option_function<std::string>(
         name, [&target](const std::string& text) { target = Unguarded(text); }, help)
      ->type_name(value);
}

void AddOptional(CLI::App& app, const std::string& name, std::optional<std::string>& target,
                 const std::string& help) {
  AddOptionalText(app, name, "", target, help);
}

void AddFlag(CLI::App& app, const std::string& name, bool& target, const std::string& help) {
  app.add_flag(name, target, help);
}

void AddSwitch(CLI::App& app, const std::string& name, std::optional<bool>& target, const std::string& help) {
  const std::string off = "--no-" + name.substr(2);
  app.add_flag_function(
      name, [&target](std::int64_t count) { target = count > 0; }, help);
  app.add_flag_function(
         off, [&target](std::int64_t count) { target = count <= 0; }, "")
      ->group("");  // not listed: the help of the option names it
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

std::optional<int> ParseCommandLine(std::vector<std::string> arguments,
                                    std::vector<std::unique_ptr<Verb>> verbs, CommandLine& line,
                                    Output& output) {
  CLI::App app(kHelpAbout, "qxhost");
  app.set_version_flag("--version", kVersionText, "Print the version of this program and exit");
  app.allow_windows_style_options(false);  // /a/b is a path
  app.fallthrough();
  app.require_subcommand(
      0, 1);  // at most one, so that an ITEM may have the name of a verb; none is reported below
  app.footer(kHelpFooter);
  app.get_formatter()->column_width(22);
  app.get_formatter()->label("OPTIONS", "OPTION...");
  app.get_formatter()->label("SUBCOMMAND", "VERB ...");
  app.get_formatter()->label("Positionals", "Arguments");
  app.get_formatter()->label("REQUIRED", "");  // the usage line shows it already
  DeclareOptions(app, line.options);

  std::vector<CLI::App*> declared;
  std::vector<std::string_view> names;
  for (const std::unique_ptr<Verb>& verb : verbs) {
    CLI::App* const sub = app.add_subcommand(verb->Name(), verb->Help());
    sub->group("Verbs");
    sub->footer(verb->HelpFooter() + std::string("`qxhost --help` shows the options, and more examples."));
    verb->Declare(*sub);
    declared.push_back(sub);
    names.emplace_back(verb->Name());
  }

  arguments = Guarded(std::move(arguments));
  std::reverse(arguments.begin(), arguments.end());  // the library expects them in reverse order
  try {
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& end) {
    std::ostringstream help;
    std::ostringstream problem;
    const bool isHelp = app.exit(end, help, problem) == 0;
    if (isHelp) {
      output.Line(WithoutLastLineEnd(help.str()));
      return kExitHandled;
    }
    output.Problem(TextOfMistake(end, app, names));
    return kExitBadCall;
  }
  for (std::size_t index = 0; index < verbs.size(); ++index) {
    if (declared[index]->parsed()) line.verb = std::move(verbs[index]);
  }
  if (line.verb) return std::nullopt;
  output.Problem("give a verb: " + JoinedNames(names) + ". qxhost --help shows more.");
  return kExitBadCall;
}

}  // namespace QxHost
