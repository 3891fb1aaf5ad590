// Records the results of a batch of renames in the order of the calls.
#pragma once

#include <utility>
#include <vector>

#include "frame/host/host_files.h"

namespace QxHost {

class RecordedResults final : public Velmora::SDK::IRenameResultCallback {
 public:
  void OnRenameResult(void* item, Velmora::SDK::u32 resultCode) override {
    results.emplace_back(item, resultCode);
  }
  std::vector<std::pair<void*, Velmora::SDK::u32>> results;
};

}  // namespace QxHost
