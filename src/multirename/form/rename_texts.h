// Text ids of MultiRename's window and dialogs, in the host's language table.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

enum RenameTextId : TextId {
  kRenameTextMenu = 0x07D6006D,  // the extension's menu; its command has the title's text
  // The window.
  kRenameTextTitle = 0x000A0063,         // the window's title, alone or before what follows it
  kRenameTextProfileTitle = 0x00150064,  // goes before a profile's name in the title
  kRenameTextSessionTitle = 0x00140064,  // goes before the date of a loaded undo session in the title
  kRenameTextCloseQuestion = 0x000A0064,
  kRenameTextRows = 0x00330064,          // a format with the number of rows
  kRenameTextSelectedRows = 0x00340064,  // a format with the numbers of rows and of selected rows
  kRenameTextOldName = 0x00960064,       // the columns of the list
  kRenameTextNewName = 0x00970064,
  kRenameTextDuplicate = 0x00640065,  // what a row shows that is in the way
  kRenameTextInvalid = 0x006E0065,
  kRenameTextFailed = 0x00780065,
  kRenameTextIgnored = 0x00790065,
  kRenameTextMoveUp = 0x00640063,  // the list's context menu
  kRenameTextMoveDown = 0x00650063,
  kRenameTextMoveTop = 0x00660063,
  kRenameTextMoveBottom = 0x00670063,
  // The rule panel.
  kRenameTextName = 0x00650064,
  kRenameTextExtension = 0x00660064,
  kRenameTextCase = 0x00670064,
  kRenameTextCounter = 0x006E0064,
  kRenameTextStartAt = 0x006A0064,
  kRenameTextStepBy = 0x006B0064,
  kRenameTextDigits = 0x006C0064,
  kRenameTextSearch = 0x006F0064,
  kRenameTextFindHeading = 0x00680064,
  kRenameTextReplaceHeading = 0x00690064,
  kRenameTextRegex = 0x00740064,
  kRenameTextReplaceAll = 0x00730064,
  kRenameTextCaseSensitive = 0x00720064,
  kRenameTextLoadSave = 0x006D0064,
  kRenameTextSaveUndo = 0x00700064,
  kRenameTextLivePreview = 0x00710064,
  kRenameTextReset = 0x00820064,
  kRenameTextUndo = 0x00770064,
  kRenameTextStart = 0x00750064,
  kRenameTextClose = 0x00760064,
  kRenameTextManagerTip = 0x00780064,        // second text only
  kRenameTextDeleteProfileTip = 0x00790064,  // second text only
  kRenameTextTagsTip = 0x007A0064,           // second text only
  kRenameTextBlocked = 0x02580064,           // why no run starts
  // The case rules, in the order of the box.
  kRenameTextCaseNone = 0x00C90064,
  kRenameTextCaseAllLower = 0x00CA0064,
  kRenameTextCaseAllUpper = 0x00CB0064,
  kRenameTextCaseNameLower = 0x00CC0064,
  kRenameTextCaseNameUpper = 0x00CD0064,
  kRenameTextCaseExtensionLower = 0x00CE0064,
  kRenameTextCaseExtensionUpper = 0x00CF0064,
  kRenameTextCaseWords = 0x00D00064,
  kRenameTextCaseFirstLetter = 0x00D10064,
  // The parts that the pairs work on.
  kRenameTextPartBoth = 0x00DC0064,
  kRenameTextPartName = 0x00DD0064,
  kRenameTextPartExtension = 0x00DE0064,
  // Load / Save.
  kRenameTextNoProfile = 0x00FA0064,
  kRenameTextSaveProfile = 0x00FB0064,
  kRenameTextSaveTitle = 0x01900064,
  kRenameTextSavePrompt = 0x01910064,
  kRenameTextSaveHint = 0x01920064,
  kRenameTextOverwriteProfile = 0x01930064,
  kRenameTextDeleteProfile = 0x02590064,  // a format with the profile's name
  // The tag menu.
  kRenameTextTagName = 0x012D0064,
  kRenameTextTagExtension = 0x012E0064,
  kRenameTextTagCounter = 0x012F0064,
  kRenameTextTagFolder = 0x01360064,
  kRenameTextTagYear = 0x01300064,
  kRenameTextTagMonth = 0x01310064,
  kRenameTextTagDay = 0x01320064,
  kRenameTextTagHour = 0x01330064,
  kRenameTextTagMinute = 0x01340064,
  kRenameTextTagSecond = 0x01350064,
  kRenameTextTagProperty = 0x01400064,
  // The dialog of property tags.
  kRenameTextAddTagTitle = 0x028A0064,
  kRenameTextAddTagProperty = 0x028E0064,
  kRenameTextAddTagChosen = 0x028F0064,
  kRenameTextAddTagStart = 0x02920064,
  kRenameTextAddTagLength = 0x02930064,
  kRenameTextAddTagComplete = 0x02900064,
  kRenameTextAddTagSubString = 0x02910064,
  kRenameTextAddTagInsert = 0x02940064,
  // The search dialog.
  kRenameTextPairsLabel = 0x01A40064,
  kRenameTextPairsHelp1 = 0x01A50064,
  kRenameTextPairsHelp2 = 0x01A60064,
  kRenameTextPairsHelp3 = 0x01A80064,
  kRenameTextPairsHelp4 = 0x01A90064,
  kRenameTextPairsLoaded = 0x01AF0064,  // the number of the list follows
  kRenameTextPairsSaved = 0x01B00064,   // the number of the list follows
  // The undo manager.
  kRenameTextUndoTitle = 0x01F40064,
  kRenameTextUndoSessions = 0x01F50064,
  kRenameTextUndoDate = 0x01F60064,
  kRenameTextUndoFiles = 0x01F70064,
  kRenameTextUndoDelete = 0x01F80064,
  kRenameTextUndoDeleteAll = 0x01F90064,
  kRenameTextUndoLoad = 0x01FA0064,
  kRenameTextUndoClose = 0x01FB0064,
  kRenameTextUndoDateHeading = 0x01FE0064,
  kRenameTextUndoItemsHeading = 0x01FF0064,  // also the label before the number of entries
  kRenameTextUndoStateHeading = 0x02000064,
  kRenameTextUndoOldHeading = 0x02030064,
  kRenameTextUndoNewHeading = 0x02040064,
  kRenameTextUndoFolderHeading = 0x02050064,
  kRenameTextUndoRestored = 0x02080064,  // the state of a session that was restored
  kRenameTextUndoDeleteTitle = 0x020D0064,
  kRenameTextUndoDeleteQuestion = 0x020E0064,
  kRenameTextUndoDeleteAllTitle = 0x020F0064,
  kRenameTextUndoDeleteAllQuestion = 0x02100064,
  kRenameTextUndoDeleteFailed = 0x02120064,
};

