// Sets a flag of the rule panel while the panel writes to its controls.
#pragma once

#include <utility>

namespace Velmora::SDK {

class PanelWriting {
 public:
  explicit PanelWriting(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  PanelWriting(const PanelWriting&) = delete;
  PanelWriting& operator=(const PanelWriting&) = delete;
  ~PanelWriting() { flag_ = before_; }

 private:
  bool& flag_;
  const bool before_;
};

}  // namespace Velmora::SDK
