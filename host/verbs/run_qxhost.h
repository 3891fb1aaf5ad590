// The program behind both main functions.
#pragma once

#include <string>
#include <vector>

namespace QxHost {

// Runs with the arguments behind the program's name, as UTF-8, and answers the exit status.
int RunQxHost(std::vector<std::string> arguments);

}  // namespace QxHost
