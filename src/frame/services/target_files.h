// The target files of a run over a list of files: their paths, and whether existing ones may be overwritten.
#pragma once

#include "frame/host/host_app.h"

namespace Velmora::SDK {

// The size of a buffer for the longest path of the system, in characters.
inline constexpr u32 kMaxTargetPathChars = 32768;

// Returns the result of `path`, an operation of `item` that stores a path of any length in a buffer.
template <typename Result>
WString PathOf(IHostFileItem& item, Result (IHostFileItem::*path)(WCHAR*, u32)) {
  WString text(kMaxTargetPathChars, WCHAR());
  (item.*path)(text.data(), kMaxTargetPathChars);
  text.resize(ViewOf(text.c_str()).size());
  return text;
}

// Returns the path in `folder` with the name that BuildTargetName makes from the item and the pattern.
// `folder` need not end in a backslash. For an empty pattern returns the folder, with a backslash.
WString TargetPath(WString folder, IHostFileItem& item, WStringView pattern);

// What to do with a file, depending on its target.
enum class TargetAnswer {
  kFree,     // the target does not exist
  kReplace,  // the target exists and may be overwritten
  kSkip,
  kCancel  // ends the run
};

// How a run treats existing targets.
struct TargetRule {
  TextId title;       // the title of the question
  bool isSilent;      // do not ask the user
  bool mayOverwrite;  // whether a silent run overwrites targets
};

// Returns whether the target may be written. If it exists, asks the user with a box with yes, no and cancel;
// a silent run uses `rule.mayOverwrite` instead.
TargetAnswer AskAboutTarget(IHostApp& host, const WString& target, const TargetRule& rule);

}  // namespace Velmora::SDK
