// Owners of Windows handles, one closer each.
#pragma once

#include "platform/windows_api.h"

// Owns a handle of CreateFileW and its kin: closed with CloseHandle. INVALID_HANDLE_VALUE and null own
// nothing.
struct KernelHandleTraits {
  static void Close(HANDLE handle) { CloseHandle(handle); }
};

// Owns a search of FindFirstFileExW: closed with FindClose.
struct FindHandleTraits {
  static void Close(HANDLE handle) { FindClose(handle); }
};

template <typename Traits>
class OwnedHandle {
 public:
  OwnedHandle() = default;
  explicit OwnedHandle(HANDLE handle) : handle_(handle) {}
  OwnedHandle(OwnedHandle&& other) noexcept : handle_(other.Detach()) {}
  OwnedHandle& operator=(OwnedHandle&& other) noexcept {
    if (this != &other) Reset(other.Detach());
    return *this;
  }
  OwnedHandle(const OwnedHandle&) = delete;
  OwnedHandle& operator=(const OwnedHandle&) = delete;
  ~OwnedHandle() { Reset(); }

  bool IsOpen() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }

  // Gives the handle up to the caller, who closes it.
  HANDLE Detach() {
    HANDLE handle = handle_;
    handle_ = nullptr;
    return handle;
  }

  // Closes the handle held and takes `handle` in its place.
  void Reset(HANDLE handle = nullptr) {
    if (IsOpen()) Traits::Close(handle_);
    handle_ = handle;
  }

 private:
  HANDLE handle_ = nullptr;
};

using FileHandle = OwnedHandle<KernelHandleTraits>;
using FindHandle = OwnedHandle<FindHandleTraits>;
