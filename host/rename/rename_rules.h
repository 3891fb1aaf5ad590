// The rules of `qxhost rename`: what the command line says of them, over a saved profile or the defaults.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "multirename/engine/multi_rename_engine.h"
#include "multirename/saved/multi_rename_profiles.h"

namespace QxHost {

// As given; a text that was not given is nothing, where an empty one is something.
struct RuleOptions {
  std::optional<std::string> name;
  std::optional<std::string> extension;
  std::optional<std::string> start;
  std::optional<std::string> step;
  std::optional<std::string> digits;
  std::optional<std::string> caseRule;
  std::optional<std::string> parts;
  std::vector<std::string> finds;
  std::vector<std::string> replaces;
  std::optional<std::string> profile;
  std::optional<std::string> pairs;  // number of a saved list
  std::optional<bool> regex;
  std::optional<bool> replaceAll;
  std::optional<bool> caseSensitive;

  bool AnyGiven() const;
  // Whether something is said of how to search, with or without a text to search for.
  bool AnySearchSwitch() const { return regex || replaceAll || caseSensitive || parts; }
};

// The values of a new window, until something else is said.
struct RenameRules {
  WString filename = W("[N]");
  WString extension = W("[E]");
  WString start = W("1");
  WString step = W("1");
  WString digits = W("2");
  Velmora::SDK::u32 caseRule = 0;
  Velmora::SDK::u32 searchFlags = 0;
  Velmora::SDK::SearchAndReplaceItems pairs;  // as they are searched for, without the quotes of the panel
};

// Reads the profile or the list of pairs from the host's folder where the options name one. What is given
// beside them takes their place. Throws BadCall for what can be no rule.
RenameRules RulesOf(const RuleOptions& options, Velmora::SDK::IHostApp& host);

// Throws BadCall for a text that should be a regular expression and is not one.
void CheckExpressions(const RenameRules& rules);

// The number of a saved list of pairs. Throws BadCall for any other text.
Velmora::SDK::s32 PairsNumber(const std::string& option, const std::string& text);

// Rules as a profile keeps them, and back.
std::unique_ptr<Velmora::SDK::MultiRenameProfile> ProfileOf(const WString& name, const RenameRules& rules);
RenameRules RulesOfProfile(const Velmora::SDK::MultiRenameProfile& profile);

// The profile of that name, without regard to case. Throws BadCall, with the nearest name, if it does not
// exist.
const Velmora::SDK::MultiRenameProfile& ProfileNamed(const Velmora::SDK::MultiRenameProfiles& profiles,
                                                     const std::string& name);

// Throws BadCall if the file exists and is no XML document: it would look empty, and be lost when it is
// saved.
void CheckIsReadable(Velmora::SDK::IHostApp& host, const WString& path);

// What the engine is given for these rules and rows.
Velmora::SDK::RuleInput InputOf(const RenameRules& rules, const Velmora::SDK::SharedItems& rows);

// As --case and --parts take them; the number where a case rule has no name.
std::string CaseRuleName(Velmora::SDK::u32 caseRule);
std::string PartsName(Velmora::SDK::u32 searchFlags);
extern const char* const kCaseRuleNames;  // for messages and the help

}  // namespace QxHost
