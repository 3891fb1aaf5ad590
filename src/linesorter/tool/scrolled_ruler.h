// The visible part of the ruler of the Sort Lines dialog when the sample below it is scrolled to the right.
#pragma once

#include "platform/text.h"

namespace WQLineSorter {

struct ScrolledRuler {
  WString text;    // the characters that are fully visible, from the left edge on
  int indent = 0;  // the distance of the first of them from the left edge in pixels
};

// Returns the ruler without its first `scrolled` pixels, if each character is `characterWidth` pixels wide.
// Omits a character that is cut by the left edge; the others keep their positions, because the sample can be
// scrolled by parts of a character as well. If either number is 0 or less, returns the whole ruler.
ScrolledRuler ScrollRuler(const WString& ruler, int scrolled, int characterWidth);

}  // namespace WQLineSorter
