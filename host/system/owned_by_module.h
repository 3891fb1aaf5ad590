// Objects that the host creates for the module, which releases them with Release.
#pragma once

#include <memory>
#include <utility>

namespace QxHost {

// The base class of such objects, which implements Release of the interface. A derived class passes itself as
// T.
template <typename T, typename Interface>
class OwnedByModule : public Interface {
 public:
  OwnedByModule(const OwnedByModule&) = delete;
  OwnedByModule& operator=(const OwnedByModule&) = delete;

  // Creates an object that lives until the module releases it.
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
