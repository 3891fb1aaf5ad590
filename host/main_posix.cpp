#include <malloc.h>

#include <csignal>

#include "host/verbs/run_qxhost.h"

int main(int argc, char** argv) {
  // One heap for all threads, which grows in large steps and never shrinks: the threads of a run work one at
  // a time, and returning the memory of a million rows to the system piece by piece would be slow.
  constexpr int kHeapStep = 4 << 20;
  constexpr int kWholeHeap = 1 << 30;
  constexpr int kLargestOfHeap = 32 << 20;
  mallopt(M_ARENA_MAX, 1);
  mallopt(M_TOP_PAD, kHeapStep);
  mallopt(M_TRIM_THRESHOLD, kWholeHeap);
  mallopt(M_MMAP_THRESHOLD, kLargestOfHeap);
  mallopt(M_MXFAST, 0);
  // A reader that closes the pipe early (`| head`) must not end the program between a rename and its undo
  // file: the write fails instead, and the run continues.
  std::signal(SIGPIPE, SIG_IGN);
  return QxHost::RunQxHost(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