// Texts of the table that all modules share.
enum RenameCommonText : TextId {
  kRenameCommonCancel = 0x00030067,
  kRenameCommonOk = 0x00080067,
  kRenameCommonAdd = 0x00150067,
};

// All of which the first text is shown, for whoever must have a text for each. The second texts that are
// shown are those of kPanelTips (panel_controls.h).
inline constexpr RenameTextId kRenameTexts[] = {
    kRenameTextMenu,
    kRenameTextTitle,
    kRenameTextProfileTitle,
    kRenameTextSessionTitle,
    kRenameTextCloseQuestion,
    kRenameTextRows,
    kRenameTextSelectedRows,
    kRenameTextOldName,
    kRenameTextNewName,
    kRenameTextDuplicate,
    kRenameTextInvalid,
    kRenameTextFailed,
    kRenameTextIgnored,
    kRenameTextMoveUp,
    kRenameTextMoveDown,
    kRenameTextMoveTop,
    kRenameTextMoveBottom,
    kRenameTextName,
    kRenameTextExtension,
    kRenameTextCase,
    kRenameTextCounter,
    kRenameTextStartAt,
    kRenameTextStepBy,
    kRenameTextDigits,
    kRenameTextSearch,
    kRenameTextFindHeading,
    kRenameTextReplaceHeading,
    kRenameTextRegex,
    kRenameTextReplaceAll,
    kRenameTextCaseSensitive,
    kRenameTextLoadSave,
    kRenameTextSaveUndo,
    kRenameTextLivePreview,
    kRenameTextReset,
    kRenameTextUndo,
    kRenameTextStart,
    kRenameTextClose,
    kRenameTextBlocked,
    kRenameTextCaseNone,
    kRenameTextCaseAllLower,
    kRenameTextCaseAllUpper,
    kRenameTextCaseNameLower,
    kRenameTextCaseNameUpper,
    kRenameTextCaseExtensionLower,
    kRenameTextCaseExtensionUpper,
    kRenameTextCaseWords,
    kRenameTextCaseFirstLetter,
    kRenameTextPartBoth,
    kRenameTextPartName,
    kRenameTextPartExtension,
    kRenameTextNoProfile,
    kRenameTextSaveProfile,
    kRenameTextSaveTitle,
    kRenameTextSavePrompt,
    kRenameTextSaveHint,
    kRenameTextOverwriteProfile,
    kRenameTextDeleteProfile,
    kRenameTextTagName,
    kRenameTextTagExtension,
    kRenameTextTagCounter,
    kRenameTextTagFolder,
    kRenameTextTagYear,
    kRenameTextTagMonth,
    kRenameTextTagDay,
    kRenameTextTagHour,
    kRenameTextTagMinute,
    kRenameTextTagSecond,
    kRenameTextTagProperty,
    kRenameTextAddTagTitle,
    kRenameTextAddTagProperty,
    kRenameTextAddTagChosen,
    kRenameTextAddTagStart,
    kRenameTextAddTagLength,
    kRenameTextAddTagComplete,
    kRenameTextAddTagSubString,
    kRenameTextAddTagInsert,
    kRenameTextPairsLabel,
    kRenameTextPairsHelp1,
    kRenameTextPairsHelp2,
    kRenameTextPairsHelp3,
    kRenameTextPairsHelp4,
    kRenameTextPairsLoaded,
    kRenameTextPairsSaved,
    kRenameTextUndoTitle,
    kRenameTextUndoSessions,
    kRenameTextUndoDate,
    kRenameTextUndoFiles,
    kRenameTextUndoDelete,
    kRenameTextUndoDeleteAll,
    kRenameTextUndoLoad,
    kRenameTextUndoClose,
    kRenameTextUndoDateHeading,
    kRenameTextUndoItemsHeading,
    kRenameTextUndoStateHeading,
    kRenameTextUndoOldHeading,
    kRenameTextUndoNewHeading,
    kRenameTextUndoFolderHeading,
    kRenameTextUndoRestored,
    kRenameTextUndoDeleteTitle,
    kRenameTextUndoDeleteQuestion,
    kRenameTextUndoDeleteAllTitle,
    kRenameTextUndoDeleteAllQuestion,
    kRenameTextUndoDeleteFailed,
};
inline constexpr RenameCommonText kRenameCommonTexts[] = {kRenameCommonCancel, kRenameCommonOk,
                                                          kRenameCommonAdd};

}  // namespace Velmora::SDK
