// The file that a script command works on.
#pragma once

#include <optional>

#include "frame/host/host_objects.h"

namespace Velmora::SDK {

// Looks up a path (service 3000) and holds its item in a list. The destructor passes the list to the
// service's ReleaseFileList, then releases the service, then the list.
class ScriptFile {
 public:
  ScriptFile(IHostApp& host, const WString& path);
  ScriptFile(const ScriptFile&) = delete;
  ScriptFile& operator=(const ScriptFile&) = delete;
  ~ScriptFile();

  // False if the file was not found, or the host provides no service or no list.
  explicit operator bool() const { return list_.has_value(); }
  IHostFileList* List() const { return list_ ? list_->Get() : nullptr; }

 private:
  // Members are destroyed in reverse order, so the service is released first.
  std::optional<HostObject<IHostFileList>> list_;
  std::optional<HostService<IHostFileOperation>> service_;
};

}  // namespace Velmora::SDK
