// `qxhost info`: shows the extensions of the module.
#pragma once

#include <memory>

#include "host/verbs/verb.h"

namespace QxHost {

std::unique_ptr<Verb> MakeInfoVerb();

}  // namespace QxHost
