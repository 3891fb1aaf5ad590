// Who answers boxes and dialogs in the native build, where there are no windows.
//
// The platform library is one shared library for the module and its host, so the handler that the host (or a
// test) installs here answers what the module asks. Calls come on the thread that asks.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/text.h"

namespace Platform {

// One field of a dialog's form, by the name of the form's member.
struct FormField {
  std::string name;
  std::function<WString()> get;
  // Takes the field's value as text. False if the text is no value of this field.
  std::function<bool(const WString&)> set;
  // The values that the field takes; empty if they are no list.
  std::vector<WString> words = {};
  // Returns whether the field takes values as the form is. Null: it always does.
  std::function<bool()> isEnabled = nullptr;
  // What a field without such a list takes, if not any text: "at most 3 characters".
  std::string takes = {};
};

// A dialog that is asked for: its class name, its title and what stands at its top as the user would see
// them, and the fields of its form.
struct FormRequest {
  std::string dialog;
  WString title;
  WString text;
  std::vector<FormField> fields;
  // Returns whether OK may end the dialog with the fields as they are. Null: it always may.
  std::function<bool()> isOkEnabled = nullptr;
};

class UserInterface {
 public:
  virtual ~UserInterface() = default;
  // As MessageBoxW: answers the button, 0 for a failure.
  virtual int MessageBox(const WCHAR* text, const WCHAR* caption, UINT style) = 0;
  // Edits the fields and answers the button that ends the dialog: IDOK or IDCANCEL.
  virtual INT_PTR Dialog(FormRequest& form) = 0;
  // Is told what ShellExecuteW was asked to start. Answers as that does: above 32 for success.
  virtual INT_PTR ShellExecute(const WCHAR* verb, const WCHAR* file, const WCHAR* arguments, int show) = 0;
};

// Installs the handler (null for none) and gives back the one before. The caller keeps ownership and outlives
// its installation.
QX_PLATFORM_API UserInterface* InstallUserInterface(UserInterface* handler);

// Shows the form to the handler. Returns IDCANCEL without one, and if OK was pressed while it was disabled.
QX_PLATFORM_API INT_PTR AskForm(FormRequest& form);

}  // namespace Platform
