#include "host/verbs/run_qxhost.h"
#include "platform/text.h"

int wmain(int argc, wchar_t** argv) {
  std::vector<std::string> arguments;
  for (int index = 1; index < argc; ++index) arguments.push_back(ToUtf8(argv[index]));
  return QxHost::RunQxHost(std::move(arguments));
}
