// `qxhost script`: runs a script command, or shows which there are.
#pragma once

#include <memory>

#include "host/verbs/verb.h"

namespace QxHost {

std::unique_ptr<Verb> MakeScriptVerb();

}  // namespace QxHost
