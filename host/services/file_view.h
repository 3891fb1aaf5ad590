// The information about the disk that the plan of a rename batch needs. Tests use an artificial one.
#pragma once

#include "host/system/folder_names.h"
#include "platform/text.h"

namespace QxHost {

class FileView {
 public:
  virtual ~FileView() = default;

  // Returns 0 if a file or folder exists at this full path, otherwise the system's error number.
  virtual DWORD Look(const WString& fullPath) = 0;

  // Returns whether two full paths, which both exist and differ only in letter case, refer to the same file.
  virtual bool AreOneFile(const WString& left, const WString& right) = 0;

  // Returns whether a folder is case-insensitive: names that differ only in letter case are the same name.
  // `fullPath` is a file that exists in the folder.
  virtual bool IgnoresCaseInFolderOf(const WString& fullPath) = 0;

  // Reads all names of a folder, whose path ends in a backslash. Returns false if that is not possible or the
  // names are more than `most`; the caller then checks each file.
  virtual bool ReadNames(const WString& folder, std::size_t most, FolderNames& names) = 0;
};

// The files of the system.
class DiskView : public FileView {
 public:
  DWORD Look(const WString& fullPath) override;
  bool AreOneFile(const WString& left, const WString& right) override;
  bool IgnoresCaseInFolderOf(const WString& fullPath) override;
  bool ReadNames(const WString& folder, std::size_t most, FolderNames& names) override {
    return ReadFolderNames(folder, most, names);
  }
};

}  // namespace QxHost
