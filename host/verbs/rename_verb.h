// `qxhost rename`: renames by MultiRename's rules without its window.
#pragma once

#include <memory>

#include "host/verbs/verb.h"

namespace QxHost {

std::unique_ptr<Verb> MakeRenameVerb();

}  // namespace QxHost
