// The options of the command line, as unchecked texts, and the functions that declare options.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace QxHost {

struct Options {
  std::string module;
  std::string config;
  std::string panel;
  std::string focus;
  std::string view;
  std::string language;
  std::string items;                 // file of further items, `-` for standard input
  std::vector<std::string> answers;  // as given to --answer
  std::vector<std::string> form;     // F=V
  bool elevated = false;
  bool withoutRights = false;
  bool beforeVista = false;
  bool classA = false;
  bool classB = false;
  bool dryRun = false;
  bool inOrder = false;
  bool json = false;
};

// Verbs declare their options with these functions, which keep every text as it was typed: the library itself
// would split "[a,b]" at its comma. `value` is the name of the value in the help.
void AddText(CLI::App& app, const std::string& name, const std::string& value, std::string& target,
             const std::string& help);
// Declares an option that counts as given even if its value is empty.
void AddOptionalText(CLI::App& app, const std::string& name, const std::string& value,
                     std::optional<std::string>& target, const std::string& help);
// Declares an optional positional argument, which counts as given even if it is empty.
void AddOptional(CLI::App& app, const std::string& name, std::optional<std::string>& target,
                 const std::string& help);
void AddFlag(CLI::App& app, const std::string& name, bool& target, const std::string& help);
// Declares a flag `--name` with the opposite `--no-name`. The target is std::nullopt if neither is given; the
// last of several wins.
void AddSwitch(CLI::App& app, const std::string& name, std::optional<bool>& target, const std::string& help);
// Declares an option that may be given several times. The target gets all values, in order.
void AddTexts(CLI::App& app, const std::string& name, const std::string& value,
              std::vector<std::string>& target, const std::string& help);
// Declares the positional arguments at the end of the command line. The target gets them in order.
void AddRest(CLI::App& app, const std::string& name, std::vector<std::string>& target,
             const std::string& help);
// Declares a required positional argument.
void AddRequired(CLI::App& app, const std::string& name, std::string& target, const std::string& help);

}  // namespace QxHost
