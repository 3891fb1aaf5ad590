#include "platform/com_apartment.h"

#include "platform/windows_api.h"

#include <objbase.h>

ComApartment::ComApartment() : isEntered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}

ComApartment::~ComApartment() {
  if (isEntered_) CoUninitialize();
}
