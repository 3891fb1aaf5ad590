// The texts that `qxhost --help` prints before and after the verbs and options.
#pragma once

namespace QxHost {

extern const char* const kHelpAbout;
extern const char* const kHelpFooter;
extern const char* const kRenameHelp;  // printed by `qxhost rename --help` after the options

// The text that `qxhost --version` prints. Keep it equal to the versions in qxhost.rc and CMakeLists.txt.
inline constexpr char kVersionText[] = "qxhost 1.3.0.0";

}  // namespace QxHost
