// An output whose two streams a test reads.
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

  // What was written to the first stream, the pending lines included.
  const std::string& Out() {
    output.Flush();
    return out;
  }
};
