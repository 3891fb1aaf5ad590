// The Create Link dialog: its fields, the rules of the kinds, and what it says about them.
#pragma once

#include "filetools/links.h"
#include "frame/host/host_types.h"
#include "platform/text.h"

struct CreateLinksForm {
  // Stands for a list in which no row is selected.
  static constexpr int kNoKind = -1;

  // What the dialog is about. The rules use the two names as they are here, not as the user has edited them
  // (C-403); on OK they take what the fields hold.
  WString linkName;    // the path that will be created
  WString targetName;  // the existing file or folder
  bool targetIsFolder = false;
  bool multiple = false;   // more than one item; the names are for the eye only
  bool anyFolder = false;  // of several items, at least one is a folder
  bool anyFile = false;    //   and at least one is a file
  bool symlinksSupported = true;

  // The fields. The kind is a LinkKind; before the dialog it is the one that was used last, 0 for none.
  int linkKind = 0;
  WString linkText;
  WString targetText;
  bool linkEnabled = true;
  bool targetEnabled = true;
  bool okEnabled = true;
  Velmora::SDK::TextId description = 0;  // 0: no text
  Velmora::SDK::TextId status = 0;

  WString baseLinkName;              // the link's name when the dialog opened
  bool nameShownAsShortcut = false;  // the link field shows the name of a shortcut
};

// Fills the fields and selects a kind: the last one, or the junction if none was used yet. An unknown last
// kind selects no row (C-406).
void StartForm(CreateLinksForm& form);

// Refreshes the description, the rules and the shortcut's name, after linkKind has changed.
void FollowKind(CreateLinksForm& form);

// Takes the fields into the two names. The kind stays kNoKind where no row is selected.
void FinishForm(CreateLinksForm& form);
