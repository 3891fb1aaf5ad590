// Finds the items that a command line or a list names.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/services/file_item.h"
#include "host/system/folder_names.h"

namespace QxHost {

// The item of a path as it was typed, in UTF-8. Throws BadCall, whose message begins with `option`, if
// nothing has that path.
FileItem* FindItem(FileItemTree& items, const std::string& option, std::string_view text);

class ItemFinder {
 public:
  // `option` is what messages say before the text of a wrong item. Folders that are read go to `listings`.
  ItemFinder(FileItemTree& items, FolderListings& listings, std::string option)
      : items_(items), listings_(listings), option_(std::move(option)) {}

  // Appends the items of all paths, in order. A folder of which several are named one after the other is read
  // at once. Throws as FindItem.
  void FindAll(std::span<const std::string> texts, std::vector<FileItem*>& found);

 private:
  // Reads the folder that `count` of the texts begin with. Null if it is better to look at each.
  FolderNames* ReadFolder(std::string_view prefix, std::size_t count);
  // The item of a name that the folder has shown; null if it must be looked at.
  FileItem* FindListed(FolderNames& names, std::string_view name);

  // How many names were looked for in a folder. One that could not be read, as it holds many more, is read
  // again once there are twice as many.
  struct Demand {
    std::size_t names = 0;
    std::size_t atFailure = 0;
  };

  FileItemTree& items_;
  FolderListings& listings_;
  std::unordered_map<WString, Demand> demands_;
  std::string option_;
  FileItem* folder_ = nullptr;  // that was read last
  WString wideName_;
};

}  // namespace QxHost
