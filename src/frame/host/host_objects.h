// Owners of what the host lends: each gives its object back exactly once, by the operation that the host
// wants for it, on every way out of a command. An owner may hold null where the host refused.
#pragma once

#include <utility>

#include "frame/host/host_app.h"

namespace Velmora::SDK {

// Owns an object with an operation Release: lists, documents, packets.
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

  // Gives the object back now.
  void Release() {
    if (object_) object_->Release();
    object_ = nullptr;
  }

  // Leaves the object to whoever gives it back from now on.
  T* Detach() { return std::exchange(object_, nullptr); }

 private:
  T* object_;
};

// Owns the use of a service from GetService to ReleaseService.
template <typename T>
class HostService {
 public:
  // `releaseNumber` is what ReleaseService is given beside the object: 0 or the service's number.
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
