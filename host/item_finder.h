// Finds the items that a command line or a list names.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/file_item.h"
#include "host/folder_names.h"

namespace QxHost {

class ItemFinder {
 public:
  // `option` is what messages say before the text of a wrong item.
  ItemFinder(FileItemTree& items, std::string option) : items_(items), option_(std::move(option)) {}

  // The item of a path as it was typed, in UTF-8. Throws BadCall if there is none.
  FileItem* Find(std::string_view text);

  // The items of all, in order. A folder of which several are named one after the other is read at once.
  std::vector<FileItem*> FindAll(std::span<const std::string_view> texts);

 private:
  // Reads the folder that `count` of the texts begin with. False if it is better to look at each.
  bool ReadFolder(std::string_view prefix, std::size_t count);
  // The item of a name that the folder has shown; null if it must be looked at.
  FileItem* FindListed(std::string_view name);

  FileItemTree& items_;
  std::string option_;
  FolderNames names_;
  FileItem* folder_ = nullptr;  // whose names they are
  WString wideName_;
};

}  // namespace QxHost
