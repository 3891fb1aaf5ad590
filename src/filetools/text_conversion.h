// Rewriting a text file with other line ends, or with blanks in place of tabs. Works on bytes and knows no
// encoding: in a two-byte encoding single bytes are changed as if they were ANSI text (C-441).
#pragma once

#include <cstdint>

#include "frame/host/command_numbers.h"
#include "frame/host/host_app.h"
#include "platform/text.h"

// What became of a conversion.
struct ConvertedText {
  bool isTargetNew = false;  // the target is a file that this run has made
  bool isConverted = false;  // what ConvertTextFile returns
  bool isWhole = false;      // the text was converted, and no read and no write failed
};

// Writes the converted text to a new file, which must not exist. `conversion` is the command's number:
// kCommandLineEndsToLf, kCommandLineEndsToCrLf, kCommandLineEndsToCr or kCommandTabsToBlanks. `tabWidth` is
// for the last of these; 0 drops the tabs (C-445).
//
// The byte after a CR is read with it. If it is not an LF it is written as it is, so the second of two CRs is
// not converted (C-442). kCommandLineEndsToCrLf drops a CR that is the last byte of the file (C-443).
ConvertedText ConvertText(const WString& source, const WString& target, Velmora::SDK::s32 conversion,
                          std::uint32_t tabWidth);

// The same. Returns false if the source cannot be opened, the target exists or cannot be made, or a write
// fails. Returns true even if a read fails, which ends the text, or the very last write (C-444).
bool ConvertTextFile(const WString& source, const WString& target, Velmora::SDK::s32 conversion,
                     std::uint32_t tabWidth);

// Puts the converted text in the file's place, by way of path + ".temp" + the seconds of the clock. Leaves
// the file as it was, in silence, unless its whole text was read and written; where the file cannot be
// deleted the converted text stays under the temporary name. A temporary file that exists already is never
// touched.
//
// If the new file cannot be renamed once the old one is deleted, the text is copied back to the file's name;
// if that fails too, a box says where the text is.
void ConvertTextFileInPlace(Velmora::SDK::IHostApp& host, const WString& path, Velmora::SDK::s32 conversion,
                            std::uint32_t tabWidth);

// The commands of these four numbers: asks once, and converts the selected files.
void ConvertTextCommand(Velmora::SDK::IHostApp& host, Velmora::SDK::s32 number);
