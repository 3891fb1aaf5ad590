// The request of `qxhost window --screenshot` for a picture of the window that an extension opens.
#pragma once

#include "platform/text.h"

namespace QxHost {

struct PictureRequest {
  WString path;          // full path of the file, a PNG
  bool isTaken = false;  // the picture of the first window has been taken
  bool isSaved = false;
};

}  // namespace QxHost
