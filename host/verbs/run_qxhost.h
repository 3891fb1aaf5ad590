// The program, without its main functions, which differ between the builds.
#pragma once

#include <string>
#include <vector>

namespace QxHost {

// Runs the program with its arguments, without the program's name, as UTF-8. Returns the exit status.
int RunQxHost(std::vector<std::string> arguments);

}  // namespace QxHost
