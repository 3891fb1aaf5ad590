// The options of a run of Find and Replace.
#pragma once

#include <cstdint>
#include <memory>

#include "findreplace/engine/lines.h"
#include "platform/text.h"

namespace QXFindAndReplace {

class IFindAndReplaceCallback;

// The values are stored in users' settings and must not change.
enum FindAndReplaceFlag : std::uint32_t {
  ModeOne = 0x00000001,        // only the first line of each text (C-215)
  ModeMany = 0x00000002,       // two lists, paired by position
  ModeManySame = 0x00000004,   // a list; each item is replaced by the first line of the replace text
  ModeMultiline = 0x00000008,  // a block of consecutive lines
  IgnoreCase = 0x00000100,
  ReplaceAll = 0x00000200,      // no confirmation
  RegExp = 0x00000400,          // only stored and shown; has no effect (C-214)
  ForceUtf8 = 0x00000800,       // plain 8-bit text is processed as UTF-8
  Silent = 0x00001000,          // no dialogs and no questions
  Wildcard = 0x00002000,        // the find text contains ? and *
  SaveAsNew = 0x10000000,       // write to the target name
  KeepBackup = 0x20000000,      // an existing target becomes a backup
  ReplaceFile = 0x40000000,     // as KeepBackup; the backup is deleted at the end
  OverwriteTarget = 0x80000000  // an existing target of SaveAsNew may be overwritten
};

struct FindAndReplaceOptions {
  IFindAndReplaceCallback* callback = nullptr;  // if null, the run asks no questions and reports no errors
  std::uint32_t flags = 0;
  WString find;     // as entered
  WString replace;  // as entered
  // The lines of both texts in each encoding. Null until the first file with the encoding is processed.
  std::shared_ptr<Lines> findLinesAnsi;
  std::shared_ptr<Lines> replaceLinesAnsi;
  std::shared_ptr<Lines> findLinesUtf8;
  std::shared_ptr<Lines> replaceLinesUtf8;
  std::shared_ptr<Lines> findLinesWide;
  std::shared_ptr<Lines> replaceLinesWide;
};

}  // namespace QXFindAndReplace
