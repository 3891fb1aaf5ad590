// An output that stores its two streams as text.
#pragma once

#include <string>

#include "host/output/output.h"

struct RecordedOutput {
  std::string out;
  std::string problems;
  bool isBroken = false;
  QxHost::Output output{[this](std::string_view bytes) {
                          out += bytes;
                          return !isBroken;
                        },
                        [this](std::string_view bytes) {
                          problems += bytes;
                          return true;
                        }};

  // Returns what was written to the first stream, including pending lines.
  const std::string& Out() {
    output.Flush();
    return out;
  }
};
