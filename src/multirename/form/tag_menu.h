// The menu of tags for a template box.
#pragma once

#include "frame/host/host_app.h"
#include "multirename/form/menu_line.h"

namespace Velmora::SDK {

// The line that opens the dialog of property tags.
constexpr int kPropertyTagLine = 10;

MenuLines TagMenuLines(IHostApp& host);

// The tag of a line ("[N]"); null for the dialog's line and for what is no line.
const WCHAR* TagOfLine(int number);

}  // namespace Velmora::SDK
