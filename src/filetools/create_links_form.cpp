#include "filetools/create_links_form.h"

#include <algorithm>
#include <iterator>

#include "frame/services/message_texts.h"

using namespace Velmora::SDK;

namespace {

constexpr const WCHAR* kShortcutExtension = W(".lnk");

struct FormKindRow {
  int kind;
  TextId description;
};

// clang-format off
constexpr FormKindRow kFormKinds[] = {
  {kHardLink, kTextLinkAboutHard},
  {kJunction, kTextLinkAboutJunction},
  {kSymbolicLink, kTextLinkAboutSymbolic},
  {kShortcut, 0},
};
// clang-format on

const FormKindRow* FindKind(int kind) {
  const auto* const row = std::ranges::find(kFormKinds, kind, &FormKindRow::kind);
  return row != std::end(kFormKinds) ? row : nullptr;
}

bool IsMixed(const CreateLinksForm& form) { return form.multiple && form.anyFolder && form.anyFile; }

bool HasFolder(const CreateLinksForm& form) { return form.multiple ? form.anyFolder : form.targetIsFolder; }

// Returns whether the link and the target are on different drives. Compares the first characters
// case-sensitively, so C and c are two drives (C-402).
bool SpansDrives(const CreateLinksForm& form) {
  return form.linkName.c_str()[0] != form.targetName.c_str()[0];
}

struct RefusalRow {
  int kind;
  bool (*applies)(const CreateLinksForm& form);
  TextId status;
};

// The reasons why a kind cannot be used. The first row that applies is shown.
// clang-format off
constexpr RefusalRow kRefusals[] = {
  {kHardLink,     IsMixed, kTextLinkHardMixed},
  {kJunction,     IsMixed, kTextLinkJunctionMixed},
  {kHardLink,     HasFolder, kTextLinkHardFolder},
  {kHardLink,     SpansDrives, kTextLinkHardDrives},
  {kJunction,     [](const CreateLinksForm& form) { return !HasFolder(form); }, kTextLinkJunctionFile},
  {kSymbolicLink, [](const CreateLinksForm& form) { return !form.symlinksSupported; }, kTextLinkNoSymbolic},
};
// clang-format on

void ApplyRules(CreateLinksForm& form) {
  // If no row is selected, the fields do not change (C-414).
  if (!FindKind(form.linkKind)) return;
  if (form.multiple) {
    form.linkEnabled = form.targetEnabled = false;
  } else if (!form.targetName.empty()) {
    form.targetEnabled = form.linkKind == kSymbolicLink;
  }
  const auto* const rule = std::ranges::find_if(kRefusals, [&form](const RefusalRow& candidate) {
    return candidate.kind == form.linkKind && candidate.applies(form);
  });
  form.okEnabled = rule == std::end(kRefusals);
  form.status = form.okEnabled ? 0 : rule->status;
}

// Returns the name of a shortcut. The extension of a file is replaced by that of shortcuts; the name of a
// file without an extension is kept unchanged (C-404).
WString ShortcutName(const CreateLinksForm& form) {
  const WString& name = form.baseLinkName;
  if (form.multiple || form.targetIsFolder) return name + kShortcutExtension;
  const std::size_t dot = name.find_last_of(W(".\\"));
  if (dot == WString::npos || name[dot] == W('\\')) return name;
  return name.substr(0, dot) + kShortcutExtension;
}

void ShowShortcutName(CreateLinksForm& form) {
  if (form.linkKind != kShortcut) {
    if (form.nameShownAsShortcut) form.linkText = form.baseLinkName;
    form.nameShownAsShortcut = false;
    return;
  }
  const WString name = ShortcutName(form);
  if (name == form.baseLinkName) return;
  form.linkText = name;
  form.nameShownAsShortcut = true;
}

}  // namespace

void StartForm(CreateLinksForm& form) {
  form.baseLinkName = form.linkName;
  form.linkText = form.linkName;
  form.targetText = form.targetName;
  form.targetEnabled = form.targetName.empty();
  if (form.linkKind <= 0) form.linkKind = kJunction;
  if (!FindKind(form.linkKind)) form.linkKind = CreateLinksForm::kNoKind;
  UpdateForKind(form);
}

void UpdateForKind(CreateLinksForm& form) {
  const FormKindRow* const row = FindKind(form.linkKind);
  form.description = row ? row->description : 0;
  ApplyRules(form);
  ShowShortcutName(form);
}

void FinishForm(CreateLinksForm& form) {
  form.linkName = form.linkText;
  form.targetName = form.targetText;
}
