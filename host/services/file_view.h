// What the plan of a rename batch must know of the disk. Tests plan over one that is made up.
#pragma once

#include "host/system/folder_names.h"
#include "platform/text.h"

namespace QxHost {

class FileView {
 public:
  virtual ~FileView() = default;

  // 0 if there is a file or folder of this full path, otherwise the error number of the system.
  virtual DWORD Look(const WString& fullPath) = 0;

  // Whether two full paths, both of which exist and which differ in letter case alone, mean one file.
  virtual bool AreOneFile(const WString& left, const WString& right) = 0;

  // Whether two new names in a folder are one name if they differ in letter case alone. `fullPath` is a file
  // that exists in the folder.
  virtual bool IsCaseBlindBeside(const WString& fullPath) = 0;

  // Reads all names of a folder, whose path ends in a backslash. False if they cannot be had that way, or are
  // more than `most`: then each file is looked at.
  virtual bool ReadNames(const WString& folder, std::size_t most, FolderNames& names) = 0;
};

// The files of the system.
class DiskView : public FileView {
 public:
  DWORD Look(const WString& fullPath) override;
  bool AreOneFile(const WString& left, const WString& right) override;
  bool IsCaseBlindBeside(const WString& fullPath) override;
  bool ReadNames(const WString& folder, std::size_t most, FolderNames& names) override {
    return ReadFolderNames(folder, most, names);
  }
};

}  // namespace QxHost
