// Applies any templates, counters and pairs to any names: each new name must be within its limits.
#include <string>

#include "fuzz_input.h"
#include "multirename/engine/multi_rename_engine.h"
#include "multirename/rules/rule_flags.h"
#include "multirename/saved/search_pairs.h"

using namespace Velmora::SDK;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  MultiRenameEngine engine(nullptr);
  RuleInput rules;
  rules.caseRule = input.TakeByte();
  const std::uint8_t flags = input.TakeByte();
  rules.searchFlags = (flags & 1 ? kSearchCaseSensitive : 0u) | (flags & 2 ? kSearchRegex : 0u) |
                      (flags & 4 ? kSearchReplaceAll : 0u) |
                      (flags & 8 ? kSearchName : kSearchNameAndExtension);
  rules.filenameTemplate = input.TakeText();
  rules.extensionTemplate = input.TakeText();
  rules.startAt = input.TakeText();
  rules.stepBy = input.TakeText();
  rules.digits = input.TakeText();
  SearchAndReplaceItems pairs = ParsePairDialog(input.TakeText());
  if (pairs.size() > 4) pairs.resize(4);
  rules.searchItems = std::make_shared<const SearchAndReplaceItems>(pairs);
  rules.itemsOwner = std::make_shared<MultiRenameItems>();
  for (int row = 0; row < 3; ++row) {
    MultiRenameItem& item = rules.itemsOwner->emplace_back();
    item.oldName = input.TakeText();
    item.isFolder = row == 1;
    rules.items.push_back(&item);
  }
  const SharedItems rows = rules.itemsOwner;
  if (!CompileRules(engine, std::move(rules))) {
    Require((engine.flags & kSearchRegex) == 0 && !engine.status.ErrorText().empty());
    return 0;
  }
  for (MultiRenameItem* const item : engine.items) {
    ComputeName(engine, *item);
    Require(item->newName.size() <= kLongestName);
  }
  CheckConflicts(engine);
  // Rules that are reused for all names and rules that are compiled for each name have the same results.
  for (const MultiRenameItem& item : *rows) {
    WString kept = item.oldName;
    WString made = item.oldName;
    if (engine.replaceRules) engine.replaceRules->Apply(kept);
    ApplyReplaceList(pairs, made, engine.flags);
    Require(kept == made && kept.size() <= kLongestName + item.oldName.size());
  }
  return 0;
}
