// Identifies files independently of their names.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/text.h"

namespace QxHost {

// The number of a file within its volume, which a rename does not change. A volume may give the number of a
// deleted file to a new one.
using FileIndex = std::uint64_t;

constexpr FileIndex kNoFile = 0;

// Looks up numbers. Fast for successive names of the same folder; no folder may be renamed between two
// look-ups.
class FileIndexes {
 public:
  FileIndexes();
  FileIndexes(const FileIndexes&) = delete;
  FileIndexes& operator=(const FileIndexes&) = delete;
  ~FileIndexes();

  // Returns the number of a file or folder in the folder with this full path; for a link, the number of the
  // link itself. Returns kNoFile if there is no such file or the system does not provide its number.
  FileIndex Of(const WString& folder, WStringView name);

  // Returns false if the folder cannot be reached.
  bool CanLookIn(const WString& folder);

 private:
  class Folder;
  std::unique_ptr<Folder> folder_;  // of the last look-up
};

}  // namespace QxHost
