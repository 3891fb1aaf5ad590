// The rights of the current user to a file, computed from the file's access list.
#pragma once

#include <forward_list>

#include "platform/security_api.h"
#include "platform/text.h"

class CACLInfo {
 public:
  explicit CACLInfo(WString path) : path_(std::move(path)) {}
  virtual ~CACLInfo() = default;

  // Returns "RWX" with a blank for each right that is missing. Returns three blanks if the access list cannot
  // be read, and if the file has none (C-504).
  WString AccessText() const;

 private:
  WString path_;
  // Always empty: the rights come from the file's own list.
  std::forward_list<ACCESS_MASK> entries_;
};

// Returns the three letters of a mask of file rights.
WString AccessTextOf(DWORD mask);
