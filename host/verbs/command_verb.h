// `qxhost command`: runs a menu command on the selected items.
#pragma once

#include <memory>

#include "host/verbs/verb.h"

namespace QxHost {

std::unique_ptr<Verb> MakeCommandVerb();

}  // namespace QxHost
