#include "multirename/form/panel_rules.h"

#include <algorithm>
#include <string>

#include "frame/services/language_text.h"
#include "multirename/form/panel_controls.h"
#include "multirename/saved/search_pairs.h"

namespace Velmora::SDK {

namespace {

constexpr int kPairColumnWidth = 130;

struct SearchCheckRow {
  int control;
  u32 flag;
  bool isChecked;  // by default
};

constexpr SearchCheckRow kSearchChecks[] = {
    {kCaseSensitiveBox, kSearchCaseSensitive, false},
    {kRegexBox, kSearchRegex, false},
    {kReplaceAllBox, kSearchReplaceAll, true},
};

struct CounterField {
  int control;
  const WCHAR* defaultText;
  u32 MultiRenameProfile::*inProfile;
  WString RuleInput::*inRules;
};

constexpr CounterField kCounterFields[] = {
    {kStartAt, W("1"), &MultiRenameProfile::startAt, &RuleInput::startAt},
    {kStepBy, W("1"), &MultiRenameProfile::stepBy, &RuleInput::stepBy},
    {kDigits, W("2"), &MultiRenameProfile::digits, &RuleInput::digits},
};

std::vector<WString> ChoiceTexts(IHostApp& host, std::span<const RuleChoice> choices) {
  std::vector<WString> texts;
  for (const RuleChoice& choice : choices) texts.push_back(LanguageText(host, choice.text));
  return texts;
}

// Returns the value of the selected line, or of the first if none is selected.
u32 ChosenValue(ControlView& view, int control, std::span<const RuleChoice> choices) {
  const auto line = static_cast<std::size_t>(view.SelectedLine(control));
  return choices[line < choices.size() ? line : 0].value;
}

// Returns the line with this value, or the first.
int LineOfValue(std::span<const RuleChoice> choices, u32 value) {
  const auto found = std::ranges::find(choices, value, &RuleChoice::value);
  return found == choices.end() ? 0 : static_cast<int>(found - choices.begin());
}

}  // namespace

void PanelRules::Open() {
  view_.SetLines(kCaseBox, ChoiceTexts(host_, kCaseChoices));
  view_.SetLines(kPartsBox, ChoiceTexts(host_, kPartChoices));
  view_.SelectLine(kPartsBox, 0);
  const TableColumn columns[] = {{LanguageText(host_, kRenameTextFindHeading), kPairColumnWidth},
                                 {LanguageText(host_, kRenameTextReplaceHeading), kPairColumnWidth}};
  view_.SetColumns(kPairList, columns);
  SetDefaults();
  for (const SearchCheckRow& row : kSearchChecks) view_.SetChecked(row.control, row.isChecked);
}

void PanelRules::SetDefaults() {
  view_.SetText(kNameTemplate, kDefaultNameTemplate);
  view_.SetText(kExtensionTemplate, kDefaultExtensionTemplate);
  for (const CounterField& field : kCounterFields) view_.SetText(field.control, field.defaultText);
  view_.SelectLine(kCaseBox, 0);
}

void PanelRules::ShowProfile(const MultiRenameProfile& profile) {
  view_.SetText(kNameTemplate, profile.filenameRule);
  view_.SetText(kExtensionTemplate, profile.extensionRule);
  for (const CounterField& field : kCounterFields) {
    // A negative number is shown as it was typed.
    view_.SetText(field.control, FromUtf8(std::to_string(static_cast<s32>(profile.*field.inProfile))));
  }
  view_.SelectLine(kCaseBox, LineOfValue(kCaseChoices, profile.caseRule));
  SetPairs(profile.searchItems ? *profile.searchItems : SearchAndReplaceItems());
  for (const SearchCheckRow& row : kSearchChecks)
    view_.SetChecked(row.control, (profile.flags & row.flag) != 0);
  for (const RuleChoice& part : kPartChoices) {
    if ((profile.flags & part.value) == 0) continue;
    view_.SelectLine(kPartsBox, LineOfValue(kPartChoices, part.value));
    break;
  }
}

std::unique_ptr<MultiRenameProfile> PanelRules::MakeProfile(const WString& name) const {
  auto profile = std::make_unique<MultiRenameProfile>();
  profile->name = name;
  profile->filenameRule = view_.GetText(kNameTemplate);
  profile->extensionRule = view_.GetText(kExtensionTemplate);
  for (const CounterField& field : kCounterFields)
    (*profile).*field.inProfile = static_cast<u32>(ParseDecimal(view_.GetText(field.control)));
  profile->caseRule = CaseRuleValue();
  profile->flags = SearchFlags();
  profile->searchItems = std::make_shared<const SearchAndReplaceItems>(Pairs());
  return profile;
}

RuleInput PanelRules::ReadRules() const {
  RuleInput rules;
  rules.filenameTemplate = view_.GetText(kNameTemplate);
  rules.extensionTemplate = view_.GetText(kExtensionTemplate);
  for (const CounterField& field : kCounterFields) rules.*field.inRules = view_.GetText(field.control);
  rules.caseRule = CaseRuleValue();
  rules.searchFlags = SearchFlags();
  rules.searchItems = std::make_shared<const SearchAndReplaceItems>(CollectSearchItems(pairRows_, true));
  return rules;
}

bool PanelRules::AddPair() {
  std::optional<std::pair<WString, WString>> row =
      PairRow(view_.GetText(kPairFind), view_.GetText(kPairReplace));
  if (!row) return false;
  pairRows_.push_back(std::move(*row));
  ShowPairs();
  view_.SetText(kPairFind, {});
  view_.SetText(kPairReplace, {});
  return true;
}

SearchAndReplaceItems PanelRules::Pairs() const { return CollectSearchItems(pairRows_, false); }

void PanelRules::SetPairs(const SearchAndReplaceItems& items) {
  pairRows_ = PairRows(items);
  ShowPairs();
}

u32 PanelRules::SearchFlags() const {
  u32 flags = ChosenValue(view_, kPartsBox, kPartChoices);
  for (const SearchCheckRow& row : kSearchChecks) {
    if (view_.IsChecked(row.control)) flags |= row.flag;
  }
  return flags;
}

u32 PanelRules::CaseRuleValue() const { return ChosenValue(view_, kCaseBox, kCaseChoices); }

void PanelRules::ShowPairs() {
  TableRows rows;
  for (const auto& [find, replace] : pairRows_) rows.push_back({find, replace});
  view_.SetRows(kPairList, rows);
}

}  // namespace Velmora::SDK
