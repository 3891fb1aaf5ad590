// Objects that the host makes for the module and that the module gives back through Release.
#pragma once

#include <memory>
#include <utility>

namespace QxHost {

// Base of such an object: Release of the interface is this one's. A class names itself as T.
template <typename T, typename Interface>
class OwnedByModule : public Interface {
 public:
  OwnedByModule(const OwnedByModule&) = delete;
  OwnedByModule& operator=(const OwnedByModule&) = delete;

  // A new object that lives until the module releases it.
  template <typename... Arguments>
  static T* Lend(Arguments&&... arguments) {
    return std::make_unique<T>(std::forward<Arguments>(arguments)...).release();
  }

  void Release() final { const std::unique_ptr<T> last(static_cast<T*>(this)); }

 protected:
  OwnedByModule() = default;
  ~OwnedByModule() = default;
};

}  // namespace QxHost
