// The numbered lists of search pairs of the search dialog, in "FindReplace.xml" in the host's configuration
// folder. Created and loaded each time the dialog opens. Errors of the file are not reported. Used on the
// window's thread.
#pragma once

#include <map>

#include "frame/host/host_app.h"
#include "multirename/rules/replace_list.h"

namespace Velmora::SDK {

class FindReplaceManager {
 public:
  // The numbers of the keys F1 to F24.
  static constexpr s32 kFirstList = 1;
  static constexpr s32 kLastList = 24;

  explicit FindReplaceManager(IHostApp& hostApp);

  // Replaces the lists by those of the file; by no lists if the file is missing or invalid. Ignores
  // elements without a number above 0. If two have the same number, uses the later one.
  void Load();

  // Overwrites the file with all lists, in ascending order of their numbers.
  void Save() const;

  // Returns null if there is no such list.
  const SearchAndReplaceItems* Get(s32 number) const;

  // Adds or replaces the list with this number. It may be empty (C-639).
  void Set(s32 number, SearchAndReplaceItems items);

  const std::map<s32, SearchAndReplaceItems>& Lists() const { return lists_; }
  const WString& FilePath() const { return filePath_; }

 private:
  WString filePath_;  // empty if the host provides no folder
  IHostApp& host_;
  std::map<s32, SearchAndReplaceItems> lists_;
};

}  // namespace Velmora::SDK
