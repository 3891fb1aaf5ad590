// The contents of the host's panels: the selected items, the focused item, all items of the view.
#pragma once

#include <optional>
#include <vector>

#include "host/services/file_item.h"

namespace QxHost {

class View {
 public:
  // `selected` is in the order of the selection; duplicates are ignored. `folder` is the full path of the
  // view's folder; empty for the folder of the focused item.
  View(FileItemTree& items, std::vector<FileItem*> selected, FileItem* focused, WString folder);

  // Implements the three codes of IHostApp::FileListRequest that fill a list. Returns non-zero on success; 0
  // if there is no focused item, the folder cannot be searched, or the code is another one. Mode 18 returns
  // only files, all others folders as well.
  int Fill(Velmora::SDK::u32 code, Velmora::SDK::IHostFileList& list, Velmora::SDK::u32 mode);

  const std::vector<FileItem*>& Selected() const { return selected_; }

  // Returns the focused item; null if no item has the focus.
  FileItem* Focused() const { return focused_; }

 private:
  bool ReadFolder();

  FileItemTree& items_;
  std::vector<FileItem*> selected_;
  FileItem* focused_;
  WString folder_;
  std::optional<std::vector<FileItem*>> all_;  // sorted by name; read when first needed
};

}  // namespace QxHost
