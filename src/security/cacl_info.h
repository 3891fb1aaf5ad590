// The rights of the user who runs the program on one file, from the file's access list.
#pragma once

#include <forward_list>

#include "platform/security_api.h"
#include "platform/text.h"

class CACLInfo {
 public:
  explicit CACLInfo(WString path) : path_(std::move(path)) {}
  virtual ~CACLInfo() = default;

  // "RWX", each letter a blank where a right is missing. Three blanks for a file that cannot be read and for
  // one without a list (C-504).
  WString AccessText() const;

 private:
  WString path_;
  // None are ever put in: the rights are asked of the file's own list.
  std::forward_list<ACCESS_MASK> entries_;
};

// The three letters of a mask of file rights.
WString AccessTextOf(DWORD mask);
