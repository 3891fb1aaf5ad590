// The form of the Create Link dialog: its fields, the rules for the kinds of links, and their descriptions.
#pragma once

#include "filetools/links.h"
#include "frame/host/host_types.h"
#include "platform/text.h"

struct CreateLinksForm {
  // The kind if no row of the list is selected.
  static constexpr int kNoKind = -1;

  // The input of the dialog. The rules use the two names as they are here, not as the user has edited them
  // (C-403); FinishForm stores the edited ones here.
  WString linkName;    // the path that will be created
  WString targetName;  // the existing file or folder
  bool targetIsFolder = false;
  bool multiple = false;   // more than one item; the names are only displayed
  bool anyFolder = false;  // of several items, at least one is a folder
  bool anyFile = false;    //   and at least one is a file
  bool symlinksSupported = true;

  // The fields. The kind is a LinkKind; before the dialog opens it is the last one used, or 0.
  int linkKind = 0;
  WString linkText;
  WString targetText;
  bool linkEnabled = true;
  bool targetEnabled = true;
  bool okEnabled = true;
  Velmora::SDK::TextId description = 0;  // 0 for no text
  Velmora::SDK::TextId status = 0;

  WString baseLinkName;              // the link's name when the dialog opened
  bool nameShownAsShortcut = false;  // the link field contains the name of a shortcut
};

// Fills the fields and selects a kind: the last one used, or the junction if none was used yet. Selects no
// row if the last kind is unknown (C-406).
void StartForm(CreateLinksForm& form);

// Updates the description, the rules and the name of a shortcut after linkKind has changed.
void UpdateForKind(CreateLinksForm& form);

// Stores the fields in the two names. The kind is kNoKind if no row is selected.
void FinishForm(CreateLinksForm& form);
