// What shows of the ruler of the Sort Lines dialog while the sample below it is scrolled to the right.
#pragma once

#include "platform/text.h"

namespace WQLineSorter {

struct ScrolledRuler {
  WString text;    // the characters that still show whole, from the left edge on
  int indent = 0;  // pixels between the left edge and the first of them
};

// Returns the ruler without its first `scrolled` pixels, where each character is `characterWidth` pixels
// wide. A character that the edge cuts through is left out, and the rest keeps its place: the sample stops
// between characters as well. A width or a distance that is not above 0 scrolls nothing.
ScrolledRuler ScrollRuler(const WString& ruler, int scrolled, int characterWidth);

}  // namespace WQLineSorter
