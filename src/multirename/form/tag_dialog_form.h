// The dialog that creates the tag of a file property, "[?name]" (MultiRenameAddTag).
#pragma once

#include "frame/host/host_app.h"
#include "multirename/form/dialog_form.h"

namespace Velmora::SDK {

enum TagDialogControl : int {
  kTagPropertyLabel = 1120,
  kTagChosenLabel = 1051,
  kTagStartLabel = 1121,
  kTagLengthLabel = 1122,
  kTagProperties = 1048,  // a list box with the display names
  kTagChosen = 1050,      // read-only: the display name of the chosen property
  kTagComplete = 1012,    // radio buttons
  kTagSubString = 1013,
  kTagStart = 1002,
  kTagLength = 1003,
  kTagText = 1049,  // the tag, editable
  kTagInsert = kDialogOk,
  kTagCancel = kDialogCancel,
};

// A property of files: its name in tags, and the name that is displayed.
struct PropertyName {
  WString internalName;
  WString displayName;
};

// Returns the properties that the host's property manager lists, without those whose names it does not
// return.
std::vector<PropertyName> ListPropertyNames(IHostApp& host, IHostPropertyManager* manager);

class TagDialogForm final : public DialogForm {
 public:
  // The names must outlive the form.
  TagDialogForm(IHostApp& host, std::span<const PropertyName> names) : host_(host), names_(names) {}

  void Open(DialogView& view) override;
  void Press(int control) override;
  void Change(int control) override;

  // Returns the tag after the dialog has ended with kDialogOk.
  const WString& Tag() const { return tag_; }

 private:
  void UpdateForMode();
  void ShowTag();

  IHostApp& host_;
  std::span<const PropertyName> names_;
  DialogView* view_ = nullptr;
  WString chosenName_;  // internal; empty until one is chosen
  WString tag_;
};

}  // namespace Velmora::SDK
