// Counts and limits the calling thread's allocations, in the native build. A program that links this replaces
// all forms of operator new and delete; allocations by C libraries are not counted.
#pragma once

namespace Memory {

// Lets `count` allocations of this thread succeed and fails all later ones until the end of the scope.
class Limit {
 public:
  explicit Limit(int count);
  Limit(const Limit&) = delete;
  Limit& operator=(const Limit&) = delete;
  ~Limit();
};

// Returns the number of allocations of this thread so far, including failed ones.
long AllocationCount();

}  // namespace Memory
