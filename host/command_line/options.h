// The command line, as texts, before anything of it is looked at.
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

// Options of verbs are declared with these, which leave every text as it was typed: the library that reads
// the command line would take "[a,b]" apart at its comma. `value` is what the help calls the value.
void AddText(CLI::App& app, const std::string& name, const std::string& value, std::string& target,
             const std::string& help);
// A text that counts as given even if it is empty.
void AddOptionalText(CLI::App& app, const std::string& name, const std::string& value,
                     std::optional<std::string>& target, const std::string& help);
// A text that may be left out, in its place: an empty one is given all the same.
void AddOptional(CLI::App& app, const std::string& name, std::optional<std::string>& target,
                 const std::string& help);
void AddFlag(CLI::App& app, const std::string& name, bool& target, const std::string& help);
// A flag `--name` that `--no-name` switches off; nothing if neither is given, and the last of several counts.
void AddSwitch(CLI::App& app, const std::string& name, std::optional<bool>& target, const std::string& help);
// Once for each time that the option is given, in order.
void AddTexts(CLI::App& app, const std::string& name, const std::string& value,
              std::vector<std::string>& target, const std::string& help);
// What is left of the command line, in order.
void AddRest(CLI::App& app, const std::string& name, std::vector<std::string>& target,
             const std::string& help);
// A text that must be given, in its place.
void AddRequired(CLI::App& app, const std::string& name, std::string& target, const std::string& help);

}  // namespace QxHost
