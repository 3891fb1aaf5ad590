// Text ids of the questions and dialogs that the commands show. The ids of the menu stand in the menu's own
// tables.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

enum MessageText : TextId {
  kTextRenameCaption = 0x000A0063,   // caption of the rename confirmation, title of Set Extension
  kTextRenameQuestion = 0x000B0063,  // a format with the number of items
  kTextSameBaseTitle = 0x000C0063,   // Rename Files of the Same Base Name: title
  kTextSameBasePrompt = 0x000D0063,  //   and prompt
  kTextSetExtensionPrompt = 0x00780063,
  kTextConvertCaption = 0x000E0063,   // Convert line ends and tabs: caption
  kTextConvertQuestion = 0x000F0063,  //   and a format with the number of files
  kTextTabPrompt = 0x00100063,        // how many blanks a tab becomes
  kTextTabCaption = 0x00110063,
  kTextBase64Encode = 0x08C0006D,  // Base64: the captions, which are the menu's words too
  kTextBase64Decode = 0x08C1006D,
  kTextBase64TargetExists = 0x00D20065,  //   and a format with the target's path
  kTextLinkFailed = 0x000B0065,          // caption of the box that shows why a link was not made
  kTextLinkCaption = 0x012C0064,         // the Create Link dialog
  kTextLinkKinds = 0x012E0064,
  kTextLinkHard = 0x012F0064,  // the kinds, in this order
  kTextLinkJunction = 0x01300064,
  kTextLinkSymbolic = 0x01310064,
  kTextLinkLabel = 0x01320064,
  kTextLinkTargetLabel = 0x01330064,
  kTextLinkOk = 0x01340064,
  kTextLinkShortcut = 0x01350064,   // the last of the kinds
  kTextLinkAboutHard = 0x01390064,  // what the kinds are
  kTextLinkAboutJunction = 0x013A0064,
  kTextLinkAboutSymbolic = 0x013B0064,
  kTextLinkHardMixed = 0x00C80065,  // why a kind cannot be used
  kTextLinkHardFolder = 0x00C90065,
  kTextLinkJunctionMixed = 0x00CA0065,
  kTextLinkJunctionFile = 0x00CB0065,
  kTextLinkNoSymbolic = 0x00CC0065,  // its second text is a box's caption
  kTextLinkHardDrives = 0x00CD0065,
  kTextAccessDenied = 0x000A0065,         // File security: caption
  kTextAccessDeniedAbout = 0x00640065,    //   and text for an item that may not be touched,
  kTextAccessFailed = 0x000B0065,         //   caption for every other error,
  kTextTakeOwnershipFailed = 0x007E0065,  //   and formats with its number
  kTextAddAccessFailed = 0x00780065,
  kTextResetAccessFailed = 0x007D0065,
  kTextResetAccessCaption = 0x00FA0064,
  kTextResetAccessQuestion = 0x00FB0064,
  kTextAccessDlgTitle = 0x00C80064,  // the Add File Access dialog
  kTextAccessDlgIntroduction = 0x00C90064,
  kTextAccessDlgUser = 0x00CA0064,
  kTextAccessDlgLevel = 0x00CB0064,
  kTextAccessDlgFind = 0x00CC0064,
  kTextAccessDlgGrant = 0x00CD0064,
  kTextAccessDlgCancel = 0x00CE0064,
  kTextAccessDlgRead = 0x00D20064,  // the levels, in this order
  kTextAccessDlgWrite = 0x00D30064,
  kTextAccessDlgModify = 0x00D40064,
  kTextAccessDlgFull = 0x00D50064,
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
  kTextSortTitle = 0x023B0064,       // Sort Lines: title of the run's boxes
  kTextSortDone = 0x023D0064,        // a format with the number of files, as text
  kTextSortFailed = 0x02450064,      // a format with the number of files that were not sorted
  kTextSortDlgCaption = 0x01900064,  // the Sort Lines dialog: its title, and caption of the box without files
  kTextSortDlgOk = 0x01910064,
  kTextSortDlgCancel = 0x01920064,
  kTextSortDlgHeading = 0x01930064,
  kTextSortDlgCount = 0x01940064,  // a format with the number of files
  kTextSortDlgNewFile = 0x01950064,
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
  kTextSortDlgNatural = 0x01A90064,
  kTextSortDlgReverse = 0x01AB0064,
  kTextSortDlgDuplicates = 0x01AF0064,
  kTextSortDlgBlank = 0x01B00064,
  kTextSortDlgMethodText = 0x01B10064,
  kTextSortDlgMethodNumber = 0x01B20064,
  kTextSortDlgMethodDate = 0x01B30064,
  kTextSortDlgDateCue = 0x01B40064,
  kTextSortDlgSuffix = 0x01B50064,  // follows the name of a new file
  kTextSortDlgDateFormat = 0x01B60064,
  kTextSortDlgSample = 0x01B70064,
  kTextFindTitle = 0x023A0064,       // Find and Replace: title of all its boxes
  kTextFindChanges = 0x02400064,     // a format with the number of changes, as text
  kTextFindChangesIn = 0x02410064,   // a format with the numbers of changes and of files, as texts
  kTextFindNothing = 0x02420064,     // that there is no text to find
  kTextFindDlgCaption = 0x01F40064,  // the Find and Replace dialog
  kTextFindDlgHeading = 0x01F50064,
  kTextFindDlgCount = 0x01F60064,  // a format with the number of files
  kTextFindDlgFind = 0x01F80064,
  kTextFindDlgReplace = 0x01F90064,
  kTextFindDlgStart = 0x01CC0064,
  kTextFindDlgNewFile = 0x01FC0064,  // its second text goes behind the name of a new file
  kTextFindDlgOne = 0x01FF0064,      // the modes; their second texts explain them
  kTextFindDlgMany = 0x02000064,
  kTextFindDlgManySame = 0x02010064,
  kTextFindDlgMultiline = 0x02020064,
  kTextFindDlgMode = 0x02030064,
  kTextFindDlgOptions = 0x02080064,
  kTextFindDlgForceUtf8 = 0x02090064,
  kTextFindDlgSilent = 0x020A0064,
  kTextFindDlgReplaceAll = 0x020B0064,
  kTextFindDlgRegExp = 0x020C0064,
  kTextFindDlgWildcard = 0x020D0064,
  kTextConfirmCaption = 0x02260064,  // the dialog that asks about a match
  kTextConfirmRange = 0x02270064,  // a format with the numbers of start line and column, end line and column
  kTextConfirmWith = 0x02280064,
  kTextConfirmFile = 0x02290064,
  kTextConfirmReplace = 0x022B0064,
  kTextConfirmReplaceAll = 0x022C0064,
  kTextConfirmFindNext = 0x022D0064,
  kTextConfirmSwitch = 0x02300064,
  kTextSaveAs = 0x01AA0064,      // what Sort Lines and Find and Replace have in common
  kTextKeepBackup = 0x01AC0064,  //   the target is replaced and a backup kept,
  kTextNoBackup = 0x01AD0064,    //   or none
  kTextFileName = 0x01AE0064,
  kTextIgnoreCase = 0x01C20064,
  kTextTargetExists = 0x023F0064,     // whether to overwrite the target
  kTextNoFilesSelected = 0x02440064,  // the text of the box where a command finds no files
};

