// The rows of the window, in the host's list control. On the window's thread.
//
// The list holds plain pointers to the rows; the set that they are of stays alive until the list is empty or
// has the rows of another.
#pragma once

#include <vector>

#include "frame/host/host_list.h"
#include "frame/host/host_rows.h"
#include "multirename/engine/multi_rename_item.h"

namespace Velmora::SDK {

class RenameList {
 public:
  // The window's list exists from here until Detach. Both outlive that time.
  void Attach(IHostList& list, IMLRowCallBack& rowInfo);
  // Empties the list and lets it go.
  void Detach();
  bool Exists() const { return list_ != nullptr; }

  // Shows these rows, in the order of the set, in place of those that were there.
  void FillList(SharedItems items);

  // Takes all rows out. The items may die after this.
  void Empty();

  // The rows as they are shown, in the order of the screen. The memory of a vector that is not needed any
  // more is used for them.
  std::vector<MultiRenameItem*> CollectRows(std::vector<MultiRenameItem*> memory = {}) const;

  // The set that they are of; null while the list is empty.
  const SharedItems& Items() const { return items_; }

  void Refresh();

  // The list itself; null before Attach and after Detach.
  IHostList* Get() const { return list_; }

 private:
  IHostList* list_ = nullptr;
  IMLRowCallBack* rowInfo_ = nullptr;
  SharedItems items_;
};

}  // namespace Velmora::SDK
