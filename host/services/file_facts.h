// Reads the information about files that the host's properties show.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/text.h"

namespace QxHost {

// Times are local times, as a FILETIME; 0 if the file system does not store the time.
struct FileFacts {
  std::uint64_t size = 0;  // bytes
  DWORD attributes = 0;
  std::uint64_t created = 0;
  std::uint64_t modified = 0;
  std::uint64_t accessed = 0;
};

// Returns the information about a file or folder; std::nullopt if it does not exist. May be called from any
// thread.
std::optional<FileFacts> ReadFileFacts(const WString& fullPath);

}  // namespace QxHost
