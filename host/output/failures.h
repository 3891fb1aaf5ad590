// The exit statuses of qxhost, and the two ways in which a run ends early.
#pragma once

#include <stdexcept>

namespace QxHost {

enum ExitStatus : int {
  kExitHandled = 0,       // the module answered 1
  kExitNotHandled = 1,    // the module answered 0
  kExitBadCall = 2,       // what the caller asked for cannot be
  kExitModuleFailed = 3,  // the module could not be loaded, or threw, or the output could not be written
  kExitFilesFailed = 4,   // the module answered 1, but handed back failed files, or a rename failed
};

// The caller's mistake: a missing item, a field that is none. Texts are UTF-8 and say what to do.
struct BadCall : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The module cannot be used.
struct ModuleFailure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace QxHost
