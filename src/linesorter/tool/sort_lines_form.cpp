#include "linesorter/tool/sort_lines_form.h"

#include <algorithm>
#include <initializer_list>
#include <limits>

#include "linesorter/engine/code_page_text.h"
#include "linesorter/engine/number_parser.h"
#include "linesorter/engine/stoi.h"

namespace WQLineSorter {

namespace {

constexpr std::size_t kRulerSize = 90;

// With an empty suffix, the suggested new file would be the source itself.
constexpr const WCHAR* kDefaultSuffix = W("_sorted");

constexpr DatePreset kDatePresets[] = {
    {W("2014-11-21"), W("%Y-%m-%d")},
    {W("2014-11-21 13:44:48"), W("%Y-%m-%d %H:%M:%S")},
    {W("23/11/14"), W("%d/%m/%y")},
    {W("23/11/2014"), W("%d/%m/%Y")},
    {W("23/11/2014 1:44:48 pm"), W("%d/%m/%Y %I:%M:%S %p")},
    {W("23 Nov 2014"), W("%d %b %Y")},
    {W("Nov 11 13:44:48 2014"), W("%b %d %H:%M:%S %Y")},
    {W("11 Nov 2014 13:44:48"), W("%d %b %Y %H:%M:%S")},
};

// The fields that accept only digits.
struct NumberField {
  WString SortLinesForm::*text;
  std::size_t maxDigits;
};

constexpr NumberField kNumberFields[] = {
    {&SortLinesForm::keepLinesTop, SortLinesForm::kMaxNumberDigits},
    {&SortLinesForm::keepLinesBottom, SortLinesForm::kMaxNumberDigits},
    {&SortLinesForm::startPosition, SortLinesForm::kMaxNumberDigits},
    {&SortLinesForm::length, SortLinesForm::kMaxLengthDigits},
    {&SortLinesForm::item, SortLinesForm::kMaxNumberDigits},
};

// The largest length that the field can hold. Stored lengths may be larger.
constexpr std::uint32_t kMaxLength = 999'999'999;

// When a checked box sets its bit in the options.
enum class Stored { kIfChecked, kWithoutLanguageAware };

struct BoxRow {
  bool SortLinesForm::*box;
  std::uint32_t option;
  Stored stored;
};

// Natural order has an effect only with language-aware order, and the dialog does not store both, so only
// scripts can use it (C-136).
constexpr BoxRow kBoxes[] = {
    {&SortLinesForm::skipLeadingSpace, SortSkipLeadingSpace, Stored::kIfChecked},
    {&SortLinesForm::languageAware, SortLanguageAware, Stored::kIfChecked},
    {&SortLinesForm::ignoreCase, SortIgnoreCase, Stored::kWithoutLanguageAware},
    {&SortLinesForm::naturalNumbers, SortNaturalNumbers, Stored::kWithoutLanguageAware},
    {&SortLinesForm::reverse, SortReverse, Stored::kIfChecked},
    {&SortLinesForm::removeDuplicates, SortRemoveDuplicates, Stored::kIfChecked},
    {&SortLinesForm::removeBlank, SortRemoveBlank, Stored::kIfChecked},
};

// Returns the first of the choices that is set in the options, or `otherwise`.
int ChoiceOf(std::uint32_t options, std::initializer_list<SortLinesOption> choices, int otherwise) {
  for (const SortLinesOption choice : choices) {
    if (options & choice) return static_cast<int>(choice);
  }
  return otherwise;
}

WString DecimalText(std::uint32_t number) { return FromUtf8(std::to_string(number)); }

// Returns the number in a field, clamped to 32 bits, or 0 if the field contains no number.
std::uint32_t ReadNumber(const WString& text) {
  const WCHAR* end = nullptr;
  const auto value = ParseNumber<std::int64_t>(text.c_str(), &end);
  constexpr std::int64_t kMax = std::numeric_limits<std::uint32_t>::max();
  return static_cast<std::uint32_t>(std::clamp<std::int64_t>(value, 0, kMax));
}

// Returns an offset from 0. Positions in the field count from 1; 0 is the same as 1 (C-144).
std::uint32_t ReadPosition(const WString& text) {
  const std::uint32_t position = ReadNumber(text);
  return position > 0 ? position - 1 : 0;
}

// Removes characters that can be pasted but not typed.
void KeepDigits(SortLinesForm& form) {
  for (const NumberField& field : kNumberFields) {
    WString& text = form.*field.text;
    std::erase_if(text, [](WCHAR character) { return character < W('0') || character > W('9'); });
    if (text.size() > field.maxDigits) text.resize(field.maxDigits);
  }
}

// Returns the position that belongs to an offset; an offset beyond the last position gives the last one.
WString PositionText(std::uint32_t offset) {
  constexpr std::uint32_t kMax = std::numeric_limits<std::uint32_t>::max();
  return DecimalText(std::min(offset, kMax - 1) + 1);
}

WString CharacterText(std::uint16_t character) {
  return character ? WString(1, static_cast<WCHAR>(character)) : WString();
}

WString NewFileName(const SortLinesForm& form) {
  const WString suffix = form.newFileSuffix.empty() ? WString(kDefaultSuffix) : form.newFileSuffix;
  if (form.fileCount > 1) return W("*") + suffix + W(".*");
  const std::size_t dot = std::min(form.firstName.rfind(W('.')), form.firstName.size());
  return form.firstName.substr(0, dot) + suffix + form.firstName.substr(dot);
}

// Returns the target pattern that names each file of the list itself.
WString SameFileName(const SortLinesForm& form) { return form.fileCount > 1 ? W("*.*") : form.firstName; }

void UpdateForSaveAs(SortLinesForm& form) {
  form.enabled.targetName = form.saveAs == SaveAsNewFile;
  form.targetName = form.enabled.targetName ? NewFileName(form) : SameFileName(form);
}

void UpdateSubstringFields(SortLinesForm& form) {
  SortLinesEnabled& enabled = form.enabled;
  const bool hasLength = !form.length.empty();
  const bool hasEnd = !form.endCharacter.empty();
  // Stored options can fill both fields; then this rule changes nothing (C-137).
  if (!form.endAtWhitespace && hasLength && hasEnd) return;
  enabled.length = !form.endAtWhitespace && !hasEnd;
  enabled.endCharacter = !form.endAtWhitespace && !hasLength;
  enabled.endAtWhitespace = form.endAtWhitespace || (!hasLength && !hasEnd);
}

void UpdateForSortBy(SortLinesForm& form) {
  // Choosing the substring does not change whether the fields of the item are enabled (C-138).
  if (form.sortBy == SortBySubstring) return UpdateSubstringFields(form);
  if (form.sortBy != SortByLine && form.sortBy != SortByItem) return;
  SortLinesEnabled& enabled = form.enabled;
  enabled.length = enabled.endCharacter = enabled.endAtWhitespace = false;
  enabled.separator = enabled.item = form.sortBy == SortByItem;
}

void UpdateForSortMethod(SortLinesForm& form) { form.enabled.dateFormat = form.sortMethod == SortAsDate; }

void UpdateForLanguageAware(SortLinesForm& form) {
  form.enabled.naturalNumbers = form.languageAware;
  form.enabled.ignoreCase = !form.languageAware;
}

void LoadKeyFields(SortLinesForm& form) {
  const SortLinesOptions& options = form.options;
  form.sortBy =
      ChoiceOf(options.options, {SortByLine, SortBySubstring, SortByItem}, SortLinesForm::kNoChoice);
  form.length.clear();
  form.endCharacter.clear();
  form.endAtWhitespace = false;
  form.separator.clear();
  form.item = DecimalText(options.lineItem);
  if (form.sortBy == SortByItem) form.separator = CharacterText(options.matchChar);
  if (form.sortBy != SortBySubstring) return;
  if (options.options & SortEndAtChar) form.endCharacter = CharacterText(options.matchChar);
  form.endAtWhitespace = (options.options & SortEndAtWhitespace) != 0;
  // Shows a length of 0 too (C-148).
  if (!form.endAtWhitespace) form.length = DecimalText(std::min(options.subStringLen, kMaxLength));
}

void ReadSubstring(const SortLinesForm& form, SortLinesOptions& options) {
  // The end character takes precedence over the length, and both over the box (C-149). If the length field is
  // not used, the length keeps its old value (C-139).
  if (!form.endCharacter.empty()) {
    options.options |= SortEndAtChar;
    SetMatchChar(options, form.endCharacter.front());
  } else if (!form.length.empty()) {
    options.subStringLen = static_cast<std::uint32_t>(Stoi(form.length));
  } else if (form.endAtWhitespace) {
    options.options |= SortEndAtWhitespace;
  }
}

void ReadItem(const SortLinesForm& form, SortLinesOptions& options) {
  if (!form.separator.empty()) SetMatchChar(options, form.separator.front());
  options.lineItem = ReadNumber(form.item);
}

WString MakeRuler() {
  WString ruler;
  for (std::size_t position = 1; position <= kRulerSize; ++position) {
    if (position % 10 == 0) {
      ruler += static_cast<WCHAR>(W('0') + position / 10);
    } else {
      ruler += position % 5 == 0 ? W('+') : W('-');
    }
  }
  return ruler;
}

}  // namespace

void StartForm(SortLinesForm& form) {
  const SortLinesOptions& options = form.options;
  form.sortMethod = ChoiceOf(options.options, {SortAsText, SortAsDate, SortAsNumber}, SortAsText);
  form.saveAs = ChoiceOf(options.options, {SaveAsNewFile, SaveKeepBackup, SaveDeleteBackup}, SaveAsNewFile);
  form.keepLinesTop = DecimalText(options.keepLinesTop);
  form.keepLinesBottom = DecimalText(options.keepLinesBottom);
  form.startPosition = PositionText(options.lineOffset);
  for (const BoxRow& row : kBoxes) form.*row.box = (options.options & row.option) != 0;
  LoadKeyFields(form);
  form.dateFormat = form.sortMethod == SortAsDate ? DateFormatText(options) : WString();

  form.enabled = {};
  UpdateForSortMethod(form);
  UpdateForLanguageAware(form);
  UpdateForSortBy(form);
  UpdateForSaveAs(form);
}

void UpdateForChanges(SortLinesForm& form, const SortLinesForm& before) {
  KeepDigits(form);
  if (form.endCharacter.size() > 1) form.endCharacter.resize(1);
  if (form.sortMethod != before.sortMethod) UpdateForSortMethod(form);
  if (form.languageAware != before.languageAware) UpdateForLanguageAware(form);
  if (form.length != before.length || form.endCharacter != before.endCharacter ||
      form.endAtWhitespace != before.endAtWhitespace) {
    UpdateSubstringFields(form);
  }
  // After the fields of the substring: if a text and the choice change together, the choice decides.
  if (form.sortBy != before.sortBy) UpdateForSortBy(form);
  if (form.saveAs != before.saveAs) UpdateForSaveAs(form);
}

SortLinesOptions ReadOptions(const SortLinesForm& form) {
  SortLinesOptions options = form.options;
  options.options = 0;
  options.keepLinesTop = ReadNumber(form.keepLinesTop);
  options.keepLinesBottom = ReadNumber(form.keepLinesBottom);
  options.lineOffset = ReadPosition(form.startPosition);
  for (const int choice : {form.sortBy, form.sortMethod, form.saveAs}) {
    if (choice != SortLinesForm::kNoChoice) options.options |= static_cast<std::uint32_t>(choice);
  }
  if (form.sortBy == SortBySubstring) ReadSubstring(form, options);
  if (form.sortBy == SortByItem) ReadItem(form, options);
  if (form.sortMethod == SortAsDate) {
    SetDateFormat(options, form.dateFormat, SortLinesForm::kMaxFormatChars);
  }
  for (const BoxRow& row : kBoxes) {
    const bool counts = row.stored == Stored::kIfChecked || !form.languageAware;
    if (form.*row.box && counts) options.options |= row.option;
  }
  return options;
}

WString RulerText(const SortLinesForm& form) {
  static const WString kRuler = MakeRuler();
  WString ruler = kRuler;
  const std::uint32_t start = ReadPosition(form.startPosition);
  if (form.startPosition.empty() || start >= ruler.size()) return ruler;
  std::size_t marks = 1;
  if (form.sortBy == SortBySubstring && !form.length.empty()) {
    marks = std::clamp<std::size_t>(ReadNumber(form.length), 1, ruler.size() - start);
  }
  ruler.replace(start, marks, marks, W('*'));
  return ruler;
}

std::span<const DatePreset> DatePresets() { return kDatePresets; }

}  // namespace WQLineSorter
