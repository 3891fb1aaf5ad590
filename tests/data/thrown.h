// The exception of a call: its number and text, or its text only.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "platform/windows_api.h"

struct Thrown {
  DWORD errorCode;
  std::string text;
  friend bool operator==(const Thrown&, const Thrown&) = default;
};

inline void PrintTo(const Thrown& thrown, std::ostream* out) {
  *out << thrown.errorCode << " \"" << thrown.text << "\"";
}

// Exceptions of other types are not caught.
template <typename Exception, typename Call>
Thrown ThrownBy(Call call) {
  try {
    call();
  } catch (const Exception& exception) {
    return {exception.errorCode, exception.what()};
  }
  return {0, "nothing was thrown"};
}

// For exceptions without a number.
template <typename Exception, typename Call>
std::string TextThrownBy(Call call) {
  try {
    call();
  } catch (const Exception& exception) {
    return exception.what();
  }
  return "nothing was thrown";
}
