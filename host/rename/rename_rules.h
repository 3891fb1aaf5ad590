// The rules of `qxhost rename`: the options of the command line, applied to a saved profile or to the
// defaults.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "multirename/engine/multi_rename_engine.h"
#include "multirename/saved/multi_rename_profiles.h"

namespace QxHost {

// The options as given. An option that was not given is std::nullopt, which differs from an empty text.
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
  // Returns whether an option for the search is given, with or without a text to search for.
  bool AnySearchSwitch() const { return regex || replaceAll || caseSensitive || parts; }
};

// The rules. Initially those of a new window.
struct RenameRules {
  WString filename = W("[N]");
  WString extension = W("[E]");
  WString start = W("1");
  WString step = W("1");
  WString digits = W("2");
  Velmora::SDK::u32 caseRule = 0;
  Velmora::SDK::u32 searchFlags = 0;
  Velmora::SDK::SearchAndReplaceItems pairs;  // without the quotes in the panel's list
};

// Reads the profile or the list of pairs that the options name from the host's folder; the other options
// replace its values. Throws BadCall for an invalid option.
RenameRules RulesOf(const RuleOptions& options, Velmora::SDK::IHostApp& host);

// Throws BadCall if a text must be a regular expression and is not valid.
void CheckExpressions(const RenameRules& rules);

// Returns the number of a saved list of pairs. Throws BadCall for any other text.
Velmora::SDK::s32 PairsNumber(const std::string& option, const std::string& text);

// Convert rules to a profile, with the losses of its format, and back.
std::unique_ptr<Velmora::SDK::MultiRenameProfile> ProfileOf(const WString& name, const RenameRules& rules);
RenameRules RulesOfProfile(const Velmora::SDK::MultiRenameProfile& profile);

// Returns the profile with this name, ignoring letter case. Throws BadCall, with the nearest name, if it does
// not exist.
const Velmora::SDK::MultiRenameProfile& ProfileNamed(const Velmora::SDK::MultiRenameProfiles& profiles,
                                                     const std::string& name);

// Throws BadCall if the file exists and is not an XML document: it would be read as empty, and the next save
// would overwrite it.
void CheckIsReadable(Velmora::SDK::IHostApp& host, const WString& path);

// Returns the input of the engine for these rules and rows.
Velmora::SDK::RuleInput InputOf(const RenameRules& rules, const Velmora::SDK::SharedItems& rows);

// Return the values of --case and --parts; the number of a case rule without a name.
std::string CaseRuleName(Velmora::SDK::u32 caseRule);
std::string PartsName(Velmora::SDK::u32 searchFlags);
extern const char* const kCaseRuleNames;  // for messages and the help

}  // namespace QxHost
