#include "host/rename/interruption.h"
#include "platform/windows_api.h"

namespace QxHost {
namespace {

constexpr DWORD kTerminationWait = 60000;  // milliseconds, longer than the system waits

// Runs on its own thread.
BOOL WINAPI OnConsoleEvent(DWORD event) {
  if (IsInterrupted()) return FALSE;
  Interrupt();
  // When its window is closed, and at a logoff or shutdown, the system ends the program as soon as this
  // function returns.
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(kTerminationWait);
  return TRUE;
}

}  // namespace

void InterruptionWatch::Begin() { SetConsoleCtrlHandler(OnConsoleEvent, TRUE); }

void InterruptionWatch::End() { SetConsoleCtrlHandler(OnConsoleEvent, FALSE); }

}  // namespace QxHost
