// Finds the items that are named in the command line or in a list.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/services/file_item.h"
#include "host/system/folder_names.h"

namespace QxHost {

// Returns the item of a path as it was typed, in UTF-8. Throws BadCall if it does not exist; the message
// begins with `option`.
FileItem* FindItem(FileItemTree& items, const std::string& option, std::string_view text);

class ItemFinder {
 public:
  // Messages about an item that does not exist begin with `option`. Stores the folders that it reads in
  // `listings`.
  ItemFinder(FileItemTree& items, FolderListings& listings, std::string option)
      : items_(items), listings_(listings), option_(std::move(option)) {}

  // Appends the items of all paths, in order. Reads a folder as a whole if several paths in a row are in it.
  // Throws as FindItem does.
  void FindAll(std::span<const std::string> texts, std::vector<FileItem*>& found);

 private:
  // Reads the folder that `count` of the texts begin with. Returns null if it is cheaper to check each file.
  FolderNames* ReadFolder(std::string_view prefix, std::size_t count);
  // Returns the item of a name in the listing; null if the file itself must be checked.
  FileItem* FindListed(FolderNames& names, std::string_view name);

  // How many names have been searched in a folder. A folder that was not read because it has many more
  // entries is tried again when that number has doubled.
  struct Demand {
    std::size_t names = 0;
    std::size_t atFailure = 0;
  };

  FileItemTree& items_;
  FolderListings& listings_;
  std::unordered_map<WString, Demand> demands_;
  std::string option_;
  FileItem* folder_ = nullptr;  // the folder read last
  WString wideName_;
};

}  // namespace QxHost
