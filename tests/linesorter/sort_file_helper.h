// Runs of SortFile over files of a scratch folder.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "linesorter/engine/sort_file.h"
#include "support/scratch_folder.h"

// The outcome of a run. The returned number and the one in the result must be equal.
struct SortOutcome {
  DWORD errorCode;
  std::string message;
  friend bool operator==(const SortOutcome&, const SortOutcome&) = default;
};

inline void PrintTo(const SortOutcome& outcome, std::ostream* out) {
  *out << outcome.errorCode << " \"" << outcome.message << "\"";
}

inline const SortOutcome kSorted{0, ""};

inline SortOutcome RunSort(const WString& source, const WString& target,
                           const WQLineSorter::SortLinesOptions& options) {
  WQLineSorter::SortResult result;
  const DWORD code = WQLineSorter::SortFile(result, source, target, options);
  EXPECT_EQ(code, result.errorCode);
  return {code, result.message};
}

// Returns options for whole lines as text in ordinal order, with these additional bits.
inline WQLineSorter::SortLinesOptions SortOptions(std::uint32_t more) {
  WQLineSorter::SortLinesOptions options;
  options.options = WQLineSorter::SortByLine | WQLineSorter::SortAsText | more;
  return options;
}

// Returns options by which all keys are equal: whole lines as numbers.
inline WQLineSorter::SortLinesOptions EqualKeyOptions(std::uint32_t more) {
  WQLineSorter::SortLinesOptions options;
  options.options = WQLineSorter::SortByLine | WQLineSorter::SortAsNumber | more;
  return options;
}
