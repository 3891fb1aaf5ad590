// The controls of the native build, which have a state but no windows.

#include "host/controls/container_control.h"
#include "host/controls/vector_list.h"

namespace QxHost {
namespace {

class UndrawnContainer final : public ContainerControl {
 public:
  using ContainerControl::ContainerControl;

  HWND Handle() const override { return reinterpret_cast<HWND>(const_cast<UndrawnContainer*>(this)); }

 private:
  void OnLayout() override {}
};

}  // namespace

const bool kControlsAreDrawn = false;

std::unique_ptr<Control> MakeContainer(Controls& controls, HWND, u32) {
  return std::make_unique<UndrawnContainer>(controls);
}

std::unique_ptr<Control> MakeList(Controls& controls, HWND) { return std::make_unique<VectorList>(controls); }

}  // namespace QxHost
