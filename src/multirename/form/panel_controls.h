// The controls of the rule panel and its tables: their numbers, their texts, their tool tips. The window
// makes them under these numbers; others find them by the numbers, so they stay as they are.
#pragma once

#include <array>

#include "multirename/form/control_view.h"
#include "multirename/form/rename_texts.h"

namespace Velmora::SDK {

// Numbers of the panel's and the dialogs' resources.
enum RenameResource : int {
  kRulePanel = 104,
  kAddTagDialog = 105,
  kUndoManagerDialog = 106,
  kFindReplaceDialog = 112,
};

enum PanelControl : int {
  kNameTemplate = 1034,  // a box with an edit field
  kNameTemplateLabel = 1058,
  kNameTags = 1046,           // "<"
  kExtensionTemplate = 1035,  // a box with an edit field
  kExtensionTemplateLabel = 1059,
  kExtensionTags = 1047,  // "<"
  kCaseBox = 1036,        // a list box, as all that are called a box
  kCaseBoxLabel = 1060,
  kCounterGroup = 1062,
  kStartAt = 1031,  // fields of a number
  kStartAtLabel = 1066,
  kStepBy = 1032,
  kStepByLabel = 1067,
  kDigits = 1033,
  kDigitsLabel = 1068,
  kSearchGroup = 1063,
  kPairList = 1118,  // a list with columns, the selection over the full row, and lines between the cells
  kPairFind = 1020,
  kPairReplace = 1001,
  kPairAdd = 1119,
  kPairDialog = 1117,  // "..."
  kPartsBox = 1070,
  kRegexBox = 1039,  // check boxes
  kReplaceAllBox = 1038,
  kCaseSensitiveBox = 1037,
  kProfileGroup = 1061,
  kProfileBox = 1045,
  kDeleteProfile = 1044,  // "X"
  kSaveUndoBox = 1043,
  kLivePreviewBox = 1004,
  kResetButton = 1071,
  kUndoButton = 1040,
  kUndoManagerButton = 1049,  // "..."
  kStartButton = 1003,
  kCloseButton = 1041,
};

// The texts that are set when the panel opens; others have those of the resource ("<", "...", "X").
inline constexpr ControlTextRow kPanelTexts[] = {
    {kNameTemplateLabel, kRenameTextName},
    {kExtensionTemplateLabel, kRenameTextExtension},
    {kCaseBoxLabel, kRenameTextCase},
    {kCounterGroup, kRenameTextCounter},
    {kStartAtLabel, kRenameTextStartAt},
    {kStepByLabel, kRenameTextStepBy},
    {kDigitsLabel, kRenameTextDigits},
    {kSearchGroup, kRenameTextSearch},
    {kRegexBox, kRenameTextRegex},
    {kReplaceAllBox, kRenameTextReplaceAll},
    {kCaseSensitiveBox, kRenameTextCaseSensitive},
    {kProfileGroup, kRenameTextLoadSave},
    {kSaveUndoBox, kRenameTextSaveUndo},
    {kLivePreviewBox, kRenameTextLivePreview},
    {kResetButton, kRenameTextReset},
    {kUndoButton, kRenameTextUndo},
    {kStartButton, kRenameTextStart},
    {kCloseButton, kRenameTextClose},
};

// The same from the table that all modules share.
inline constexpr ControlTextRow kPanelCommonTexts[] = {{kPairAdd, kRenameCommonAdd}};

// What the empty fields of the next pair show; they have no labels.
inline constexpr ControlTextRow kPanelHints[] = {
    {kPairFind, kRenameTextFindHeading},
    {kPairReplace, kRenameTextReplaceHeading},
};

// The tool tips: second texts of the table (IHostApp::GetLanguageTitle). Those of the template boxes belong
// to their edit fields.
inline constexpr ControlTextRow kPanelTips[] = {
    {kStartButton, kRenameTextStart},
    {kCloseButton, kRenameTextClose},
    {kUndoButton, kRenameTextUndo},
    {kUndoManagerButton, kRenameTextManagerTip},
    {kResetButton, kRenameTextReset},
    {kStartAt, kRenameTextStartAt},
    {kStepBy, kRenameTextStepBy},
    {kDigits, kRenameTextDigits},
    {kCaseSensitiveBox, kRenameTextCaseSensitive},
    {kRegexBox, kRenameTextRegex},
    {kReplaceAllBox, kRenameTextReplaceAll},
    {kSaveUndoBox, kRenameTextSaveUndo},
    {kLivePreviewBox, kRenameTextLivePreview},
    {kDeleteProfile, kRenameTextDeleteProfileTip},
    {kProfileBox, kRenameTextLoadSave},
    {kCaseBox, kRenameTextCase},
    {kNameTags, kRenameTextTagsTip},
    {kExtensionTags, kRenameTextTagsTip},
    {kNameTemplate, kRenameTextName},
    {kExtensionTemplate, kRenameTextExtension},
};

// One tool tip control over the panel, without a limit of its width; its times in milliseconds.
constexpr u32 kTipDelay = 1000;
constexpr u32 kTipDuration = 10000;
constexpr u32 kTipDelayBetween = 500;

// What a run and a loaded undo session leave disabled; see PanelForm::EnableControls. The fields and buttons
// of the search pair are in no group: they stay enabled.
inline constexpr int kRuleControls[] = {
    kNameTemplate,  kExtensionTemplate, kNameTags,    kExtensionTags,  kCaseBox,
    kProfileBox,    kDeleteProfile,     kStartAt,     kStepBy,         kDigits,
    kPairList,      kStartButton,       kSaveUndoBox, kLivePreviewBox, kCaseSensitiveBox,
    kReplaceAllBox, kPartsBox,          kRegexBox,    kResetButton,
};
inline constexpr int kAlwaysControls[] = {kCloseButton, kUndoManagerButton};

}  // namespace Velmora::SDK
