// The calling thread's COM apartment, for the time of the object. A thread with windows is in one, as shell
// functions, drops of files and accessibility need it. The native build has none.
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
