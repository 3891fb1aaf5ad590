#include <algorithm>

#include "multirename/engine/multi_rename_engine.h"
#include "multirename/rules/letter_case.h"
#include "multirename/rules/rule_flags.h"

namespace Velmora::SDK {

namespace {

void ToLowerLetters(WString& text) { std::ranges::transform(text, text.begin(), LowerLetter); }
void ToUpperLetters(WString& text) { std::ranges::transform(text, text.begin(), UpperLetter); }

// A word begins at the start, and after a blank, a dot or an underscore.
void CapitalizeWords(WString& text) {
  bool begins = true;
  for (WCHAR& c : text) {
    c = begins ? UpperLetter(c) : LowerLetter(c);
    begins = c == W(' ') || c == W('.') || c == W('_');
  }
}

void CapitalizeFirst(WString& text) {
  ToLowerLetters(text);
  if (!text.empty()) text.front() = UpperLetter(text.front());
}

void LeaveCase(WString&) {}

struct CaseRow {
  u32 flag;
  void (*changeName)(WString& name);
  void (*changeExtension)(WString& extension);
};

constexpr CaseRow kCaseRows[] = {
    {kCaseAllLower, ToLowerLetters, ToLowerLetters},  {kCaseAllUpper, ToUpperLetters, ToUpperLetters},
    {kCaseNameLower, ToLowerLetters, LeaveCase},      {kCaseNameUpper, ToUpperLetters, LeaveCase},
    {kCaseExtensionLower, LeaveCase, ToLowerLetters}, {kCaseExtensionUpper, LeaveCase, ToUpperLetters},
    {kCaseWords, CapitalizeWords, LeaveCase},         {kCaseFirstLetter, CapitalizeFirst, LeaveCase},
};

}  // namespace

void ApplyCaseRule(u32 flags, WString& name, WString& extension) {
  if ((flags & kCaseRuleMask) == 0) return;
  for (const CaseRow& row : kCaseRows) {
    if ((flags & row.flag) == 0) continue;
    row.changeName(name);
    row.changeExtension(extension);
    return;
  }
}

}  // namespace Velmora::SDK
