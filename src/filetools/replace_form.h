// The fields of the Replace X with Y dialog.
#pragma once

#include <vector>

#include "platform/text.h"

struct ReplaceForm {
  // Where to replace in a file's name: the item data of the part list's rows.
  enum Part : int { kNoPart = -1, kBaseName = 1, kExtension = 2, kWholeName = 3 };

  WString find;
  WString replace;
  int part = kBaseName;  // kNoPart if no row is selected

  // The strings of the two editable lists, newest first.
  std::vector<WString> findHistory;
  std::vector<WString> replaceHistory;
};
