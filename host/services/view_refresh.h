// Service 3010: collects folders, whose views are refreshed when the service is released.
#pragma once

#include <vector>

#include "frame/host/host_files.h"

namespace QxHost {

class ViewRefresh final : public Velmora::SDK::IHostViewRefresh {
 public:
  void AddFolder(const WCHAR* path) override { folders.emplace_back(ViewOf(path)); }

  std::vector<WString> folders;
};

}  // namespace QxHost
