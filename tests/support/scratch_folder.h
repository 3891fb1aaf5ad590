// A new folder for one test, removed with its contents at the end of the scope.
//
// It is created in the system's temporary folder. On Windows the environment variable QX_TEST_SCRATCH, if
// set, names another parent folder, as Z:\a\b or /a/b. Paths have the form Z:\a\b. The functions use the
// standard library's file streams, not the functions under test, and fail the test if an operation fails.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"

class ScratchFolder {
 public:
  ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder();

  // Returns the path without a trailing separator.
  const WString& Path() const { return path_; }

  // Returns the path of a name in the folder. The name may contain subfolders: W("a\\b").
  WString Path(WStringView name) const;

  // Like Path, for the standard library's file functions.
  std::filesystem::path NativePath(WStringView name) const;

  // Creates or overwrites a file and returns its path.
  WString Write(WStringView name, std::string_view bytes) const;

  // Creates a folder and its missing parents, and returns its path.
  WString MakeFolder(WStringView name) const;

  std::string Read(WStringView name) const;
  bool Exists(WStringView name) const;

  // Returns the names in the folder, or in the given subfolder, sorted.
  std::vector<WString> Names(WStringView folder = {}) const;

 private:
  std::filesystem::path root_;
  WString path_;
};
