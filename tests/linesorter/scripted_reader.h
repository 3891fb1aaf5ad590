// A source of bytes that delivers as a test tells it: in short portions, less than it promised, or failing in
// the middle.
#pragma once

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "data/data_reader.h"

class ScriptedReader final : public WQDR::DataReader {
 public:
  // Delivers `bytes` in portions of these sizes, the last of which repeats; without any, in as few as it can.
  explicit ScriptedReader(std::string bytes, std::vector<std::uint32_t> portions = {})
      : bytes_(std::move(bytes)), portions_(std::move(portions)) {
    size = bytes_.size();
  }

  // Before the read of this number, from 1, is served.
  int failAt = 0;
  std::function<void()> fail;
  // Reads are counted up to here, and then one throws: a loader that goes round without an end stops.
  std::size_t mostReads = 100000;

  std::vector<std::uint32_t> asked;  // bytes that each read asked for

  void Read(void* buffer, std::uint32_t toRead, std::uint32_t* bytesRead) override {
    asked.push_back(toRead);
    if (asked.size() > mostReads) throw std::string("too many reads");
    if (static_cast<int>(asked.size()) == failAt) fail();
    std::size_t count = std::min<std::size_t>(toRead, bytes_.size() - position_);
    if (!portions_.empty())
      count = std::min<std::size_t>(count, portions_[std::min(asked.size(), portions_.size()) - 1]);
    if (count > 0) std::memcpy(buffer, bytes_.data() + position_, count);
    position_ += count;
    *bytesRead = static_cast<std::uint32_t>(count);
  }
  void Close() override {}

 private:
  std::string bytes_;
  std::vector<std::uint32_t> portions_;
  std::size_t position_ = 0;
};
