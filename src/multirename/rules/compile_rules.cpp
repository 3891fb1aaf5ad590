#include "multirename/engine/multi_rename_engine.h"
#include "multirename/rules/rule_flags.h"

namespace Velmora::SDK {

namespace {

constexpr std::size_t kMaxRuleChars = 1024;
constexpr DWORD kBusyPoll = 150;  // milliseconds

WStringView RuleText(const WString& text) { return WStringView(text).substr(0, kMaxRuleChars); }

u32 CounterNumber(const WString& text) { return static_cast<u32>(ParseDecimal(RuleText(text))); }

}  // namespace

bool CompileRules(MultiRenameEngine& engine, RuleInput input) {
  if ((input.searchFlags & kSearchRegex) != 0 && input.searchItems) {
    WString message;
    if (ValidateExpressions(*input.searchItems, message) != 0) {
      engine.status.SetError(message);
      engine.spareItems = std::move(input.items);
      return false;
    }
  }
  engine.status.ClearError();
  while (engine.busy) Sleep(kBusyPoll);

  engine.items.swap(input.items);
  engine.spareItems = std::move(input.items);
  engine.itemsOwner = std::move(input.itemsOwner);
  engine.filenameTags = ParseTemplate(RuleText(input.filenameTemplate));
  engine.extensionTags = ParseTemplate(RuleText(input.extensionTemplate));
  engine.flags = (input.caseRule & kCaseRuleMask) | (input.searchFlags & ~kCaseRuleMask);
  engine.counterNext = CounterNumber(input.startAt);
  engine.counterStep = CounterNumber(input.stepBy);
  engine.counterDigits = CounterNumber(input.digits);
  engine.searchItems = std::move(input.searchItems);
  engine.replaceRules.reset();
  if (engine.searchItems) engine.replaceRules.emplace(*engine.searchItems, engine.flags);
  GetLocalTime(&engine.now);
  return true;
}

}  // namespace Velmora::SDK
