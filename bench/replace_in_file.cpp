// Replaces in one file with nothing but the engine. bench/compare compares it with sed.
#include <cstdio>
#include <map>
#include <string>

#include "findreplace/tool/apply_to_file.h"

using namespace QXFindAndReplace;

namespace {

// The words of the command line and their flags.
const std::map<std::string, std::uint32_t> kWords = {
    {"one", ModeOne},
    {"many", ModeMany},
    {"many-same", ModeManySame},
    {"multiline", ModeMultiline},
    {"wildcard", Wildcard},
    {"ignore-case", IgnoreCase},
    {"utf8", ForceUtf8},
};

}  // namespace

int main(int count, char** arguments) {
  if (count < 5) {
    std::fprintf(stderr, "usage: replace_in_file SOURCE TARGET FIND REPLACE WORD...\n");
    return 2;
  }
  FindAndReplaceOptions options;
  options.flags = SaveAsNew | OverwriteTarget;
  options.find = FromUtf8(arguments[3]);
  options.replace = FromUtf8(arguments[4]);
  for (int i = 5; i < count; ++i) {
    const auto row = kWords.find(arguments[i]);
    if (row == kWords.end()) {
      std::fprintf(stderr, "replace_in_file: unknown word: %s\n", arguments[i]);
      return 2;
    }
    options.flags |= row->second;
  }
  const std::int64_t changes = ApplyToFile(FromUtf8(arguments[1]), FromUtf8(arguments[2]), options);
  std::printf("%lld changes\n", static_cast<long long>(changes));
  return changes < 0 ? 1 : 0;
}
