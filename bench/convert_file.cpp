// Converts one file with nothing but the converters. bench/compare compares it with unix2dos, expand and
// base64.
#include <cstdio>
#include <map>
#include <string>

#include "filetools/base64_file.h"
#include "filetools/text_conversion.h"

using namespace Velmora::SDK;

namespace {

const std::map<std::string, CommandNumber> kConversions = {{"lf", kCommandLineEndsToLf},
                                                           {"crlf", kCommandLineEndsToCrLf},
                                                           {"cr", kCommandLineEndsToCr},
                                                           {"tabs", kCommandTabsToBlanks}};

constexpr std::uint32_t kTabWidth = 4;

bool Convert(const std::string& verb, const WString& source, const WString& target) {
  if (verb == "encode") return EncodeFileBase64(source, target);
  if (verb == "decode") return DecodeFileBase64(source, target, true);
  const auto row = kConversions.find(verb);
  if (row == kConversions.end()) return false;
  DeleteFileW(target.c_str());  // a converter requires a new file
  return ConvertTextFile(source, target, row->second, kTabWidth);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) {
    std::fprintf(stderr, "usage: convert_file lf|crlf|cr|tabs|encode|decode SOURCE TARGET\n");
    return 2;
  }
  return Convert(arguments[1], FromUtf8(arguments[2]), FromUtf8(arguments[3])) ? 0 : 1;
}
