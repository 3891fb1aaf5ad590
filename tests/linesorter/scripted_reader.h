// A data source that a test controls: it delivers short portions, or less than announced, or fails in the
// middle.
#pragma once

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "data/data_reader.h"

class ScriptedReader final : public WQDR::DataReader {
 public:
  // Delivers `bytes` in portions of these sizes, the last of which repeats; without sizes, in as few
  // portions as possible.
  explicit ScriptedReader(std::string bytes, std::vector<std::uint32_t> portions = {})
      : bytes_(std::move(bytes)), portions_(std::move(portions)) {
    size = bytes_.size();
  }

  // `fail` is called before the read with this number, counted from 1.
  int failAt = 0;
  std::function<void()> fail;
  // The read after this number of reads throws, which stops a loader in an endless loop.
  std::size_t maxReads = 100000;

  std::vector<std::uint32_t> requests;  // the number of bytes that each read requested

  void Read(void* buffer, std::uint32_t toRead, std::uint32_t* bytesRead) override {
    requests.push_back(toRead);
    if (requests.size() > maxReads) throw std::string("too many reads");
    if (static_cast<int>(requests.size()) == failAt) fail();
    std::size_t count = std::min<std::size_t>(toRead, bytes_.size() - position_);
    if (!portions_.empty())
      count = std::min<std::size_t>(count, portions_[std::min(requests.size(), portions_.size()) - 1]);
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
