// What the host's panels show: the selected items, the focused one, all items of the view, the other panel.
#pragma once

#include <optional>
#include <vector>

#include "host/services/file_item.h"

namespace QxHost {

class View {
 public:
  // `selected` in the order of the selection; an item counts once. Paths are full ones. `folder` is the
  // view's folder, empty for the focused item's.
  View(FileItemTree& items, std::vector<FileItem*> selected, FileItem* focused, WString folder);

  // As IHostApp::FileListRequest, for the three codes that fill a list: non-zero on success, 0 without a
  // focused item or a folder that can be searched, and for any other code. Mode 18 wants files alone, all
  // others take folders as well.
  int Fill(Velmora::SDK::u32 code, Velmora::SDK::IHostFileList& list, Velmora::SDK::u32 mode);

  const std::vector<FileItem*>& Selected() const { return selected_; }

  // Null if nothing is selected.
  FileItem* Focused() const { return focused_; }

 private:
  bool ReadFolder();

  FileItemTree& items_;
  std::vector<FileItem*> selected_;
  FileItem* focused_;
  WString folder_;
  std::optional<std::vector<FileItem*>> all_;  // sorted by name; read when it is first asked for
};

}  // namespace QxHost
