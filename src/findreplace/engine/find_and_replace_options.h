// What a run of find and replace is asked to do.
#pragma once

#include <cstdint>
#include <memory>

#include "findreplace/engine/lines.h"
#include "platform/text.h"

namespace QXFindAndReplace {

class IFindAndReplaceCallback;

// These values stand in the settings of users.
enum FindAndReplaceFlag : std::uint32_t {
  ModeOne = 0x00000001,        // the first lines of both texts only (C-215)
  ModeMany = 0x00000002,       // two lists, paired by position
  ModeManySame = 0x00000004,   // a list, each replaced by the first line of the replace text
  ModeMultiline = 0x00000008,  // a block of consecutive lines
  IgnoreCase = 0x00000100,
  ReplaceAll = 0x00000200,      // no confirmation
  RegExp = 0x00000400,          // stored and shown; nothing reads it (C-214)
  ForceUtf8 = 0x00000800,       // plain 8-bit text is handled as UTF-8
  Silent = 0x00001000,          // no dialogs at all
  Wildcard = 0x00002000,        // the find text holds ? and *
  SaveAsNew = 0x10000000,       // write to the target name
  KeepBackup = 0x20000000,      // the old target stays as a backup
  ReplaceFile = 0x40000000,     // the old target's backup is deleted at the end
  OverwriteTarget = 0x80000000  // a target of SaveAsNew may be overwritten
};

struct FindAndReplaceOptions {
  IFindAndReplaceCallback* callback = nullptr;  // null: no questions and no reports
  std::uint32_t flags = 0;
  WString find;     // as entered
  WString replace;  // as entered
  // Both texts split, once for each encoding in the order in which files ask for it; null until then.
  std::shared_ptr<Lines> findLinesAnsi;
  std::shared_ptr<Lines> replaceLinesAnsi;
  std::shared_ptr<Lines> findLinesUtf8;
  std::shared_ptr<Lines> replaceLinesUtf8;
  std::shared_ptr<Lines> findLinesWide;
  std::shared_ptr<Lines> replaceLinesWide;
};

}  // namespace QXFindAndReplace
