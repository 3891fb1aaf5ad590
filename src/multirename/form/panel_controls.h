// The controls of the rule panel: tables of their numbers, texts and tool tips. Other programs find the
// controls by these numbers, so they must not change.
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
  kNameTemplate = 1034,  // a combo box with an edit field
  kNameTemplateLabel = 1058,
  kNameTags = 1046,           // "<"
  kExtensionTemplate = 1035,  // a combo box with an edit field
  kExtensionTemplateLabel = 1059,
  kExtensionTags = 1047,  // "<"
  kCaseBox = 1036,        // a drop-down list, like the boxes for the parts and the profiles
  kCaseBoxLabel = 1060,
  kCounterGroup = 1062,
  kStartAt = 1031,  // numeric fields
  kStartAtLabel = 1066,
  kStepBy = 1032,
  kStepByLabel = 1067,
  kDigits = 1033,
  kDigitsLabel = 1068,
  kSearchGroup = 1063,
  kPairList = 1118,  // a list with columns, full-row selection and grid lines
  kPairFind = 1020,
  kPairReplace = 1001,
  kPairAdd = 1119,
  kPairDialog = 1117,  // "..."
  kPartsBox = 1070,
  kPartsName = 1072,  // not visible; the name of the box for screen readers
  kRegexBox = 1039,   // check boxes
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

// The texts that are set when the panel opens. The other controls have the texts of the resource ("<", "...",
// "X").
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

// Likewise, from the table that all modules share.
inline constexpr ControlTextRow kPanelCommonTexts[] = {{kPairAdd, kRenameCommonAdd}};

// The hints in the empty fields of the next pair, which have no labels.
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

// One tool tip control, without a limit on its width, serves the whole panel. Its times are in milliseconds.
constexpr u32 kTipDelay = 1000;
constexpr u32 kTipDuration = 10000;
constexpr u32 kTipDelayBetween = 500;

// The controls that are disabled during a run; see PanelForm::EnableControls. A loaded undo session also
// disables kRuleControls. The fields and buttons of the search pair are not listed: they stay enabled.
inline constexpr int kRuleControls[] = {
    kNameTemplate,  kExtensionTemplate, kNameTags,    kExtensionTags,  kCaseBox,
    kProfileBox,    kDeleteProfile,     kStartAt,     kStepBy,         kDigits,
    kPairList,      kStartButton,       kSaveUndoBox, kLivePreviewBox, kCaseSensitiveBox,
    kReplaceAllBox, kPartsBox,          kRegexBox,    kResetButton,
};
inline constexpr int kAlwaysControls[] = {kCloseButton, kUndoManagerButton};

}  // namespace Velmora::SDK
