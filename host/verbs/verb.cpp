#include "host/verbs/verb.h"

namespace QxHost {

const std::vector<std::string>& Verb::Items() const {
  static const std::vector<std::string> kNone;
  return kNone;
}

}  // namespace QxHost
