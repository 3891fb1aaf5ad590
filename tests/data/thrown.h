// What a call throws: the number and the text of one kind of exception, or the text alone.
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

// Exceptions of other kinds pass.
template <typename Exception, typename Call>
Thrown ThrownBy(Call call) {
  try {
    call();
  } catch (const Exception& exception) {
    return {exception.errorCode, exception.what()};
  }
  return {0, "nothing was thrown"};
}

// For exceptions that carry no number.
template <typename Exception, typename Call>
std::string TextThrownBy(Call call) {
  try {
    call();
  } catch (const Exception& exception) {
    return exception.what();
  }
  return "nothing was thrown";
}
