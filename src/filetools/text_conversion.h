// Rewriting a text file with other line ends, or with blanks in place of tabs. Works on bytes and knows no
// encoding: in a two-byte encoding single bytes are changed as if they were ANSI text.
#pragma once

#include <cstdint>

#include "frame/services/host_app.h"
#include "platform/text.h"

// The menu commands that a conversion belongs to.
enum TextConversion : Velmora::SDK::s32 {
  kLineEndsToLf = 30101,
  kLineEndsToCrLf = 30102,
  kLineEndsToCr = 30103,
  kTabsToBlanks = 30110
};

// Writes the converted text to a new file. False if the source cannot be opened, the target exists or cannot
// be made, or a write fails. A read that fails ends the text, and a failure of the very last write is not
// told: the answer is true all the same, which is meant. `tabWidth` is for kTabsToBlanks; 0 drops the tabs.
//
// The byte behind a CR is fetched with it. If it is no LF it is written as it stands, so the second of two
// CRs is not converted; this is meant. A CR at the very end of the file is lost under kLineEndsToCrLf: so is
// this.
bool ConvertTextFile(const WString& source, const WString& target, Velmora::SDK::s32 conversion,
                     std::uint32_t tabWidth);

// Puts the converted text in the file's place, by way of path + ".temp" + the seconds of the clock. Says
// nothing of failures: one before the end leaves the file as it was; where the file cannot be deleted, or the
// new one not be renamed, the converted text stands under the temporary name.
void ConvertTextFileInPlace(Velmora::SDK::IHostApp& host, const WString& path, Velmora::SDK::s32 conversion,
                            std::uint32_t tabWidth);

// 30101, 30102, 30103 and 30110: asks once, and converts the selected files.
void ConvertTextCommand(Velmora::SDK::IHostApp& host, Velmora::SDK::s32 number);
