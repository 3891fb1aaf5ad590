// Handles Ctrl+C and similar requests while names are being changed on the disk.
#pragma once

namespace QxHost {

// Returns whether the present watch, or else the last one, was interrupted. May be called on any thread.
bool IsInterrupted();

// Interrupts the present watch, as Ctrl+C does.
void Interrupt();

// While a watch exists, the first request to end the program (by Ctrl+C, the terminal or the system) only
// interrupts: the run stops after the current rename, and what was done is recorded. A second request ends
// the program. A request that the program was started to ignore remains ignored. Only one watch may exist at
// a time.
class InterruptionWatch {
 public:
  InterruptionWatch();
  InterruptionWatch(const InterruptionWatch&) = delete;
  InterruptionWatch& operator=(const InterruptionWatch&) = delete;
  ~InterruptionWatch();

 private:
  void Begin();
  void End();
};

}  // namespace QxHost
