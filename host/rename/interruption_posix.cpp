#include <signal.h>

#include <array>

#include "host/rename/interruption.h"

namespace QxHost {
namespace {

constexpr std::array kEndingSignals = {SIGINT, SIGTERM, SIGHUP};

std::array<struct sigaction, kEndingSignals.size()> previousActions;

void OnEndingSignal(int number) {
  if (!IsInterrupted()) return Interrupt();
  signal(number, SIG_DFL);
  raise(number);  // delivered when this handler returns
}

}  // namespace

void InterruptionWatch::Begin() {
  struct sigaction action {};
  action.sa_handler = OnEndingSignal;
  action.sa_flags = SA_RESTART;
  for (std::size_t index = 0; index < kEndingSignals.size(); ++index) {
    sigaction(kEndingSignals[index], nullptr, &previousActions[index]);
    if (previousActions[index].sa_handler != SIG_IGN) sigaction(kEndingSignals[index], &action, nullptr);
  }
}

void InterruptionWatch::End() {
  for (std::size_t index = 0; index < kEndingSignals.size(); ++index) {
    sigaction(kEndingSignals[index], &previousActions[index], nullptr);
  }
}

}  // namespace QxHost
