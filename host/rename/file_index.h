// The number that a file keeps whatever its name is.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/text.h"

namespace QxHost {

// The number of a file within its volume, which a rename leaves as it is. A volume may give the number of a
// file that is gone to a new one.
using FileIndex = std::uint64_t;

constexpr FileIndex kNoFile = 0;

// Looks numbers up, quickly for many names of one folder, one after the other. No folder may get another name
// in between.
class FileIndexes {
 public:
  FileIndexes();
  FileIndexes(const FileIndexes&) = delete;
  FileIndexes& operator=(const FileIndexes&) = delete;
  ~FileIndexes();

  // Of a file or folder in the folder of that full path; of a link, the number of the link itself. kNoFile if
  // there is none, or the system does not say.
  FileIndex Of(const WString& folder, WStringView name);

  // False for a folder that cannot be reached.
  bool CanLookIn(const WString& folder);

 private:
  class Folder;
  std::unique_ptr<Folder> folder_;  // of the last look-up
};

}  // namespace QxHost
