#include "host/rename/rename_rules.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

#include "frame/host/host_objects.h"
#include "host/output/error_text.h"
#include "host/output/failures.h"
#include "host/output/nearest_name.h"
#include "host/system/paths.h"
#include "host/system/whole_file.h"
#include "multirename/rules/rule_flags.h"
#include "multirename/saved/find_replace_manager.h"
#include "multirename/saved/search_pairs.h"

namespace QxHost {

const char* const kCaseRuleNames =
    "none, lower, upper, name-lower, name-upper, extension-lower, extension-upper, words or first";

namespace {

using namespace Velmora::SDK;

struct RuleName {
  std::string_view name;
  u32 value;
};

constexpr RuleName kCaseRules[] = {
    {"none", kCaseNone},
    {"lower", kCaseAllLower},
    {"upper", kCaseAllUpper},
    {"name-lower", kCaseNameLower},
    {"name-upper", kCaseNameUpper},
    {"extension-lower", kCaseExtensionLower},
    {"extension-upper", kCaseExtensionUpper},
    {"words", kCaseWords},
    {"first", kCaseFirstLetter},
};

constexpr RuleName kParts[] = {
    {"both", kSearchNameAndExtension},
    {"name", kSearchName},
    {"extension", kSearchExtension},
};

constexpr u32 kPartsMask = kSearchNameAndExtension | kSearchName | kSearchExtension;
constexpr std::size_t kMaxTemplateChars = 1024;  // characters; the engine uses no more
constexpr s32 kMaxDigits = 1023;

template <std::size_t size>
u32 RuleValue(const RuleName (&table)[size], const std::string& option, const std::string& text,
              const std::string& choices) {
  std::vector<std::string_view> names;
  for (const RuleName& row : table) {
    if (row.name == text) return row.value;
    names.push_back(row.name);
  }
  throw BadCall(option + ": \"" + text + "\" is not one of " + choices + DidYouMean(text, names));
}

s32 WholeNumber(const std::string& option, const std::string& text) {
  s32 number = 0;
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc() && stopped == end) return number;
  throw BadCall(option + ": \"" + text + "\" is not a 32-bit whole number");
}

WString TemplateText(const std::string& option, const std::string& text) {
  WString wide = PathFromUtf8(text);
  if (wide.size() <= kMaxTemplateChars) return wide;
  throw BadCall(option + ": a template has at most " + std::to_string(kMaxTemplateChars) + " characters");
}

WString NumberText(s32 number) { return FromUtf8(std::to_string(number)); }

SearchAndReplaceItems GivenPairs(const RuleOptions& options) {
  if (!options.replaces.empty() && options.replaces.size() != options.finds.size()) {
    throw BadCall("--find is given " + std::to_string(options.finds.size()) + " times and --replace " +
                  std::to_string(options.replaces.size()) +
                  " times; each --find has its --replace, \"\" to remove the text");
  }
  SearchAndReplaceItems pairs;
  for (std::size_t index = 0; index < options.finds.size(); ++index) {
    if (options.finds[index].empty()) throw BadCall("--find: the text to find is empty");
    const bool isReplaced = index < options.replaces.size();
    pairs.emplace_back(PathFromUtf8(options.finds[index]),
                       isReplaced ? PathFromUtf8(options.replaces[index]) : WString());
  }
  return pairs;
}

SearchAndReplaceItems SavedPairs(IHostApp& host, const std::string& text) {
  const s32 number = PairsNumber("--pairs", text);
  FindReplaceManager lists(host);
  lists.Load();
  CheckIsReadable(host, lists.FilePath());
  if (const SearchAndReplaceItems* const saved = lists.Get(number)) {
    return CollectSearchItems(PairRows(*saved), true);
  }
  std::string others;
  for (const auto& [other, items] : lists.Lists()) {
    if (other > FindReplaceManager::kLastList) continue;  // no key loads it
    others += (others.empty() ? "" : ", ") + std::to_string(other);
  }
  throw BadCall("--pairs: there is no list " + std::to_string(number) +
                (others.empty() ? ", nor any other: --save-pairs makes one" : "; the lists are: " + others));
}

RenameRules SavedRules(IHostApp& host, const std::string& name) {
  MultiRenameProfiles profiles(host);
  profiles.Load();
  CheckIsReadable(host, profiles.filePath);
  return RulesOfProfile(ProfileNamed(profiles, name));
}

// Leaves the flag unchanged if there is no value.
void SetFlag(u32& flags, u32 flag, const std::optional<bool>& value) {
  if (value) flags = *value ? flags | flag : flags & ~flag;
}

}  // namespace

bool RuleOptions::AnyGiven() const {
  return name || extension || start || step || digits || caseRule || parts || profile || pairs ||
         !finds.empty() || !replaces.empty() || regex || replaceAll || caseSensitive;
}

