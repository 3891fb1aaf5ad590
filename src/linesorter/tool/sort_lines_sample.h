// Reads the beginning of a file for the sample in the Sort Lines dialog.
#pragma once

#include <span>

#include "platform/text.h"

namespace WQLineSorter {

// Returns the text in the first 4096 bytes of the file, with CR LF for each LF and no other CR. Returns an
// empty text if the file cannot be read.
WString ReadSample(const WString& path);

// Same for bytes: after a mark (FF FE) they are 16-bit text, without it text of the thread's code page.
WString SampleText(std::span<const char> bytes);

}  // namespace WQLineSorter
