// The rules in the panel's controls: shows the defaults, a profile or the pairs of the search dialog, and
// reads the controls for the engine and for a profile. Used on the window's thread.
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

// A line of the case box or of the parts box.
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

  // Fills the boxes, creates the columns of the pairs, selects the first lines, and sets the defaults of the
  // rules and of the search check boxes.
  void Open();

  // Sets the defaults of templates, counter and case rule. Leaves the search flags and the pairs unchanged.
  void SetDefaults();

  // Shows a profile. If it specifies no parts, the parts box remains unchanged.
  void ShowProfile(const MultiRenameProfile& profile);

  // Returns the contents of the controls as a profile, in which the pairs have their quotes.
  std::unique_ptr<MultiRenameProfile> MakeProfile(const WString& name) const;

  // Returns the contents of the controls for the engine, without rows; the pairs have no quotes.
  RuleInput ReadRules() const;

  // Appends the pair of the two fields and clears the fields. Does nothing and returns false if there is no
  // find text.
  bool AddPair();

  // Returns the pairs of the list, with their quotes.
  SearchAndReplaceItems Pairs() const;
  // Replaces the pairs; values that begin or end with a blank get quotes.
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
