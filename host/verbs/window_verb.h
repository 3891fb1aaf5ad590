// `qxhost window`: opens MultiRename's window.
#pragma once

#include <memory>

#include "host/verbs/verb.h"

namespace QxHost {

std::unique_ptr<Verb> MakeWindowVerb();

}  // namespace QxHost
