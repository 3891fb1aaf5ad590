// The host's language table: the texts behind the ids that the module asks for.
//
// The file is UTF-8. A line `[name]` begins the texts of a module: its module name, `common` for the common
// table, or the id of another module. Each further line is an id, a tab, the first text and, where a second
// one is used (tool tips, box captions), a tab and the second text. In a text `\n`, `\t` and `\\` stand for a
// line break, a tab and a backslash. A line that begins with `#` is a comment. A line that is none of these
// is named in the warnings and passed over.
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
  // Each warning begins with the number of its line.
  static LanguageTable Parse(std::string_view bytes, std::vector<std::string>& warnings);

  // Null if the section has no text of that id. Lives as long as the table, which never changes.
  const LanguageText* Find(std::string_view section, Velmora::SDK::TextId id) const;

 private:
  using Section = std::map<Velmora::SDK::TextId, LanguageText>;
  std::map<std::string, Section, std::less<>> sections_;
};

// The section that answers for module number 0.
inline constexpr std::string_view kCommonSection = "common";

}  // namespace QxHost
