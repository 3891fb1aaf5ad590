// The numbers of the module's commands. The menu declares them to the host, which passes one to the
// extension's OnCommand; the number of a script command is in its call. Users' key assignments, tool bars and
// scripts store these numbers, so a number must never change its meaning.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

enum CommandNumber : s32 {
  // Every extension with commands handles these two.
  kCommandShutdown = 20002,  // the host closes the extension: calls its OnShutdown
  kCommandIgnored = 20500,   // returns 0, like an unknown number

  // The items of the control panel: the number of an item is this one plus its row id. Numbers of the range
  // without an item are handled and do nothing (C-461).
  kCommandFirstControlPanel = 6100,
  kCommandLastControlPanel = 7100,

  // Quick rename.
  kCommandUpperCase = 30000,
  kCommandLowerCase = 30001,
  kCommandTitleCase = 30002,
  kCommandUnderscoresToBlanks = 30003,
  kCommandUnderscoresToDots = 30004,
  kCommandBlanksToUnderscores = 30005,
  kCommandBlanksToDots = 30006,
  kCommandDotsToUnderscores = 30007,
  kCommandDotsToBlanks = 30008,
  kCommandReplaceXWithY = 30010,
  kCommandHyphensToBlanks = 30011,
  kCommandBlanksToHyphens = 30012,
  kCommandRenameSameBaseName = 30020,
  kCommandUpperCaseBase = 30030,
  kCommandUpperCaseExtension = 30031,
  kCommandLowerCaseBase = 30040,
  kCommandLowerCaseExtension = 30041,
  kCommandTidyName = 30050,
  kCommandSetExtension = 30060,

  // Text and XML.
  kCommandLineEndsToLf = 30101,
  kCommandLineEndsToCrLf = 30102,
  kCommandLineEndsToCr = 30103,
  kCommandTabsToBlanks = 30110,
  kCommandSortLines = 30150,
  kCommandFindAndReplace = 30151,
  kCommandFormatXml = 30200,
  kCommandCompactXml = 30201,
  kCommandEncodeBase64 = 30210,
  kCommandDecodeBase64 = 30211,

  // File security and links.
  kCommandTakeOwnership = 30300,
  kCommandResetAccess = 30310,
  kCommandAddAccess = 30311,
  kCommandCreateLink = 30350,

  // The script commands, which are not in the menu.
  kScriptCreateLink = 30351,
  kScriptSortLines = 30352,
  kScriptFindAndReplace = 30353,

  // The window of MultiRename.
  kCommandMultiRename = 31000,
  // Posted by MultiRename's window by way of the host to its extension, to read the selection on the main
  // thread. The second argument is the event that the extension sets afterwards.
  kCommandReadSelection = 32000,
};

}  // namespace Velmora::SDK
