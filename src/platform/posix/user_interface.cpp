#include "platform/posix/user_interface.h"

#include <atomic>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/last_error.h"

namespace {

constexpr INT_PTR kNoAssociation = 31;      // SE_ERR_NOASSOC
constexpr DWORD kNoInteractiveUser = 1459;  // ERROR_REQUIRES_INTERACTIVE_WINDOWSTATION
constexpr INT_PTR kMaxErrors = 32;          // the highest value that ShellExecuteW returns for a failure

std::atomic<Platform::UserInterface*> installed{nullptr};

HINSTANCE AsInstance(INT_PTR value) { return reinterpret_cast<HINSTANCE>(value); }

}  // namespace

namespace Platform {

UserInterface* InstallUserInterface(UserInterface* handler) { return installed.exchange(handler); }

INT_PTR AskForm(FormRequest& form) {
  UserInterface* handler = installed.load();
  const INT_PTR button = handler ? handler->Dialog(form) : IDCANCEL;
  const bool isRefused = button == IDOK && form.isOkEnabled && !form.isOkEnabled();
  return isRefused ? IDCANCEL : button;
}

}  // namespace Platform

int MessageBoxW(HWND, const WCHAR* text, const WCHAR* caption, UINT style) {
  if (Platform::FaultFires("MessageBoxW")) return 0;
  Platform::UserInterface* handler = installed.load();
  return handler ? handler->MessageBox(text, caption, style) : Platform::FailWith(kNoInteractiveUser);
}

HINSTANCE ShellExecuteW(HWND, const WCHAR* verb, const WCHAR* file, const WCHAR* arguments, const WCHAR*,
                        int show) {
  if (Platform::FaultFires("ShellExecuteW")) {
    const INT_PTR error = static_cast<INT_PTR>(GetLastError());
    return AsInstance(error <= kMaxErrors ? error : kNoAssociation);
  }
  Platform::UserInterface* handler = installed.load();
  return AsInstance(handler ? handler->ShellExecute(verb, file, arguments, show) : kNoAssociation);
}
