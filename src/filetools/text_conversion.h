// Converts the line ends of a text file, or its tabs to blanks. Works on bytes, without regard to the
// encoding: text in a two-byte encoding is changed byte by byte as if it were ANSI text (C-441).
#pragma once

#include <cstdint>

#include "frame/host/command_numbers.h"
#include "frame/host/host_app.h"
#include "platform/text.h"

// The result of a conversion.
struct ConvertedText {
  bool isTargetNew = false;  // this call has created the target
  bool isConverted = false;  // what ConvertTextFile returns
  bool isWhole = false;      // the whole text was converted: no read and no write failed
};

// Writes the converted text to a new file, which must not exist. `conversion` is the command's number:
// kCommandLineEndsToLf, kCommandLineEndsToCrLf, kCommandLineEndsToCr or kCommandTabsToBlanks. `tabWidth` is
// for the last of these; 0 removes the tabs (C-445).
//
// The byte after a CR is read together with it and, unless it is an LF, written unchanged, so the second of
// two CRs is not converted (C-442). kCommandLineEndsToCrLf drops a CR that is the last byte of the file
// (C-443).
ConvertedText ConvertText(const WString& source, const WString& target, Velmora::SDK::s32 conversion,
                          std::uint32_t tabWidth);

// Works as ConvertText. Returns false if the source cannot be opened, the target exists or cannot be created,
// or a write fails. Returns true even if a read fails, which ends the text, or if the very last write fails
// (C-444).
bool ConvertTextFile(const WString& source, const WString& target, Velmora::SDK::s32 conversion,
                     std::uint32_t tabWidth);

// Replaces the file by its converted text, by way of a temporary file: path + ".temp" + the seconds of the
// clock. Leaves the file unchanged, without a message, unless its whole text was read and written. If the
// file cannot be deleted, the converted text remains under the temporary name. Never changes a temporary file
// that already exists.
//
// If the temporary file cannot be renamed after the file was deleted, copies the text to the file's name; if
// that fails too, a box says where the text is.
void ConvertTextFileInPlace(Velmora::SDK::IHostApp& host, const WString& path, Velmora::SDK::s32 conversion,
                            std::uint32_t tabWidth);

// 30101, 30102, 30103 and 30110: asks once for confirmation and converts the selected files.
void ConvertTextCommand(Velmora::SDK::IHostApp& host, Velmora::SDK::s32 number);
