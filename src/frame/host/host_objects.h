// RAII owners of host objects: each releases its object exactly once, with the operation that the host
// requires for it. An owner holds null if the host refused to return an object.
#pragma once

#include <utility>

#include "frame/host/host_app.h"

namespace Velmora::SDK {

// Owns an object that has a Release operation, such as a list, a document or a packet.
template <typename T>
class HostObject {
 public:
  explicit HostObject(T* object) : object_(object) {}
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;
  ~HostObject() { Release(); }

  explicit operator bool() const { return object_ != nullptr; }
  T* operator->() const { return object_; }
  T* Get() const { return object_; }

  // Releases the object before the end of the scope.
  void Release() {
    if (object_) object_->Release();
    object_ = nullptr;
  }

  // Returns the object and gives up ownership: the caller must release it.
  T* Detach() { return std::exchange(object_, nullptr); }

 private:
  T* object_;
};

// Owns the use of a service from GetService to ReleaseService.
template <typename T>
class HostService {
 public:
  // `releaseNumber` is the second argument of ReleaseService: 0 or the service's number.
  HostService(IHostApp& host, ServiceNumber number, u32 releaseNumber = 0)
      : host_(host), service_(static_cast<T*>(host.GetService(number, 0))), releaseNumber_(releaseNumber) {}
  HostService(const HostService&) = delete;
  HostService& operator=(const HostService&) = delete;
  ~HostService() {
    if (service_) host_.ReleaseService(service_, releaseNumber_);
  }

  explicit operator bool() const { return service_ != nullptr; }
  T* operator->() const { return service_; }
  T* Get() const { return service_; }

 private:
  IHostApp& host_;
  T* service_;
  u32 releaseNumber_;
};

}  // namespace Velmora::SDK
