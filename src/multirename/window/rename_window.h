// The window of MultiRename as its extension object and its thread see it: the frame with the host's list and
// the rule panel. The windows build draws it (rename_window_windows.cpp); the native build has the same forms
// over views that keep what they are given (rename_window_posix.cpp).
//
// Life, all on the window's thread: OpenRenameWindow, Show, the message loop; then WM_CLOSE to the frame,
// from whomever. The frame closes at once, or once the form that runs a dialog, box or menu has returned: it
// removes its filters, closes both forms, gives the list and the container back to the host, destroys the
// panel, stores its placement, and calls OnWindowClosed of its owner as the last thing. The object itself is
// deleted by its thread after the loop.
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
  // The frame is destroyed. On the window's thread.
  virtual void OnWindowClosed() = 0;

 protected:
  ~RenameWindowOwner() = default;
};

class RenameWindow {
 public:
  // Closes a frame that is still there, in the same order: the loop has ended without it, or the window could
  // not be shown.
  virtual ~RenameWindow() = default;

  // Null once it is destroyed. WM_CLOSE may be posted to it from any thread.
  virtual HWND Frame() const = 0;
  // Gets MRM_NEW_SELECTION, posted, from any thread.
  virtual HWND Panel() const = 0;

  // Gives the frame its place and size and shows it; the context gets the list's image set.
  virtual void Show() = 0;

  // Fills the list, and gets the host's events.
  virtual FrameForm& Form() = 0;
};

// Makes the window, not yet visible, with its filters in the loop; both arguments outlive it. Null, with
// nothing of it left, if the host has no container or no list for it or the frame cannot be made.
std::unique_ptr<RenameWindow> OpenRenameWindow(RenameWindowOwner& owner, MessageLoop& loop);

// The settings' key of the frame's place: a WINDOWPLACEMENT of 44 bytes. The section is spelled so (C-680).
inline constexpr WCHAR kPlacementSection[] = W("QXMultieRename");
inline constexpr WCHAR kPlacementKey[] = W("WinPos");

}  // namespace Velmora::SDK
