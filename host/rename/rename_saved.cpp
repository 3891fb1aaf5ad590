#include "host/rename/rename_saved.h"

#include "frame/host/host_objects.h"
#include "host/output/error_text.h"
#include "host/output/failures.h"
#include "host/services/lists.h"
#include "host/services/lock_in_turn.h"
#include "host/system/paths.h"
#include "multirename/rules/rule_flags.h"
#include "multirename/saved/find_replace_manager.h"
#include "multirename/saved/search_pairs.h"

namespace QxHost {

namespace {

using namespace Velmora::SDK;

constexpr WStringView kProfileBlanks = W(" \t\r\n");
constexpr std::size_t kMaxProfileNameChars = 1023;  // the reader of the file uses no more
constexpr u32 kMaxTemplates = 20;                   // of a history

WString ProfileName(const std::string& text) {
  const WString wide = PathFromUtf8(text);
  const std::size_t begin = wide.find_first_not_of(kProfileBlanks);
  if (begin == WString::npos) throw BadCall("--save-profile: the name is empty");
  WString name = wide.substr(begin, wide.find_last_not_of(kProfileBlanks) - begin + 1);
  if (name.size() > kMaxProfileNameChars) throw BadCall("--save-profile: a name has at most 1023 characters");
  return name;
}

bool MayReplace(Shared& shared, const WString& name) {
  const WString question = W("There is a profile \"") + name + W("\". Replace it?");
  return shared.questions.AskBox(W("Save profile"), question, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

// Makes other runs of the host wait before they save rules: of two that read a file and then write it, one
// would lose the changes of the other.
class SavingInTurn {
 public:
  explicit SavingInTurn(Shared& shared) {
    const WString path = shared.answers.configFolder + W("\\qxhost.lock");
    const DWORD error = LockInTurn(lock_, path, shared.output);
    if (error != ERROR_SUCCESS) throw BadCall("cannot write " + ToUtf8(path) + ": " + ErrorText(error));
  }

 private:
  UndoLock lock_;
};

struct ProfileLoss {
  const char* what;
  bool isLost;
};

// A profile does not store switches without pairs or the extension as the only part, and cuts long texts.
std::string LossesOfProfile(const RenameRules& given, const RenameRules& kept) {
  constexpr u32 kSwitches = kSearchRegex | kSearchReplaceAll | kSearchCaseSensitive;
  const u32 lost = given.searchFlags & ~kept.searchFlags;
  const ProfileLoss losses[] = {
      {"the templates", given.filename != kept.filename || given.extension != kept.extension},
      {"--regex, --replace-all and --case-sensitive", (lost & kSwitches) != 0},
      {"--parts", PartsName(given.searchFlags) != PartsName(kept.searchFlags)},
      {"the texts of --find and --replace", given.pairs != kept.pairs},
  };
  std::string text;
  for (const auto& [what, isLost] : losses) {
    if (isLost) text += (text.empty() ? "" : "; ") + std::string(what);
  }
  return text;
}

void KeepInHistory(IHostApp& host, const WCHAR* key, const WString& text, WStringView usual) {
  IHostConfig* const config = host.GetConfig();
  const HostObject<IHostStringList> old(host.CreateStringList());
  const HostObject<IHostStringList> renewed(host.CreateStringList());
  if (!config || !old || !renewed) return;
  config->LoadStringList(key, old.Get());
  if (text != usual && !text.empty()) renewed->Add(text.c_str());
  for (const WString& line : TextsOf(*old.Get())) {
    if (line != usual && !renewed->Contains(line.c_str(), 0)) renewed->Add(line.c_str());
  }
  renewed->Finish(1);
  config->SaveStringList(key, renewed.Get(), kMaxTemplates);
}

}  // namespace

void ListRenameProfiles(Shared& shared, IHostApp& host) {
  MultiRenameProfiles profiles(host);
  profiles.Load();
  CheckIsReadable(host, profiles.filePath);
  for (const auto& profile : profiles.profiles) {
    const RenameRules rules = RulesOfProfile(*profile);
    shared.reporter.RenameProfile(
        {profile->name, rules.filename, rules.extension, CaseRuleName(rules.caseRule),
         static_cast<s32>(profile->startAt), static_cast<s32>(profile->stepBy),
         static_cast<s32>(profile->digits), (profile->flags & kSearchRegex) != 0,
         (profile->flags & kSearchReplaceAll) != 0, (profile->flags & kSearchCaseSensitive) != 0,
         PartsName(profile->flags), rules.pairs});
  }
  if (profiles.profiles.empty()) {
    shared.reporter.Say("There are no profiles. --save-profile NAME makes one of the given rules");
  }
}

bool SaveRenameProfile(Shared& shared, IHostApp& host, const std::string& text, const RenameRules& rules) {
  const WString name = ProfileName(text);
  const SavingInTurn turn(shared);
  MultiRenameProfiles profiles(host);
  profiles.Load();
  CheckIsReadable(host, profiles.filePath);
  if (profiles.Find(name)) {
    if (!MayReplace(shared, name)) {
      shared.output.Problem("the profile \"" + ToUtf8(name) + "\" stays as it was");
      return false;
    }
    profiles.Remove(name);
  }
  profiles.Add(ProfileOf(name, rules));
  const bool isGiven = profiles.Save();
  profiles.Load();
  const MultiRenameProfile* const kept = profiles.Find(name);
  if (!isGiven || !kept) {
    shared.output.Problem("the profile could not be written: " + ToUtf8(profiles.filePath));
    return false;
  }
  shared.reporter.Say("saved the profile \"" + ToUtf8(name) + "\"");
  const std::string lost = LossesOfProfile(rules, RulesOfProfile(*kept));
  if (!lost.empty()) {
    shared.output.Problem("note: the profile does not store these as they were given: " + lost);
  }
  return true;
}

bool DeleteRenameProfile(Shared& shared, IHostApp& host, const std::string& text) {
  const SavingInTurn turn(shared);
  MultiRenameProfiles profiles(host);
  profiles.Load();
  CheckIsReadable(host, profiles.filePath);
  const WString name = ProfileNamed(profiles, text).name;
  profiles.Remove(name);
  const bool isGiven = profiles.Save();
  profiles.Load();
  if (!isGiven || profiles.Find(name)) {
    shared.output.Problem("the profiles could not be written: " + ToUtf8(profiles.filePath));
    return false;
  }
  shared.reporter.Say("deleted the profile \"" + ToUtf8(name) + "\"");
  return true;
}

void ListPairs(Shared& shared, IHostApp& host) {
  FindReplaceManager lists(host);
  lists.Load();
  CheckIsReadable(host, lists.FilePath());
  for (const auto& [number, pairs] : lists.Lists()) {
    // No key loads the other lists, and --pairs does not accept them.
    if (number > FindReplaceManager::kLastList) continue;
    shared.reporter.Pairs(number, CollectSearchItems(PairRows(pairs), true));
  }
  if (lists.Lists().empty()) {
    shared.reporter.Say("There are no lists of pairs. --save-pairs N makes one of the given --find options");
  }
}

bool SavePairs(Shared& shared, IHostApp& host, const std::string& text, const RenameRules& rules) {
  const s32 number = PairsNumber("--save-pairs", text);
  const SavingInTurn turn(shared);
  FindReplaceManager lists(host);
  lists.Load();
  CheckIsReadable(host, lists.FilePath());
  lists.Set(number, rules.pairs);
  lists.Save();
  lists.Load();
  const SearchAndReplaceItems* const kept = lists.Get(number);
  if (!kept || kept->size() != rules.pairs.size()) {
    shared.output.Problem("the list of pairs could not be written");
    return false;
  }
  shared.reporter.Say("saved " + std::to_string(kept->size()) + (kept->size() == 1 ? " pair" : " pairs") +
                      " as list " + std::to_string(number));
  // Compares them as --pairs uses them.
  if (CollectSearchItems(PairRows(*kept), true) != rules.pairs)
    shared.output.Problem("note: the list does not store the pairs as they were given");
  return true;
}

void KeepTemplates(IHostApp& host, const RenameRules& rules) {
  KeepInHistory(host, W("RuleFilename"), rules.filename, W("[N]"));
  KeepInHistory(host, W("RuleFileextension"), rules.extension, W("[E]"));
}

}  // namespace QxHost
