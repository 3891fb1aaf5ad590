// The one file that a script command works on.
#pragma once

#include <optional>

#include "frame/host/host_objects.h"

namespace Velmora::SDK {

// Looks a path up (service 3000) and holds its item in a list. At the end of its scope, also when something
// is thrown through it, the list is handed to the service, then the service is given back, then the list is
// released.
class ScriptFile {
 public:
  ScriptFile(IHostApp& host, const WString& path);
  ScriptFile(const ScriptFile&) = delete;
  ScriptFile& operator=(const ScriptFile&) = delete;
  ~ScriptFile();

  // False if the file was not found, or the host has no service or no list; then nothing is held.
  explicit operator bool() const { return list_.has_value(); }
  IHostFileList* List() const { return list_ ? list_->Get() : nullptr; }

 private:
  // In this order, so that the service goes first.
  std::optional<HostObject<IHostFileList>> list_;
  std::optional<HostService<IHostFileOperation>> service_;
};

}  // namespace Velmora::SDK
