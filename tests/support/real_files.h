// A fake host whose items are real files of a scratch folder.
#pragma once

#include "support/fake_host.h"
#include "support/scratch_folder.h"

class RealFiles {
 public:
  FakeHost host;
  const ScratchFolder scratch;

  // Creates a file, adds it to the host, and returns its path.
  WString Add(const WString& name, std::string_view bytes) { return ItemOf(name, bytes)->FullPath(); }

  // Like Add, and selects the item.
  WString Select(const WString& name, std::string_view bytes) {
    FakeFileItem* const item = ItemOf(name, bytes);
    host.selection.push_back(item);
    return item->FullPath();
  }

 private:
  FakeFileItem* ItemOf(const WString& name, std::string_view bytes) {
    scratch.Write(name, bytes);
    FakeFileItem* const item = host.AddFileIn(scratch.Path() + W("\\"), name);
    host.fileOperation.items.push_back(item);
    return item;
  }
};
