// The window of MultiRename as its extension object and its thread use it: the frame with the host's list and
// the rule panel. The windows build draws it (rename_window_windows.cpp); the native build has the same forms
// with views that only store their contents (rename_window_posix.cpp).
//
// Lifetime, on the window's thread: OpenRenameWindow, Show, the message loop; then WM_CLOSE, which may come
// from any thread, to the frame. The frame closes at once, or after a form that runs a dialog, box or menu
// has returned: it removes its filters, closes both forms, returns the list and the container to the host,
// destroys the panel, stores its placement, and finally calls OnWindowClosed of its owner. The thread deletes
// the object after the loop.
#pragma once

#include <memory>

#include "multirename/form/frame_form.h"
#include "multirename/rules/rename_context.h"
#include "multirename/window/message_loop.h"

namespace Velmora::SDK {

// Implemented by the extension object.
class RenameWindowOwner {
 public:
  virtual RenameContext& Context() = 0;
  // The frame was destroyed. Called on the window's thread.
  virtual void OnWindowClosed() = 0;

 protected:
  ~RenameWindowOwner() = default;
};

class RenameWindow {
 public:
  // Closes the frame, in the same order, if it still exists: because the loop has ended without closing it,
  // or the window could not be shown.
  virtual ~RenameWindow() = default;

  // Null after it was destroyed. WM_CLOSE may be posted to it from any thread.
  virtual HWND Frame() const = 0;
  // The target of MRM_NEW_SELECTION, which may be posted from any thread.
  virtual HWND Panel() const = 0;

  // Positions and shows the frame, and stores the list's image set in the context.
  virtual void Show() = 0;

  // Returns the form, which fills the list and handles the host's events.
  virtual FrameForm& Form() = 0;
};

// Creates the window, not visible yet, and adds its filters to the loop. Both arguments must outlive it.
// Returns null, after removing everything, if the host provides no container or no list, or if the frame
// cannot be created.
std::unique_ptr<RenameWindow> OpenRenameWindow(RenameWindowOwner& owner, MessageLoop& loop);

// The settings key of the frame's placement, a WINDOWPLACEMENT of 44 bytes. The spelling of the section is
// part of the format (C-680).
inline constexpr WCHAR kPlacementSection[] = W("QXMultieRename");
inline constexpr WCHAR kPlacementKey[] = W("WinPos");

}  // namespace Velmora::SDK
