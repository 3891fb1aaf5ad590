// Forms of the Sort Lines dialog for its tests, and changes as a user makes them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

#include "linesorter/tool/sort_lines_form.h"

namespace WQLineSorter {

using Change = std::function<void(SortLinesForm&)>;
using Stored = std::function<void(SortLinesOptions&)>;

// Returns a form for the single file `a.txt`, started with these bits.
inline SortLinesForm FormWith(std::uint32_t bits, const Stored& more = {}) {
  SortLinesForm form;
  form.fileCount = 1;
  form.firstName = W("a.txt");
  form.newFileSuffix = W("_new");
  form.options.options = bits;
  if (more) more(form.options);
  StartForm(form);
  return form;
}

// Functions that store a length, and an end character or separator.
inline Stored StoredLength(std::uint32_t length) {
  return [length](SortLinesOptions& options) { options.subStringLen = length; };
}
inline Stored StoredCharacter(char16_t character, std::uint32_t length = 0) {
  return [=](SortLinesOptions& options) {
    options.matchChar = character;
    options.subStringLen = length;
  };
}
inline void StoreDayFormat(SortLinesOptions& options) { std::copy_n("%d", 3, options.dateFormat); }

// Makes a user's change and applies its effects.
inline void Edit(SortLinesForm& form, const Change& change) {
  const SortLinesForm before = form;
  change(form);
  UpdateForChanges(form, before);
}

inline void ChooseSortBy(SortLinesForm& form, int choice) {
  Edit(form, [choice](SortLinesForm& edited) { edited.sortBy = choice; });
}
inline void EnterLength(SortLinesForm& form, const WString& text) {
  Edit(form, [&](SortLinesForm& edited) { edited.length = text; });
}
inline void EnterEndCharacter(SortLinesForm& form, const WString& text) {
  Edit(form, [&](SortLinesForm& edited) { edited.endCharacter = text; });
}
inline void ClickEndAtWhitespace(SortLinesForm& form) {
  Edit(form, [](SortLinesForm& edited) { edited.endAtWhitespace = !edited.endAtWhitespace; });
}

// Returns whether length, end character and the whitespace box are enabled.
inline std::vector<bool> SubstringState(const SortLinesForm& form) {
  return {form.enabled.length, form.enabled.endCharacter, form.enabled.endAtWhitespace};
}
inline std::vector<bool> ItemState(const SortLinesForm& form) {
  return {form.enabled.separator, form.enabled.item};
}

inline std::uint32_t BitsOf(const SortLinesForm& form) { return ReadOptions(form).options; }

inline constexpr std::uint32_t kDefaultBits = 0x100011;  // whole line, as text, without leading blanks

// Returns a form that sorts by substring, with its three fields empty.
inline SortLinesForm EmptySubstringForm() {
  SortLinesForm form = FormWith(kDefaultBits);
  ChooseSortBy(form, SortBySubstring);
  return form;
}

}  // namespace WQLineSorter
