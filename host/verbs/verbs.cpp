#include "host/verbs/verbs.h"

#include "host/verbs/columns_verb.h"
#include "host/verbs/command_verb.h"
#include "host/verbs/info_verb.h"
#include "host/verbs/menu_verb.h"
#include "host/verbs/rename_verb.h"
#include "host/verbs/script_verb.h"
#include "host/verbs/window_verb.h"

namespace QxHost {

std::vector<std::unique_ptr<Verb>> MakeVerbs() {
  std::vector<std::unique_ptr<Verb>> verbs;
  verbs.push_back(MakeInfoVerb());
  verbs.push_back(MakeMenuVerb());
  verbs.push_back(MakeCommandVerb());
  verbs.push_back(MakeScriptVerb());
  verbs.push_back(MakeColumnsVerb());
  verbs.push_back(MakeRenameVerb());
  verbs.push_back(MakeWindowVerb());
  return verbs;
}

}  // namespace QxHost
