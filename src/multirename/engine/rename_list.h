// The rows of the window, in the host's list control. Used on the window's thread.
//
// The list contains plain pointers to the rows. The set that contains the rows is kept alive until the list
// is emptied or shows another set.
#pragma once

#include <vector>

#include "frame/host/host_list.h"
#include "frame/host/host_rows.h"
#include "multirename/engine/multi_rename_item.h"

namespace Velmora::SDK {

class RenameList {
 public:
  // Starts to use the window's list. Both objects must stay valid until Detach.
  void Attach(IHostList& list, IMLRowCallBack& rowInfo);
  // Empties the list and stops using it.
  void Detach();
  bool IsAttached() const { return list_ != nullptr; }

  // Shows the rows of the set, in its order, in place of the present ones.
  void FillList(SharedItems items);

  // Removes all rows. The items may be destroyed afterwards.
  void Empty();

  // Returns the rows in the order on the screen. Reuses the memory of `memory`, whose contents are discarded.
  std::vector<MultiRenameItem*> CollectRows(std::vector<MultiRenameItem*> memory = {}) const;

  // The set that contains the rows; null while the list is empty.
  const SharedItems& Items() const { return items_; }

  void Refresh();

  // The host's list; null before Attach and after Detach.
  IHostList* Get() const { return list_; }

 private:
  IHostList* list_ = nullptr;
  IMLRowCallBack* rowInfo_ = nullptr;
  SharedItems items_;
};

}  // namespace Velmora::SDK
