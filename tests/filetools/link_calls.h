// The log calls that tests of links expect in the record of the host.
#pragma once

#include <string>

#include "platform/text.h"

inline std::string LinkCreated(const std::string& word, const WString& link, const WString& target) {
  return "LogMessage(1, 10, \"Link Created (" + word + ") Link : \"" + ToUtf8(link) + "\" Link Target : \"" +
         ToUtf8(target) + "\"\")";
}

inline std::string LinkFailed(const std::string& word, int error, const WString& link,
                              const WString& target) {
  return "LogMessage(1, 30, \"Failed to create link (" + word + ") (Error : " + std::to_string(error) +
         ") Link : \"" + ToUtf8(link) + "\" Link Target : \"" + ToUtf8(target) + "\"\")";
}
