// `qxhost menu`: shows the menu tree.
#pragma once

#include <memory>

#include "host/verbs/verb.h"

namespace QxHost {

std::unique_ptr<Verb> MakeMenuVerb();

}  // namespace QxHost
