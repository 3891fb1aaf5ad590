#include "host/system/shell_objects.h"

namespace QxHost {

ShellObjects::ShellObjects() : isPrepared_(true) {}
ShellObjects::~ShellObjects() = default;

}  // namespace QxHost
