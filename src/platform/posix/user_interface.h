// The handler of message boxes and dialogs in the native build, which has no windows.
//
// The module and its host share one platform library, so a handler that the host (or a test) installs here
// receives the requests of the module. The handler is called on the thread that makes the request.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/text.h"

namespace Platform {

// One field of a dialog's form, named after the form's member.
struct FormField {
  std::string name;
  std::function<WString()> get;
  // Sets the field's value from text. Returns false if the field does not accept the text.
  std::function<bool(const WString&)> set;
  // The values that the field accepts; empty if it accepts values that cannot be listed.
  std::vector<WString> words = {};
  // Returns whether the field is enabled in the form's present state. If null, it always is.
  std::function<bool()> isEnabled = nullptr;
  // Describes what a field without such a list accepts, such as "at most 3 characters"; empty for any text.
  std::string takes = {};
};

// A request to show a dialog: its class name, the title and the text at its top as the user would see them,
// and the fields of its form.
struct FormRequest {
  std::string dialog;
  WString title;
  WString text;
  std::vector<FormField> fields;
  // Returns whether the OK button is enabled with the present values. If null, it always is.
  std::function<bool()> isOkEnabled = nullptr;
};

// The interface of the handler.
class UserInterface {
 public:
  virtual ~UserInterface() = default;
  // Returns the button that was pressed, or 0 for a failure, as MessageBoxW does.
  virtual int MessageBox(const WCHAR* text, const WCHAR* caption, UINT style) = 0;
  // Edits the fields and returns the button that ends the dialog: IDOK or IDCANCEL.
  virtual INT_PTR Dialog(FormRequest& form) = 0;
  // Handles a call of ShellExecuteW. Returns a value above 32 for success, as that function does.
  virtual INT_PTR ShellExecute(const WCHAR* verb, const WCHAR* file, const WCHAR* arguments, int show) = 0;
};

// Installs `handler` (null for none) and returns the previous one. The caller keeps ownership; the handler
// must live until another one is installed. May be called from any thread.
QX_PLATFORM_API UserInterface* InstallUserInterface(UserInterface* handler);

// Passes the form to the handler and returns the button that ended the dialog. Returns IDCANCEL if no handler
// is installed, or if OK was pressed while it was disabled.
QX_PLATFORM_API INT_PTR AskForm(FormRequest& form);

}  // namespace Platform
