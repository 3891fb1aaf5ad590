// The use of the system's shell objects on a thread, which the module expects its host to have prepared.
#pragma once

namespace QxHost {

// For as long as it lives, on the thread that made it: COM on Windows, nothing elsewhere.
class ShellObjects {
 public:
  ShellObjects();
  ShellObjects(const ShellObjects&) = delete;
  ShellObjects& operator=(const ShellObjects&) = delete;
  ~ShellObjects();

 private:
  [[maybe_unused]] bool isPrepared_;  // natively there is nothing to give back
};

}  // namespace QxHost
