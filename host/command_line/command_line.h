// Reading the command line.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/command_line/options.h"
#include "host/output/output.h"
#include "host/verbs/verb.h"

namespace QxHost {

struct CommandLine {
  Options options;
  std::unique_ptr<Verb> verb;  // with its arguments
};

// Fills `line`. Answers an exit status instead if the call ends here: for --help, and for arguments that
// cannot be understood, which are told.
std::optional<int> ParseCommandLine(std::vector<std::string> arguments, CommandLine& line, Output& output);

}  // namespace QxHost
