// The beginning of a file, for the sample of the Sort Lines dialog.
#pragma once

#include <span>

#include "platform/text.h"

namespace WQLineSorter {

// What the first 4096 bytes of the file say, with CR LF for each LF and no other CR. A file that cannot be
// read is as an empty one.
WString ReadSample(const WString& path);

// The rule itself: 16-bit text behind a mark (FF FE), text of the thread's code page without one.
WString SampleText(std::span<const char> bytes);

}  // namespace WQLineSorter
