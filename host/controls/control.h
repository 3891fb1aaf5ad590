// A control that the host has made for an extension; see frame/host/host_controls.h.
#pragma once

#include "frame/host/host_controls.h"

namespace QxHost {

using Velmora::SDK::s32;
using Velmora::SDK::s64;
using Velmora::SDK::u32;

class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  // Leaves its window to the window's parent.
  virtual ~Control() = default;

  // Its service number.
  virtual u32 Kind() const = 0;
  virtual HWND Handle() const = 0;
  // The interface that GetService gives.
  virtual void* Service() = 0;
};

}  // namespace QxHost
