// Memory under a test's control, for the native build: how often the calling thread allocates, and from when
// on it gets nothing. A program that uses this has all of its own operator new and delete; what C libraries
// take does not come through here.
#pragma once

namespace Memory {

// Lets `count` allocations of this thread succeed and no more, until the end of the scope.
class Limit {
 public:
  explicit Limit(int count);
  Limit(const Limit&) = delete;
  Limit& operator=(const Limit&) = delete;
  ~Limit();
};

// The allocations of this thread up to now, the refused ones included.
long AllocationCount();

}  // namespace Memory
