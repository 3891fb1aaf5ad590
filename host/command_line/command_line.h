// Parses the command line.
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

// Parses the arguments of one of the verbs and stores the result in `line`. Returns an exit status instead if
// the program ends here: after --help, and for invalid arguments, which it reports.
std::optional<int> ParseCommandLine(std::vector<std::string> arguments,
                                    std::vector<std::unique_ptr<Verb>> verbs, CommandLine& line,
                                    Output& output);

}  // namespace QxHost
