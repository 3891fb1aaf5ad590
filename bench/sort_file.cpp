// Sorts one file with nothing but the line sorter. bench/compare compares it with GNU sort.
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "linesorter/engine/code_page_text.h"
#include "linesorter/engine/sort_file.h"

using namespace WQLineSorter;

namespace {

// The words of the command line and their options.
const std::map<std::string, std::uint32_t> kWords = {
    {"line", SortByLine},
    {"substring", SortBySubstring},
    {"item", SortByItem},
    {"ignore-case", SortIgnoreCase},
    {"number", SortAsNumber},
    {"date", SortAsDate},
    {"language", SortLanguageAware},
    {"natural", SortNaturalNumbers},
};

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) {
    std::fprintf(stderr, "usage: sort_file SOURCE TARGET [WORD|sep=C|n=N|format=F]...\n");
    return 2;
  }
  SortLinesOptions options = {};
  options.options = SaveAsNewFile | SaveOverwrite;
  for (int i = 3; i < count; ++i) {
    const std::string word = arguments[i];
    if (word.starts_with("sep=")) {
      SetMatchChar(options, static_cast<WCHAR>(word[4]));
    } else if (word.starts_with("n=")) {
      options.lineItem = static_cast<std::uint32_t>(std::atoi(word.c_str() + 2));
    } else if (word.starts_with("format=")) {
      SetDateFormat(options, FromUtf8(word.substr(7)), 127);
    } else if (const auto row = kWords.find(word); row != kWords.end()) {
      options.options |= row->second;
    } else {
      std::fprintf(stderr, "sort_file: unknown word: %s\n", word.c_str());
      return 2;
    }
  }
  SortResult result;
  if (SortFile(result, FromUtf8(arguments[1]), FromUtf8(arguments[2]), options) == 0) return 0;
  std::fprintf(stderr, "sort_file: error %u: %s\n", static_cast<unsigned>(result.errorCode),
               result.message.c_str());
  return 1;
}
