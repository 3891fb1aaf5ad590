// Text ids of the questions and dialogs that the commands show. The ids of the menu stand in the menu's own
// tables.
#pragma once

#include "frame/services/host_types.h"

namespace Velmora::SDK {

enum MessageText : TextId {
  kTextRenameCaption = 0x000A0063,   // caption of the rename confirmation, title of Set Extension
  kTextRenameQuestion = 0x000B0063,  // a format with the number of items
  kTextSameBaseTitle = 0x000C0063,   // Rename Files of the Same Base Name: title
  kTextSameBasePrompt = 0x000D0063,  //   and prompt
  kTextSetExtensionPrompt = 0x00780063,
  kTextReplaceTitle = 0x00640064,  // the Replace X with Y dialog
  kTextReplaceOk = 0x00650064,
  kTextReplaceCancel = 0x00660064,
  kTextReplaceTop = 0x00670064,
  kTextReplaceFindLabel = 0x00680064,
  kTextReplaceWithLabel = 0x00690064,
  kTextReplacePartLabel = 0x006A0064,
  kTextReplaceFindCue = 0x006B0064,
  kTextReplaceWithCue = 0x006C0064,
  kTextReplacePartBase = 0x006E0064,
  kTextReplacePartExtension = 0x006F0064,
  kTextReplacePartWhole = 0x00700064,
  kTextSortTitle = 0x023B0064,         // Sort Lines: title of the run's boxes
  kTextSortDone = 0x023D0064,          // a format with the number of files, as text
  kTextSortTargetExists = 0x023F0064,  // whether to overwrite the target
  kTextSortFailed = 0x02450064,        // a format with the number of files that were not sorted
  kTextSortDlgCaption = 0x01900064,  // the Sort Lines dialog: its title, and caption of the box without files
  kTextSortDlgOk = 0x01910064,
  kTextSortDlgCancel = 0x01920064,
  kTextSortDlgHeading = 0x01930064,
  kTextSortDlgCount = 0x01940064,  // a format with the number of files
  kTextSortDlgSaveAs = 0x01950064,
  kTextSortDlgFileName = 0x01960064,
  kTextSortDlgTop = 0x01970064,
  kTextSortDlgTopHint = 0x01980064,
  kTextSortDlgBottom = 0x01990064,
  kTextSortDlgBottomHint = 0x019A0064,
  kTextSortDlgPosition = 0x019B0064,
  kTextSortDlgSkipSpace = 0x019C0064,
  kTextSortDlgBy = 0x019D0064,
  kTextSortDlgByLine = 0x019E0064,
  kTextSortDlgBySubstring = 0x019F0064,
  kTextSortDlgByItem = 0x01A00064,
  kTextSortDlgLength = 0x01A10064,
  kTextSortDlgEndCharacter = 0x01A20064,
  kTextSortDlgEndAtSpace = 0x01A30064,
  kTextSortDlgSeparator = 0x01A40064,
  kTextSortDlgItem = 0x01A50064,
  kTextSortDlgMethod = 0x01A60064,
  kTextSortDlgDatePresets = 0x01A70064,
  kTextSortDlgLanguageAware = 0x01A80064,
  kTextSortDlgIgnoreCase = 0x01A90064,
  kTextSortDlgNatural = 0x01AA0064,
  kTextSortDlgReverse = 0x01AB0064,
  kTextSortDlgDuplicates = 0x01AC0064,
  kTextSortDlgBlank = 0x01AD0064,
  kTextSortDlgNewFile = 0x01AE0064,
  kTextSortDlgKeepBackup = 0x01AF0064,
  kTextSortDlgDeleteBackup = 0x01B00064,
  kTextSortDlgMethodText = 0x01B10064,
  kTextSortDlgMethodNumber = 0x01B20064,
  kTextSortDlgMethodDate = 0x01B30064,
  kTextSortDlgDateCue = 0x01B40064,
  kTextSortDlgSuffix = 0x01B50064,    // behind the name of a new file
  kTextNoFilesSelected = 0x02440064,  // the text of the box where a command finds no files
};

// All of them, for whoever must have a text for each.
inline constexpr MessageText kMessageTexts[] = {
    kTextRenameCaption,      kTextRenameQuestion,
    kTextSameBaseTitle,      kTextSameBasePrompt,
    kTextSetExtensionPrompt, kTextReplaceTitle,
    kTextReplaceOk,          kTextReplaceCancel,
    kTextReplaceTop,         kTextReplaceFindLabel,
    kTextReplaceWithLabel,   kTextReplacePartLabel,
    kTextReplaceFindCue,     kTextReplaceWithCue,
    kTextReplacePartBase,    kTextReplacePartExtension,
    kTextReplacePartWhole,   kTextSortTitle,
    kTextSortDone,           kTextSortTargetExists,
    kTextSortFailed,         kTextSortDlgCaption,
    kTextSortDlgOk,          kTextSortDlgCancel,
    kTextSortDlgHeading,     kTextSortDlgCount,
    kTextSortDlgSaveAs,      kTextSortDlgFileName,
    kTextSortDlgTop,         kTextSortDlgTopHint,
    kTextSortDlgBottom,      kTextSortDlgBottomHint,
    kTextSortDlgPosition,    kTextSortDlgSkipSpace,
    kTextSortDlgBy,          kTextSortDlgByLine,
    kTextSortDlgBySubstring, kTextSortDlgByItem,
    kTextSortDlgLength,      kTextSortDlgEndCharacter,
    kTextSortDlgEndAtSpace,  kTextSortDlgSeparator,
    kTextSortDlgItem,        kTextSortDlgMethod,
    kTextSortDlgDatePresets, kTextSortDlgLanguageAware,
    kTextSortDlgIgnoreCase,  kTextSortDlgNatural,
    kTextSortDlgReverse,     kTextSortDlgDuplicates,
    kTextSortDlgBlank,       kTextSortDlgNewFile,
    kTextSortDlgKeepBackup,  kTextSortDlgDeleteBackup,
    kTextSortDlgMethodText,  kTextSortDlgMethodNumber,
    kTextSortDlgMethodDate,  kTextSortDlgDateCue,
    kTextSortDlgSuffix,      kTextNoFilesSelected,
};

}  // namespace Velmora::SDK
