#include "support/memory_limit.h"

#include <cstdlib>
#include <new>

namespace {

// Allocations that may still succeed; negative for no limit.
thread_local int allocationsLeft = -1;
thread_local long allocationCount = 0;

bool MayAllocate() {
  ++allocationCount;
  if (allocationsLeft < 0) return true;
  if (allocationsLeft == 0) return false;
  --allocationsLeft;
  return true;
}

void* Allocate(std::size_t size) { return MayAllocate() ? std::malloc(size == 0 ? 1 : size) : nullptr; }

void* AllocateOrThrow(std::size_t size) {
  if (void* memory = Allocate(size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

namespace Memory {

Limit::Limit(int count) { allocationsLeft = count; }
Limit::~Limit() { allocationsLeft = -1; }

long AllocationCount() { return allocationCount; }

}  // namespace Memory

// All memory of the program is allocated here; sanitizers see the calls of malloc. The array forms are
// replaced too, because a sanitizer's runtime has its own, which do not call the scalar forms.
void* operator new(std::size_t size) { return AllocateOrThrow(size); }
void* operator new[](std::size_t size) { return AllocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
