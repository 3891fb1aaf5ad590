// The picture that `qxhost window --screenshot` wants of the window that an extension opens.
#pragma once

#include "platform/text.h"

namespace QxHost {

struct PictureRequest {
  WString path;          // full path of the file, a PNG
  bool isTaken = false;  // the first window has been dealt with
  bool isSaved = false;
};

}  // namespace QxHost