RenameRules RulesOf(const RuleOptions& options, IHostApp& host) {
  RenameRules rules = options.profile ? SavedRules(host, *options.profile) : RenameRules();
  if (options.name) rules.filename = TemplateText("--name", *options.name);
  if (options.extension) rules.extension = TemplateText("--extension", *options.extension);
  if (options.start) rules.start = NumberText(WholeNumber("--start", *options.start));
  if (options.step) rules.step = NumberText(WholeNumber("--step", *options.step));
  if (options.digits) {
    const s32 digits = WholeNumber("--digits", *options.digits);
    if (digits < 0 || digits > kMaxDigits) throw BadCall("--digits is a number from 0 to 1023");
    rules.digits = NumberText(digits);
  }
  if (options.caseRule) rules.caseRule = RuleValue(kCaseRules, "--case", *options.caseRule, kCaseRuleNames);
  if (options.parts) {
    rules.searchFlags = (rules.searchFlags & ~kPartsMask) |
                        RuleValue(kParts, "--parts", *options.parts, "both, name or extension");
  }
  if ((rules.searchFlags & kPartsMask) == 0) rules.searchFlags |= kSearchNameAndExtension;
  SetFlag(rules.searchFlags, kSearchRegex, options.regex);
  SetFlag(rules.searchFlags, kSearchReplaceAll, options.replaceAll);
  SetFlag(rules.searchFlags, kSearchCaseSensitive, options.caseSensitive);
  SearchAndReplaceItems given = GivenPairs(options);
  if (options.pairs) rules.pairs = SavedPairs(host, *options.pairs);
  if (!given.empty() && !options.pairs) rules.pairs.clear();
  std::ranges::move(given, std::back_inserter(rules.pairs));
  return rules;
}

void CheckExpressions(const RenameRules& rules) {
  if ((rules.searchFlags & kSearchRegex) == 0) return;
  WString message;
  const u32 number = ValidateExpressions(rules.pairs, message);
  if (number == 0) return;
  throw BadCall("\"" + ToUtf8(rules.pairs[number - 1].first) +
                "\" is not a regular expression: " + ToUtf8(message));
}

void CheckIsReadable(IHostApp& host, const WString& path) {
  if (path.empty()) return;
  std::string bytes;
  const DWORD error = ReadWholeFile(path, bytes);
  if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return;
  if (error != ERROR_SUCCESS) throw BadCall("cannot read " + ToUtf8(path) + ": " + ErrorText(error));
  const HostObject<IHostXmlDocument> document(host.CreateXmlDocument());
  const XmlNode root = document ? document->Load(path.c_str(), 1) : nullptr;
  if (!root) {
    throw BadCall(ToUtf8(path) +
                  " is damaged: it is not an XML file. Repair it, or move it away to start again");
  }
  document->Close(root);
}

s32 PairsNumber(const std::string& option, const std::string& text) {
  const s32 number = WholeNumber(option, text);
  if (number >= FindReplaceManager::kFirstList && number <= FindReplaceManager::kLastList) return number;
  throw BadCall(option + ": the lists have the numbers 1 to 24, after the keys F1 to F24");
}

std::unique_ptr<MultiRenameProfile> ProfileOf(const WString& name, const RenameRules& rules) {
  auto profile = std::make_unique<MultiRenameProfile>();
  profile->name = name;
  profile->filenameRule = rules.filename;
  profile->extensionRule = rules.extension;
  profile->caseRule = rules.caseRule;
  profile->startAt = static_cast<u32>(ParseDecimal(rules.start));
  profile->stepBy = static_cast<u32>(ParseDecimal(rules.step));
  profile->digits = static_cast<u32>(ParseDecimal(rules.digits));
  profile->flags = rules.searchFlags;
  profile->searchItems = std::make_shared<const SearchAndReplaceItems>(PairRows(rules.pairs));
  return profile;
}

RenameRules RulesOfProfile(const MultiRenameProfile& profile) {
  RenameRules rules;
  rules.filename = profile.filenameRule;
  rules.extension = profile.extensionRule;
  rules.start = NumberText(static_cast<s32>(profile.startAt));
  rules.step = NumberText(static_cast<s32>(profile.stepBy));
  rules.digits = NumberText(static_cast<s32>(profile.digits));
  // The panel selects its first line for a rule that is not in its list.
  const bool isKnown = std::ranges::any_of(
      kCaseRules, [&profile](const RuleName& row) { return row.value == profile.caseRule; });
  rules.caseRule = isKnown ? profile.caseRule : u32{kCaseNone};
  rules.searchFlags = profile.flags;
  if (profile.searchItems) rules.pairs = CollectSearchItems(PairRows(*profile.searchItems), true);
  return rules;
}

const MultiRenameProfile& ProfileNamed(const MultiRenameProfiles& profiles, const std::string& name) {
  if (const MultiRenameProfile* const found = profiles.Find(PathFromUtf8(name))) return *found;
  std::vector<std::string> names;
  for (const auto& profile : profiles.profiles) names.push_back(ToUtf8(profile->name));
  const std::vector<std::string_view> views(names.begin(), names.end());
  throw BadCall("there is no profile \"" + name + "\"" + DidYouMean(name, views) +
                (names.empty() ? "; --save-profile makes one" : ""));
}

RuleInput InputOf(const RenameRules& rules, const SharedItems& rows) {
  RuleInput input;
  input.itemsOwner = rows;
  for (MultiRenameItem& row : *rows) input.items.push_back(&row);
  input.filenameTemplate = rules.filename;
  input.extensionTemplate = rules.extension;
  input.startAt = rules.start;
  input.stepBy = rules.step;
  input.digits = rules.digits;
  input.caseRule = rules.caseRule;
  input.searchFlags = rules.searchFlags;
  input.searchItems = std::make_shared<const SearchAndReplaceItems>(rules.pairs);
  return input;
}

std::string CaseRuleName(u32 caseRule) {
  for (const RuleName& row : kCaseRules) {
    if (row.value == caseRule) return std::string(row.name);
  }
  return std::to_string(caseRule);
}

std::string PartsName(u32 searchFlags) {
  for (const RuleName& row : kParts) {
    if ((searchFlags & row.value) != 0) return std::string(row.name);
  }
  return "both";
}

}  // namespace QxHost
