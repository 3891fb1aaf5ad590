#include "host/verbs/verb.h"

namespace QxHost {

const std::vector<std::string>& Verb::Items() const {
  static const std::vector<std::string> kNone;
  return kNone;
}

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
