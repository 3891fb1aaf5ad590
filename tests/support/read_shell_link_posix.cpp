#include <gtest/gtest.h>

#include <fstream>

#include "support/read_shell_link.h"
#include "support/scratch_paths.h"

namespace {

// Returns the next line without its beginning, which must be as given.
WString ReadField(std::istream& file, std::string_view beginning) {
  std::string line;
  std::getline(file, line);
  EXPECT_EQ(line.substr(0, beginning.size()), beginning);
  return FromUtf8(line).substr(beginning.size());
}

}  // namespace

ShellObjects::ShellObjects() = default;
ShellObjects::~ShellObjects() = default;

ShellLink ReadShellLink(const WString& path) {
  std::ifstream file(NativeForm(path.substr(2)), std::ios::binary);
  EXPECT_TRUE(file.is_open());
  ShellLink link;
  EXPECT_EQ(ReadField(file, "[Shortcut]"), W(""));
  link.target = ReadField(file, "Target=");
  link.workingFolder = ReadField(file, "WorkingFolder=");
  link.description = ReadField(file, "Description=");
  EXPECT_EQ(file.peek(), std::char_traits<char>::eof());
  return link;
}
