// A handler for the dialogs of the native build. For tests of that build only.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/posix/user_interface.h"

// Passes each dialog to a function during its lifetime. Message boxes return 0.
class DialogAnswer : public Platform::UserInterface {
 public:
  using Function = std::function<INT_PTR(Platform::FormRequest&)>;
  explicit DialogAnswer(Function function)
      : function_(std::move(function)), before_(Platform::InstallUserInterface(this)) {}
  DialogAnswer(const DialogAnswer&) = delete;
  DialogAnswer& operator=(const DialogAnswer&) = delete;
  ~DialogAnswer() override { Platform::InstallUserInterface(before_); }

  int MessageBox(const WCHAR*, const WCHAR*, UINT) override { return 0; }
  INT_PTR Dialog(Platform::FormRequest& form) override { return function_(form); }
  INT_PTR ShellExecute(const WCHAR*, const WCHAR*, const WCHAR*, int) override { return 31; }

 private:
  Function function_;
  Platform::UserInterface* before_;
};

inline Platform::FormField& FieldOf(Platform::FormRequest& request, const std::string& name) {
  for (Platform::FormField& field : request.fields) {
    if (field.name == name) return field;
  }
  throw std::runtime_error("no field " + name);
}

inline bool Set(Platform::FormRequest& request, const std::string& name, const WString& value) {
  return FieldOf(request, name).set(value);
}
inline WString Get(Platform::FormRequest& request, const std::string& name) {
  return FieldOf(request, name).get();
}

// Returns the fields with their values, in order: "find=old".
inline std::vector<std::string> ValuesOf(const Platform::FormRequest& request) {
  std::vector<std::string> values;
  for (const Platform::FormField& field : request.fields) {
    values.push_back(field.name + "=" + ToUtf8(field.get()));
  }
  return values;
}
