// The menu of tags for a template box.
#pragma once

#include "frame/host/host_app.h"
#include "multirename/form/menu_line.h"

namespace Velmora::SDK {

// The line that opens the dialog of property tags.
constexpr int kPropertyTagLine = 10;

MenuLines TagMenuLines(IHostApp& host);

// Returns the tag of a line, such as "[N]"; null for the dialog's line and for a number that is not a line.
const WCHAR* TagOfLine(int number);

}  // namespace Velmora::SDK
