// The fields of the Sort Lines dialog, what enables what, and the way of the options into the fields and out
// of them.
//
// Whether a field can be changed depends on what was changed before and not on the values alone, so the form
// keeps it. Whoever changes fields calls FollowChanges with the form as it was before.
#pragma once

#include <span>

#include "linesorter/engine/sort_lines_options.h"

namespace WQLineSorter {

// Which fields can be changed. Those without a member here always can, but for removeDuplicates, which never
// can.
struct SortLinesEnabled {
  bool targetName = true;
  bool length = true;
  bool endCharacter = true;
  bool endAtWhitespace = true;
  bool separator = true;
  bool item = true;
  bool dateFormat = true;  // and the list of date formats
  bool ignoreCase = true;
  bool naturalNumbers = true;
};

struct SortLinesForm {
  // Stands for a list or a group of radio buttons in which nothing is chosen.
  static constexpr int kNoChoice = -1;

  // Characters that a field takes.
  static constexpr std::size_t kMostNumberDigits = 10;
  static constexpr std::size_t kMostLengthDigits = 9;  // what is more need not fit the option
  static constexpr std::size_t kMostFormatChars = 128;
  static constexpr std::size_t kMostNameChars = 259;

  // What the dialog is about.
  SortLinesOptions options;  // as they are before the dialog
  std::uint32_t fileCount = 0;
  WString firstName;      // of the first file
  WString sample;         // the beginning of the first file, with CR LF at the end of its lines
  WString newFileSuffix;  // what the suggested name of a new file has behind the name; empty is "_sorted"

  // The fields. Choices are bits of SortLinesOption; numbers are text, as they stand in their fields.
  int saveAs = SaveAsNewFile;
  WString targetName;
  WString keepLinesTop;
  WString keepLinesBottom;
  WString startPosition;  // from 1; 0 is the same
  bool skipLeadingSpace = false;
  int sortBy = kNoChoice;
  WString length;
  WString endCharacter;
  bool endAtWhitespace = false;
  WString separator;
  WString item;
  int sortMethod = SortAsText;
  WString dateFormat;
  bool languageAware = false;
  bool ignoreCase = false;
  bool naturalNumbers = false;
  bool reverse = false;
  bool removeDuplicates = false;
  bool removeBlank = false;

  SortLinesEnabled enabled;
};

// Puts the options and the suggested target name into the fields, and enables what goes with them.
void StartForm(SortLinesForm& form);

// Applies the rules whose fields differ from `before`: enables and disables, keeps one end character and of
// numbers their digits, suggests a target name.
void FollowChanges(SortLinesForm& form, const SortLinesForm& before);

// The options of the fields. What no field says is as in form.options, such as the date format under another
// sort method (C-141). Throws as Stoi for a length that is no number.
SortLinesOptions ReadOptions(const SortLinesForm& form);

// The line of character positions above the sample, with asterisks where the key lies.
WString RulerText(const SortLinesForm& form);

// The formats that the date field offers, in order.
struct DatePreset {
  const WCHAR* text;  // an example, of one day or another (C-153)
  const WCHAR* format;
};
std::span<const DatePreset> DatePresets();

}  // namespace WQLineSorter
