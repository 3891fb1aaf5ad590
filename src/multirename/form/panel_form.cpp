#include "multirename/form/panel_form.h"

#include <algorithm>

#include "frame/services/language_text.h"
#include "multirename/form/dialog_texts.h"
#include "multirename/form/find_replace_dialog_form.h"
#include "multirename/form/panel_controls.h"
#include "multirename/form/panel_writing.h"
#include "multirename/form/tag_menu.h"
#include "multirename/form/template_history.h"
#include "multirename/form/undo_manager_form.h"

namespace Velmora::SDK {

namespace {

// The controls whose change posts MRM_UPDATE_PREVIEW.
constexpr int kPreviewControls[] = {kNameTemplate, kExtensionTemplate, kStartAt, kStepBy,
                                    kDigits,       kCaseBox,           kPartsBox};

}  // namespace

const PanelForm::PressRow PanelForm::kPressRows[] = {
    {kNameTags, &PanelForm::OpenNameTags},
    {kExtensionTags, &PanelForm::OpenExtensionTags},
    {kPairAdd, &PanelForm::AddPair},
    {kPairDialog, &PanelForm::OpenPairDialog},
    {kRegexBox, &PanelForm::UpdatePreview},
    {kReplaceAllBox, &PanelForm::UpdatePreview},
    {kCaseSensitiveBox, &PanelForm::UpdatePreview},
    {kDeleteProfile, &PanelForm::DeleteProfile},
    {kLivePreviewBox, &PanelForm::PostUpdate},
    {kResetButton, &PanelForm::ResetFileList},
    {kUndoButton, &PanelForm::UndoRun},
    {kUndoManagerButton, &PanelForm::OpenUndoManager},
    {kStartButton, &PanelForm::StartRun},
    {kCloseButton, &PanelForm::CloseWindow},
};

PanelForm::PanelForm(PanelView& view, FrameForm& frame, RenameContext& context)
    : view_(view),
      frame_(frame),
      context_(context),
      host_(context.host),
      engine_(context.engine),
      rules_(view, context.host),
      profileBox_(view, context.host, context.profiles),
      templates_{{kNameTemplate, kNameTags, kNameHistory, kDefaultNameTemplate, {}},
                 {kExtensionTemplate, kExtensionTags, kExtensionHistory, kDefaultExtensionTemplate, {}}} {}

void PanelForm::Open() {
  frame_.SetPanel(view_.Window());
  frame_.SetTitle();
  {
    const PanelWriting writing(isWriting_);
    SetDialogTexts(view_, host_, kPanelTexts, kPanelCommonTexts);
    // The access key of the group leads to its first field.
    view_.SetText(kPartsName, WithoutAccessKey(LanguageText(host_, kRenameTextSearch)));
    for (TemplateBox& box : templates_) {
      box.offered = LoadTemplateHistory(host_, box.history);
      view_.SetLines(box.control, box.offered);
    }
    rules_.Open();
    profileBox_.Rebuild();
    view_.SetChecked(kSaveUndoBox, true);
    view_.SetChecked(kLivePreviewBox, true);
  }
  propertyNames_ = ListPropertyNames(host_, engine_.propertyManager);
  for (const auto& [control, text] : kPanelTips) view_.SetTip(control, LanguageTitle(host_, text));
  EnableControls(true);
  PostUpdate();
}

int PanelForm::DefaultButton(int focused) const {
  const bool isPairField = focused == kPairFind || focused == kPairReplace;
  return isPairField && !view_.GetText(kPairFind).empty() ? kPairAdd : kStartButton;
}

void PanelForm::Press(int control) {
  if (!view_.IsEnabled(control)) return;
  for (const PressRow& row : kPressRows) {
    if (row.control == control) return (this->*row.handler)();
  }
}

void PanelForm::Change(int control) {
  if (isWriting_) return;
  if (control == kProfileBox) ChooseProfile();
  if (std::ranges::find(kPreviewControls, control) != std::end(kPreviewControls)) PostUpdate();
}

void PanelForm::DoubleClick(int control) {
  if (control == kPairList) OpenPairDialog();
}

bool PanelForm::OnMessage(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case MRM_UPDATE_PREVIEW:
      UpdatePreview();
      return true;
    case MRM_ROWS_CHANGED:
      frame_.List().Refresh();
      return true;
    case MRM_RUN_FINISHED:
      OnRunFinished(first, second != 0);
      return true;
    case MRM_NEW_SELECTION:
      OnNewSelection();
      return true;
    default:
      return false;
  }
}

void PanelForm::EnableControls(bool on) {
  const bool isActive = on && !sessionLoaded_;
  for (const int control : kRuleControls) view_.SetEnabled(control, isActive);
  for (const int control : kAlwaysControls) view_.SetEnabled(control, on);
  view_.SetEnabled(kUndoButton, on && undoAvailable_);
}

void PanelForm::AddPair() {
  bool isAdded = false;
  {
    const PanelWriting writing(isWriting_);
    isAdded = rules_.AddPair();
  }
  if (!isAdded) return;
  view_.GiveFocus(kPairFind);  // for the next pair
  PostUpdate();
}

void PanelForm::OpenPairDialog() {
  FindReplaceDialogForm form(host_, rules_.Pairs());
  if (view_.RunDialog(kFindReplaceDialog, form) != kDialogOk) return;
  {
    const PanelWriting writing(isWriting_);
    rules_.SetPairs(form.Pairs());
  }
  PostUpdate();
}

// Appends the tag to the text, wherever the caret is (C-685).
void PanelForm::OpenTagMenu(const TemplateBox& box) {
  const int line = view_.ShowMenu(box.tagButton, TagMenuLines(host_));
  const WCHAR* const listed = TagOfLine(line);
  WString tag(ViewOf(listed));
  if (line == kPropertyTagLine) {
    TagDialogForm form(host_, propertyNames_);
    if (view_.RunDialog(kAddTagDialog, form) != kDialogOk) return;
    tag = form.Tag();
  } else if (!listed) {
    return;
  }
  {
    const PanelWriting writing(isWriting_);
    view_.SetText(box.control, view_.GetText(box.control) + tag);
    view_.SelectEnd(box.control);
  }
  UpdatePreview();
}

void PanelForm::OpenUndoManager() {
  engine_.undoStore.Load();
  UndoManagerForm form(host_, engine_.undoStore, loadedSession_);
  const int result = view_.RunDialog(kUndoManagerDialog, form);
  // A new session may get the address of a deleted one.
  if (!engine_.undoStore.Contains(loadedSession_)) loadedSession_ = nullptr;
  if (result == kDialogOk && form.Chosen()) LoadUndoSession(*form.Chosen());
}

void PanelForm::LoadUndoSession(MultiRenameUndo& session) {
  loadedSession_ = &session;
  const SharedItems entries = LoadSession(session);
  context_.rows.Set(entries);
  // Not the rows of the context, which a new selection may replace at any time.
  frame_.FillList(entries);
  undoAvailable_ = true;
  sessionLoaded_ = true;
  frame_.SetTitle(LanguageText(host_, kRenameTextSessionTitle) + DateText(session));
  EnableControls(true);
}

}  // namespace Velmora::SDK
