#include "host/run_qxhost.h"

int main(int argc, char** argv) {
  return QxHost::RunQxHost(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
