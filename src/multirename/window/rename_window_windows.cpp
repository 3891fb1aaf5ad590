#include "multirename/window/rename_window.h"

namespace Velmora::SDK {

// The frame and the panel are still to come: no window can be had.
std::unique_ptr<RenameWindow> OpenRenameWindow(RenameWindowOwner&, MessageLoop&) { return nullptr; }

}  // namespace Velmora::SDK
