// Ctrl+C and its like while names change on the disk.
#pragma once

namespace QxHost {

// Whether the run that is watched, or the last one that was, has been interrupted. Any thread.
bool IsInterrupted();

// Interrupts what is watched, as Ctrl+C does.
void Interrupt();

// While one exists, the first wish to end the program (Ctrl+C, or that of the terminal or the system) only
// interrupts: the run stops after the rename in progress, and what was done is written down. A second one
// ends the program. A wish that the program was started to ignore stays ignored. One at a time.
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
