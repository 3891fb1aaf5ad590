#include "platform/com_apartment.h"

ComApartment::ComApartment() : isEntered_(false) {}
ComApartment::~ComApartment() = default;
