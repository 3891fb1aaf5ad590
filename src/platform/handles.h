// RAII owners of Windows handles.
#pragma once

#include "platform/windows_api.h"

// Closes a kernel handle, such as one that CreateFileW, CreateThread or CreateEventW returns, with
// CloseHandle.
struct KernelHandleTraits {
  static void Close(HANDLE handle) { CloseHandle(handle); }
};

// Closes a search handle that FindFirstFileExW returns with FindClose.
struct FindHandleTraits {
  static void Close(HANDLE handle) { FindClose(handle); }
};

// Owns a handle and closes it with Traits::Close. Null and INVALID_HANDLE_VALUE own nothing.
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

  // Releases ownership: returns the handle, which the caller must close.
  HANDLE Detach() {
    HANDLE handle = handle_;
    handle_ = nullptr;
    return handle;
  }

  // Closes the owned handle, if any, and takes ownership of `handle`.
  void Reset(HANDLE handle = nullptr) {
    if (IsOpen()) Traits::Close(handle_);
    handle_ = handle;
  }

 private:
  HANDLE handle_ = nullptr;
};

using FileHandle = OwnedHandle<KernelHandleTraits>;
using FindHandle = OwnedHandle<FindHandleTraits>;
