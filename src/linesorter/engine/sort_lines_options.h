// The options of a sort of lines, from the dialog, a script or the stored settings.
#pragma once

#include <cstdint>
#include <type_traits>

#include "platform/text.h"

namespace WQLineSorter {

// Bits of SortLinesOptions::options. The numbers are stored in settings and must not change.
enum SortLinesOption : std::uint32_t {
  SortByLine = 0x00000001,       // the key is the entire line
  SortBySubstring = 0x00000002,  // the key is a substring
  SortByItem = 0x00000004,       // the key is an item of the line
  SortAsText = 0x00000010,
  SortAsNumber = 0x00000100,
  SortAsDate = 0x00000200,
  SortLanguageAware = 0x00000800,
  SortReverse = 0x00001000,           // the sorted range is reversed
  SortIgnoreCase = 0x00002000,        // for ordinal order; language-aware order always ignores case (C-107)
  SortNaturalNumbers = 0x00008000,    // runs of digits by value, in language-aware comparison only
  SortRemoveDuplicates = 0x00020000,  // only stored and shown by the dialog; has no effect (C-125)
  SortRemoveBlank = 0x00040000,
  SortNoCompareStringEx = 0x00080000,  // do not look up CompareStringEx; nothing sets this bit (C-150)
  SortSkipLeadingSpace = 0x00100000,   // blanks and tabs at the key's start are skipped
  SortEndAtWhitespace = 0x00200000,    // the substring ends at the first blank or tab
  SortEndAtChar = 0x00400000,          // the substring ends at matchChar
  SaveAsNewFile = 0x01000000,
  SaveKeepBackup = 0x02000000,    // an existing target becomes a backup
  SaveDeleteBackup = 0x04000000,  // as SaveKeepBackup; the backup is deleted after success
  SaveOverwrite = 0x08000000,     // an existing target is replaced
  SortSilent = 0x10000000,        // no questions and no closing message
};

// Positions and lengths are in characters: bytes on the byte path, 16-bit units on the 16-bit path.
struct SortLinesOptions {
  std::uint32_t keepLinesTop = 0;     // lines at the start that stay in place
  std::uint32_t keepLinesBottom = 0;  // lines at the end that stay in place
  std::uint32_t lineOffset = 0;       // zero-based position where the key starts
  std::uint32_t subStringLen = 0;     // 0 for no limit; limits numbers even if the key is an item (C-114)
  std::uint16_t matchChar = 0;        // end character or item separator of 16-bit text
  std::uint8_t matchCharA = 0;        // the same for byte text
  char dateFormat[129] = {};          // zero-terminated, in the thread's code page
  std::uint32_t options = 0;          // bits of SortLinesOption
  std::uint32_t lineItem = 0;         // from 1
};
static_assert(std::is_trivially_copyable_v<SortLinesOptions>);

}  // namespace WQLineSorter
