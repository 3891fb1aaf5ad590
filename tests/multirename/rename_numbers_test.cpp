// The numbers by which other programs find the controls of MultiRename, and which its messages, commands and
// events have. The other tests use their names.
#include <gtest/gtest.h>

#include "multirename/engine/multi_rename_item.h"
#include "multirename/engine/rename_worker.h"
#include "multirename/form/find_replace_dialog_form.h"
#include "multirename/form/frame_form.h"
#include "multirename/form/panel_controls.h"
#include "multirename/form/tag_dialog_form.h"
#include "multirename/form/undo_manager_form.h"

namespace Velmora::SDK {
namespace {

struct RenameNumber {
  long long named;
  long long number;
};

template <std::size_t size>
void ExpectNumbers(const RenameNumber (&rows)[size]) {
  for (const RenameNumber& row : rows) EXPECT_EQ(row.named, row.number);
}

TEST(RenameNumbers, OfTheControlsOfTheRulePanel) {
  ExpectNumbers({{kNameTemplateLabel, 1058},
                 {kNameTemplate, 1034},
                 {kNameTags, 1046},
                 {kExtensionTemplateLabel, 1059},
                 {kExtensionTemplate, 1035},
                 {kExtensionTags, 1047},
                 {kCaseBoxLabel, 1060},
                 {kCaseBox, 1036},
                 {kCounterGroup, 1062},
                 {kStartAtLabel, 1066},
                 {kStartAt, 1031},
                 {kStepByLabel, 1067},
                 {kStepBy, 1032},
                 {kDigitsLabel, 1068},
                 {kDigits, 1033},
                 {kSearchGroup, 1063},
                 {kPairList, 1118},
                 {kPairFind, 1020},
                 {kPairReplace, 1001},
                 {kPairAdd, 1119},
                 {kPairDialog, 1117},
                 {kPartsBox, 1070},
                 {kPartsName, 1072},
                 {kRegexBox, 1039},
                 {kReplaceAllBox, 1038},
                 {kCaseSensitiveBox, 1037},
                 {kProfileGroup, 1061},
                 {kProfileBox, 1045},
                 {kDeleteProfile, 1044},
                 {kSaveUndoBox, 1043},
                 {kLivePreviewBox, 1004},
                 {kResetButton, 1071},
                 {kUndoButton, 1040},
                 {kUndoManagerButton, 1049},
                 {kStartButton, 1003},
                 {kCloseButton, 1041}});
}

TEST(RenameNumbers, OfTheDialogs) {
  ExpectNumbers(
      {{kRulePanel, 104}, {kAddTagDialog, 105}, {kUndoManagerDialog, 106}, {kFindReplaceDialog, 112}});
}

TEST(RenameNumbers, OfTheControlsOfTheTagDialog) {
  ExpectNumbers({{kTagPropertyLabel, 1120},
                 {kTagChosenLabel, 1051},
                 {kTagStartLabel, 1121},
                 {kTagLengthLabel, 1122},
                 {kTagProperties, 1048},
                 {kTagChosen, 1050},
                 {kTagComplete, 1012},
                 {kTagSubString, 1013},
                 {kTagStart, 1002},
                 {kTagLength, 1003},
                 {kTagText, 1049}});
}

TEST(RenameNumbers, OfTheControlsOfTheUndoManager) {
  ExpectNumbers({{kUndoSessions, 1053},
                 {kUndoFiles, 1052},
                 {kUndoSessionsLabel, 1056},
                 {kUndoDateLabel, 1055},
                 {kUndoDate, 1049},
                 {kUndoCount, 1054},
                 {kUndoFilesLabel, 1057},
                 {kUndoDelete, 1046},
                 {kUndoDeleteAll, 1047}});
}

TEST(RenameNumbers, OfTheControlsOfTheSearchPairsDialog) {
  ExpectNumbers({{kPairsLabel, 1109}, {kPairsText, 1110}, {kPairsHelp, 1111}});
}

TEST(RenameNumbers, OfTheMessages) {
  ExpectNumbers({{MRM_UPDATE_PREVIEW, 33268},
                 {MRM_ROWS_CHANGED, 33768},
                 {MRM_RUN_FINISHED, 33868},
                 {MRM_CONFIRM_CLOSE, 33968},
                 {MRM_NEW_SELECTION, 34068},
                 {kPreviewFinished, 1},
                 {kRenameFinished, 2},
                 {kRestoreFinished, 3}});
}

TEST(RenameNumbers, OfTheCommandsAndEventsOfTheWindow) {
  ExpectNumbers({{kMoveRowUp, 40001},
                 {kMoveRowDown, 40002},
                 {kMoveRowTop, 40003},
                 {kMoveRowBottom, 40004},
                 {kEventStatusChanged, 1000},
                 {kEventSelectionChanged, 52300}});
}

TEST(RenameNumbers, OfTheStatesOfARow) {
  ExpectNumbers({{StateReady, 0},
                 {StateDuplicate, 1},
                 {StateInvalidName, 2},
                 {StateFailed, 3},
                 {StateIgnored, 4},
                 {StateSkipped, 5},
                 {StateRenamed, 6}});
}

}  // namespace
}  // namespace Velmora::SDK
