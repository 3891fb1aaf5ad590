// The target files of a run over a list of files: where each stands, and whether it may be written.
#pragma once

#include "frame/host/host_app.h"

namespace Velmora::SDK {

// More than the longest path of the system.
inline constexpr u32 kMostPathChars = 32768;

// A path of an item, of any length, from the operation that gives it.
template <typename Result>
WString PathOf(IHostFileItem& item, Result (IHostFileItem::*path)(WCHAR*, u32)) {
  WString text(kMostPathChars, WCHAR());
  (item.*path)(text.data(), kMostPathChars);
  text.resize(ViewOf(text.c_str()).size());
  return text;
}

// The item's name by a pattern (BuildTargetName), in a folder that may end in a backslash or not. An empty
// pattern gives the folder itself.
WString TargetPath(WString folder, IHostFileItem& item, WStringView pattern);

// What becomes of a file by its target.
enum class TargetAnswer {
  kFree,     // there is no target yet
  kReplace,  // there is one, and it may be overwritten
  kSkip,
  kCancel  // ends the run
};

struct TargetRule {
  TextId title;       // of the question
  bool isSilent;      // nobody is asked
  bool mayOverwrite;  // the answer of a silent run
};

// Asks whether a target that exists may be overwritten, by a box with yes, no and cancel; a silent run has
// its answer.
TargetAnswer AskAboutTarget(IHostApp& host, const WString& target, const TargetRule& rule);

}  // namespace Velmora::SDK
