// Keys that are held down while others are pressed.
#pragma once

#include "platform/windows_api.h"

// Holds a key down for this thread during its lifetime.
class HeldKey {
 public:
  explicit HeldKey(int key) : key_(key) { Set(0x80); }
  HeldKey(const HeldKey&) = delete;
  HeldKey& operator=(const HeldKey&) = delete;
  ~HeldKey() { Set(0); }

 private:
  void Set(BYTE state) const {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[key_] = state;
    SetKeyboardState(keys);
  }

  int key_;
};
