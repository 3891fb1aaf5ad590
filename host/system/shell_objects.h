// Prepares a thread for the system's shell objects, as the module expects its host to do.
#pragma once

namespace QxHost {

// Initialises COM on the calling thread while the object lives. Does nothing in the native build.
class ShellObjects {
 public:
  ShellObjects();
  ShellObjects(const ShellObjects&) = delete;
  ShellObjects& operator=(const ShellObjects&) = delete;
  ~ShellObjects();

 private:
  [[maybe_unused]] bool isPrepared_;  // not used in the native build
};

}  // namespace QxHost
