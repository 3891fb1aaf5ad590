#include "multirename/form/frame_form.h"

#include <array>
#include <utility>

#include "frame/services/format_text.h"
#include "frame/services/language_text.h"

namespace Velmora::SDK {

namespace {

constexpr u32 kKeyWithAlt = 16;  // an argument of IHostApp::GetKeyText

// Returns a text such as "Alt+Up"; empty if the host has none.
WString MoveKeyText(IHostApp& host, u32 key) {
  std::array<WCHAR, 64> buffer = {};
  return WString(
      ViewOf(host.GetKeyText(buffer.data(), static_cast<u32>(buffer.size()), key, kKeyWithAlt, 0)));
}

}  // namespace

FrameForm::FrameForm(FrameView& view, RenameContext& context)
    : view_(view),
      context_(context),
      rowInfo_(context.host, &context.imageSet),
      closeQuestion_(LanguageText(context.host, kRenameTextCloseQuestion)) {}

void FrameForm::Open(IHostList* list) {
  view_.SetTitle(W("MultiRename"));
  if (!list) return;
  context_.imageSet = list->GetImageSet();
  list_.Attach(*list, rowInfo_);
}

void FrameForm::Close() { list_.Detach(); }

void FrameForm::FillList(SharedItems rows) {
  list_.FillList(std::move(rows));
  ShowCounts();
}

bool FrameForm::OnHostEvent(std::intptr_t source, s32 code) {
  if (!list_.IsAttached()) return false;
  if (code == kEventSelectionChanged && source == static_cast<std::intptr_t>(list_.Get()->GetId()))
    ShowCounts();
  if (code == kEventStatusChanged && source == reinterpret_cast<std::intptr_t>(panel_)) ShowStatus();
  return true;
}

bool FrameForm::OnCommand(int command) {
  for (const FrameMove& row : kFrameMoves) {
    if (row.command != command) continue;
    if (list_.IsAttached()) (list_.Get()->*row.move)();
    return true;
  }
  return false;
}

void FrameForm::ShowContextMenu(HWND owner, int x, int y) {
  MenuLines lines;
  for (const FrameMove& row : kFrameMoves) {
    WString text = LanguageText(context_.host, row.text);
    const WString key = MoveKeyText(context_.host, row.key);
    if (!key.empty()) (text += W('\t')) += key;
    lines.push_back({row.menuNumber, std::move(text)});
  }
  const int chosen = view_.ShowMenu(owner, x, y, lines);
  for (const FrameMove& row : kFrameMoves) {
    if (row.menuNumber == chosen) OnCommand(row.command);
  }
}

void FrameForm::OnMessage(UINT message) {
  if (message != MRM_CONFIRM_CLOSE) return;
  if (view_.ShowBox(W("Velmora - MultiRename"), closeQuestion_, MB_YESNOCANCEL) == IDYES) view_.PostClose();
}

void FrameForm::SetTitle(WStringView more) {
  WString title = LanguageText(context_.host, kRenameTextTitle);
  if (!more.empty()) (title += W(" - ")) += more;
  view_.SetTitle(title);
}

void FrameForm::ShowCounts() {
  if (!list_.IsAttached()) return;
  u32 rows = 0;
  u32 selected = 0;
  list_.Get()->GetCounts(&rows, &selected);
  const std::int64_t counts[] = {rows, selected};
  view_.SetPane(kCountsPane, selected > 0
                                 ? FormatCounts(LanguageText(context_.host, kRenameTextSelectedRows), counts)
                                 : FormatCount(LanguageText(context_.host, kRenameTextRows), rows));
}

void FrameForm::ShowStatus() { view_.SetPane(kStatusPane, StatusText(context_.engine.status)); }

}  // namespace Velmora::SDK
