// The rules as the controls of the panel show them: from their defaults, from a profile and from the search
// dialog into the controls, and from the controls to the engine and to a profile. On the window's thread.
#pragma once

#include <memory>

#include "multirename/engine/multi_rename_engine.h"
#include "multirename/form/control_view.h"
#include "multirename/form/rename_texts.h"
#include "multirename/rules/rule_flags.h"
#include "multirename/saved/multi_rename_profiles.h"

namespace Velmora::SDK {

inline constexpr const WCHAR* kDefaultNameTemplate = W("[N]");
inline constexpr const WCHAR* kDefaultExtensionTemplate = W("[E]");

// A line of the box of case rules, or of the box of parts.
struct RuleChoice {
  u32 value;
  TextId text;
};
inline constexpr RuleChoice kCaseChoices[] = {
    {kCaseNone, kRenameTextCaseNone},
    {kCaseAllLower, kRenameTextCaseAllLower},
    {kCaseAllUpper, kRenameTextCaseAllUpper},
    {kCaseNameLower, kRenameTextCaseNameLower},
    {kCaseNameUpper, kRenameTextCaseNameUpper},
    {kCaseExtensionLower, kRenameTextCaseExtensionLower},
    {kCaseExtensionUpper, kRenameTextCaseExtensionUpper},
    {kCaseWords, kRenameTextCaseWords},
    {kCaseFirstLetter, kRenameTextCaseFirstLetter},
};
inline constexpr RuleChoice kPartChoices[] = {
    {kSearchNameAndExtension, kRenameTextPartBoth},
    {kSearchName, kRenameTextPartName},
    {kSearchExtension, kRenameTextPartExtension},
};

class PanelRules {
 public:
  PanelRules(ControlView& view, IHostApp& host) : view_(view), host_(host) {}

  // Fills the boxes and makes the columns of the pairs, selects the first lines, and sets the defaults of the
  // rules and of the check boxes of the search.
  void Open();

  // Templates, counter and case rule as they are at first. Search flags and pairs stay.
  void SetDefaults();

  // Shows a profile. Of the parts nothing changes if it has none.
  void ShowProfile(const MultiRenameProfile& profile);

  // What the controls hold, for a profile: the pairs with their quotes.
  std::unique_ptr<MultiRenameProfile> MakeProfile(const WString& name) const;

  // What they hold, for the engine: without rows, and the pairs without quotes.
  RuleInput ReadRules() const;

  // Appends the pair of the two fields and empties them. False, with nothing done, without a find text.
  bool AddPair();

  // The pairs of the list, with their quotes.
  SearchAndReplaceItems Pairs() const;
  // Replaces them; values that begin or end with a blank get quotes.
  void SetPairs(const SearchAndReplaceItems& items);

 private:
  u32 SearchFlags() const;
  u32 CaseRuleValue() const;
  void ShowPairs();

  ControlView& view_;
  IHostApp& host_;
  SearchAndReplaceItems pairRows_;  // the cells of the list
};

}  // namespace Velmora::SDK
