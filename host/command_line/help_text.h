// What `qxhost --help` says before and after the verbs and options.
#pragma once

namespace QxHost {

extern const char* const kHelpAbout;
extern const char* const kHelpFooter;
extern const char* const kRenameHelp;  // what `qxhost rename --help` prints after the options

// What `qxhost --version` says. The file's own version is in qxhost.rc, and the project's in CMakeLists.txt.
inline constexpr char kVersionText[] = "qxhost 1.3.0.0";

}  // namespace QxHost
