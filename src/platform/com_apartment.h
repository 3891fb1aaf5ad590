// Holds the calling thread in a single-threaded COM apartment (CoInitializeEx) while the object lives. A
// thread with windows needs one for shell functions, file drops and accessibility. Construct and destroy it
// on the same thread. Does nothing in the native build.
#pragma once

#include "platform/text.h"

class QX_PLATFORM_API ComApartment {
 public:
  ComApartment();
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;
  ~ComApartment();

 private:
  [[maybe_unused]] bool isEntered_;
};
