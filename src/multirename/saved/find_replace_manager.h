// The numbered lists of search pairs that the search dialog keeps, in "FindReplace.xml" in the host's
// configuration folder. Made, and read from the file, each time the dialog opens. No error of the file is
// reported. On the window's thread.
#pragma once

#include <map>

#include "frame/host/host_app.h"
#include "multirename/rules/replace_list.h"

namespace Velmora::SDK {

class FindReplaceManager {
 public:
  // The numbers that the keys F1 to F24 give.
  static constexpr s32 kFirstList = 1;
  static constexpr s32 kLastList = 24;

  explicit FindReplaceManager(IHostApp& hostApp);

  // Replaces the lists by those of the file: none if it is missing or is no such file. Elements without a
  // number above 0 are passed over; of two with one number the later counts.
  void Load();

  // Writes all lists, ascending by number, over the file.
  void Save() const;

  // Null if there is no such list.
  const SearchAndReplaceItems* Get(s32 number) const;

  // Replaces the list of that number or adds one, also an empty one (C-639).
  void Set(s32 number, SearchAndReplaceItems items);

  const std::map<s32, SearchAndReplaceItems>& Lists() const { return lists_; }
  const WString& FilePath() const { return filePath_; }

 private:
  WString filePath_;  // empty if the host gives no folder
  IHostApp& host_;
  std::map<s32, SearchAndReplaceItems> lists_;
};

}  // namespace Velmora::SDK
