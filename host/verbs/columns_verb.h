// `qxhost columns`: shows the columns of the module for items.
#pragma once

#include <memory>

#include "host/verbs/verb.h"

namespace QxHost {

std::unique_ptr<Verb> MakeColumnsVerb();

}  // namespace QxHost
