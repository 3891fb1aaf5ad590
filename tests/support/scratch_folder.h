// A fresh folder for one test, removed with all that is in it at the end of its scope.
//
// It lies in the system's temporary folder. On Windows the environment variable QX_TEST_SCRATCH, if set,
// names the folder to take instead, as Z:\a\b or /a/b. Paths have the form Z:\a\b. The helpers go by the
// language's own file streams and not by the functions that the tests are about, and fail the test where they
// cannot do what they say.
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

  // Without a separator at the end.
  const WString& Path() const { return path_; }

  // The path of a name in the folder; the name may go down: W("a\\b").
  WString Path(WStringView name) const;

  // The same for the language's own files.
  std::filesystem::path NativePath(WStringView name) const;

  // Makes or replaces a file and answers its path.
  WString Write(WStringView name, std::string_view bytes) const;

  // Makes a folder, with those above it, and answers its path.
  WString MakeFolder(WStringView name) const;

  std::string Read(WStringView name) const;
  bool Exists(WStringView name) const;

  // The names in the folder (or in the given one below it), sorted.
  std::vector<WString> Names(WStringView folder = {}) const;

 private:
  std::filesystem::path root_;
  WString path_;
};
