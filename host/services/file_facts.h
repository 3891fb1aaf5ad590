// What the system knows of a file, as the host's properties show it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/text.h"

namespace QxHost {

// Times are those of a clock on the wall, as a FILETIME: a name shows when a photo was taken where it was
// taken. 0 where the file system keeps no such time.
struct FileFacts {
  std::uint64_t size = 0;  // bytes
  DWORD attributes = 0;
  std::uint64_t created = 0;
  std::uint64_t modified = 0;
  std::uint64_t accessed = 0;
};

// Nothing if there is no such file or folder. Any thread.
std::optional<FileFacts> ReadFileFacts(const WString& fullPath);

// A text that tells the file or folder from all others, whatever its name is; of a link, the link itself.
// Empty if there is no such file, or the system does not say.
std::string FileIdentity(const WString& fullPath);

}  // namespace QxHost
