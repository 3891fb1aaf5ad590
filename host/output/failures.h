// The exit statuses of qxhost, and the two exceptions that end a run early.
#pragma once

#include <stdexcept>

namespace QxHost {

enum ExitStatus : int {
  kExitHandled = 0,       // the module returned 1
  kExitNotHandled = 1,    // the module returned 0
  kExitBadCall = 2,       // invalid arguments
  kExitModuleFailed = 3,  // the module could not be loaded or threw, or the output could not be written
  kExitFilesFailed = 4,   // the module returned 1 but reported failed files, or a rename failed
};

// A mistake of the caller, such as a missing item or an unknown field. Texts are UTF-8 and say what to do.
struct BadCall : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The module could not be loaded, or threw an exception.
struct ModuleFailure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace QxHost
