#include "host/rename/interruption.h"
#include "platform/windows_api.h"

namespace QxHost {
namespace {

constexpr DWORD kLongerThanTheSystemWaits = 60000;  // milliseconds

// Runs on a thread of its own.
BOOL WINAPI OnConsoleEvent(DWORD event) {
  if (IsInterrupted()) return FALSE;
  Interrupt();
  // After a closed window, a logoff or a shutdown the system ends the program as soon as this returns.
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(kLongerThanTheSystemWaits);
  return TRUE;
}

}  // namespace

void InterruptionWatch::Begin() { SetConsoleCtrlHandler(OnConsoleEvent, TRUE); }

void InterruptionWatch::End() { SetConsoleCtrlHandler(OnConsoleEvent, FALSE); }

}  // namespace QxHost