// Texts of the table that all modules share.
enum CommonTextId : TextId { kCommonTextCancel = 0x00030067, kCommonTextDescription = 0x00A50064 };

// Those that are used for their second texts as well.
inline constexpr MessageText kMessageTitles[] = {
    kTextFindDlgNewFile,  kTextFindDlgOne,       kTextFindDlgMany,
    kTextFindDlgManySame, kTextFindDlgMultiline, kTextLinkNoSymbolic,
};

// All of them, for whoever must have a text for each.
inline constexpr MessageText kMessageTexts[] = {
    kTextRenameCaption,
    kTextRenameQuestion,
    kTextSameBaseTitle,
    kTextSameBasePrompt,
    kTextSetExtensionPrompt,
    kTextConvertCaption,
    kTextConvertQuestion,
    kTextTabPrompt,
    kTextTabCaption,
    kTextBase64Encode,
    kTextBase64Decode,
    kTextBase64TargetExists,
    kTextLinkFailed,
    kTextLinkCaption,
    kTextLinkKinds,
    kTextLinkHard,
    kTextLinkJunction,
    kTextLinkSymbolic,
    kTextLinkLabel,
    kTextLinkTargetLabel,
    kTextLinkOk,
    kTextLinkShortcut,
    kTextLinkAboutHard,
    kTextLinkAboutJunction,
    kTextLinkAboutSymbolic,
    kTextLinkHardMixed,
    kTextLinkHardFolder,
    kTextLinkJunctionMixed,
    kTextLinkJunctionFile,
    kTextLinkNoSymbolic,
    kTextLinkHardDrives,
    kTextAccessDenied,
    kTextAccessDeniedAbout,
    kTextTakeOwnershipFailed,
    kTextAddAccessFailed,
    kTextResetAccessFailed,
    kTextResetAccessCaption,
    kTextResetAccessQuestion,
    kTextAccessDlgTitle,
    kTextAccessDlgIntroduction,
    kTextAccessDlgUser,
    kTextAccessDlgLevel,
    kTextAccessDlgFind,
    kTextAccessDlgGrant,
    kTextAccessDlgCancel,
    kTextAccessDlgRead,
    kTextAccessDlgWrite,
    kTextAccessDlgModify,
    kTextAccessDlgFull,
    kTextReplaceTitle,
    kTextReplaceOk,
    kTextReplaceCancel,
    kTextReplaceTop,
    kTextReplaceFindLabel,
    kTextReplaceWithLabel,
    kTextReplacePartLabel,
    kTextReplaceFindCue,
    kTextReplaceWithCue,
    kTextReplacePartBase,
    kTextReplacePartExtension,
    kTextReplacePartWhole,
    kTextSortTitle,
    kTextSortDone,
    kTextSortFailed,
    kTextSortDlgCaption,
    kTextSortDlgOk,
    kTextSortDlgCancel,
    kTextSortDlgHeading,
    kTextSortDlgCount,
    kTextSortDlgNewFile,
    kTextSortDlgTop,
    kTextSortDlgTopHint,
    kTextSortDlgBottom,
    kTextSortDlgBottomHint,
    kTextSortDlgPosition,
    kTextSortDlgSkipSpace,
    kTextSortDlgBy,
    kTextSortDlgByLine,
    kTextSortDlgBySubstring,
    kTextSortDlgByItem,
    kTextSortDlgLength,
    kTextSortDlgEndCharacter,
    kTextSortDlgEndAtSpace,
    kTextSortDlgSeparator,
    kTextSortDlgItem,
    kTextSortDlgMethod,
    kTextSortDlgDatePresets,
    kTextSortDlgLanguageAware,
    kTextSortDlgNatural,
    kTextSortDlgReverse,
    kTextSortDlgDuplicates,
    kTextSortDlgBlank,
    kTextSortDlgMethodText,
    kTextSortDlgMethodNumber,
    kTextSortDlgMethodDate,
    kTextSortDlgDateCue,
    kTextSortDlgSuffix,
    kTextSortDlgDateFormat,
    kTextSortDlgSample,
    kTextFindTitle,
    kTextFindChanges,
    kTextFindChangesIn,
    kTextFindNothing,
    kTextFindDlgCaption,
    kTextFindDlgHeading,
    kTextFindDlgCount,
    kTextFindDlgFind,
    kTextFindDlgReplace,
    kTextFindDlgStart,
    kTextFindDlgNewFile,
    kTextFindDlgOne,
    kTextFindDlgMany,
    kTextFindDlgManySame,
    kTextFindDlgMultiline,
    kTextFindDlgMode,
    kTextFindDlgOptions,
    kTextFindDlgForceUtf8,
    kTextFindDlgSilent,
    kTextFindDlgReplaceAll,
    kTextFindDlgRegExp,
    kTextFindDlgWildcard,
    kTextConfirmCaption,
    kTextConfirmRange,
    kTextConfirmWith,
    kTextConfirmFile,
    kTextConfirmReplace,
    kTextConfirmReplaceAll,
    kTextConfirmFindNext,
    kTextConfirmSwitch,
    kTextSaveAs,
    kTextKeepBackup,
    kTextNoBackup,
    kTextFileName,
    kTextIgnoreCase,
    kTextTargetExists,
    kTextNoFilesSelected,
};

}  // namespace Velmora::SDK
