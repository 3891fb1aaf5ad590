// The host's language table, which maps text ids to texts.
//
// The file is UTF-8. A line `[name]` begins the section of a module: its module name, `common` for the common
// table, or the id of another module. Each further line consists of an id, a tab, the first text and, if a
// second text is used (tool tips, box captions), a tab and the second text. In texts, `\n`, `\t` and `\\` are
// a line break, a tab and a backslash. Lines that begin with `#` are comments. Any other line is reported in
// the warnings and ignored.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/host_types.h"

namespace QxHost {

struct LanguageText {
  WString first;
  WString second;
};

class LanguageTable {
 public:
  // Parses the contents of a file. Each warning begins with the number of its line.
  static LanguageTable Parse(std::string_view bytes, std::vector<std::string>& warnings);

  // Returns the text of an id, which lives as long as the table; null if the section does not have it.
  const LanguageText* Find(std::string_view section, Velmora::SDK::TextId id) const;

 private:
  using Section = std::map<Velmora::SDK::TextId, LanguageText>;
  std::map<std::string, Section, std::less<>> sections_;
};

// The section of module number 0.
inline constexpr std::string_view kCommonSection = "common";

}  // namespace QxHost
