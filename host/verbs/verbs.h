// All verbs of qxhost.
#pragma once

#include <memory>
#include <vector>

#include "host/verbs/verb.h"

namespace QxHost {

// Returns all verbs, in the order of the help.
std::vector<std::unique_ptr<Verb>> MakeVerbs();

}  // namespace QxHost
