// The form of the Sort Lines dialog: its fields, the rules that enable them, and the conversion between the
// fields and the options.
//
// Whether a field is enabled depends on the order of changes and not only on the values, so the form stores
// it. After changing fields, the caller passes the previous state of the form to UpdateForChanges.
#pragma once

#include <span>

#include "linesorter/engine/sort_lines_options.h"

namespace WQLineSorter {

// Which fields are enabled. Those without a member here are always enabled, except removeDuplicates, which is
// always disabled (C-125).
struct SortLinesEnabled {
  bool targetName = true;
  bool length = true;
  bool endCharacter = true;
  bool endAtWhitespace = true;
  bool separator = true;
  bool item = true;
  bool dateFormat = true;  // also for the list of date formats
  bool ignoreCase = true;
  bool naturalNumbers = true;
};

struct SortLinesForm {
  // The value of a list or a group of radio buttons in which nothing is selected.
  static constexpr int kNoChoice = -1;

  // The maximum number of characters in a field.
  static constexpr std::size_t kMaxNumberDigits = 10;
  static constexpr std::size_t kMaxLengthDigits = 9;  // more digits might not fit into the option
  static constexpr std::size_t kMaxFormatChars = 128;
  static constexpr std::size_t kMaxNameChars = 259;

  // The input of the dialog.
  SortLinesOptions options;  // before the dialog
  std::uint32_t fileCount = 0;
  WString firstName;      // the name of the first file
  WString sample;         // the beginning of the first file; its lines end with CR LF
  WString newFileSuffix;  // added to the suggested name of a new file; empty for "_sorted"

  // The fields. Choices are bits of SortLinesOption; numbers are the texts of their fields.
  int saveAs = SaveAsNewFile;
  WString targetName;
  WString keepLinesTop;
  WString keepLinesBottom;
  WString startPosition;  // from 1; 0 is the same as 1
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

// Stores the options and the suggested target name in the fields, and enables the fields accordingly.
void StartForm(SortLinesForm& form);

// Applies the rules for the fields that differ from `before`: enables and disables fields, removes all but
// the first end character, removes everything but digits from numbers, and suggests a target name.
void UpdateForChanges(SortLinesForm& form, const SortLinesForm& before);

// Returns the options that the fields contain. Options without a field in use are those in form.options, such
// as the date format with another sort method (C-141). Throws the exceptions of Stoi if the length is not a
// number.
SortLinesOptions ReadOptions(const SortLinesForm& form);

// Returns the line of character positions above the sample, with asterisks at the positions of the key.
WString RulerText(const SortLinesForm& form);

// The formats that the date field offers, in order.
struct DatePreset {
  const WCHAR* text;  // an example; not all show the same date (C-153)
  const WCHAR* format;
};
std::span<const DatePreset> DatePresets();

}  // namespace WQLineSorter
