// The host's controls that MultiRename's window uses: a container (service 1000) that holds a list (service
// 500) above a window of the module.
//
// IHostApp::CreateControl creates a container in a window and returns its handle;
// IHostContainer::CreateControl creates a list in the container. IHostApp::GetService with the kind and the
// handle returns the object of the control, and ReleaseService ends its use. After that the control's window
// does nothing; it exists until its parent is destroyed.
//
// A control belongs to the thread that created it. Unless a function says otherwise, call it on that thread
// only.
#pragma once

#include "frame/host/host_list.h"

struct tagMSG;  // MSG of the Windows headers

namespace Velmora::SDK {

// A window of the module that can be docked in a container.
class IMultiWindow {
 public:
  virtual HWND GetHandle() = 0;
  // Offers a message to the window before it is translated. Returns true if the window has handled it.
  virtual bool FilterMessage(tagMSG* message) = 0;
  virtual void DestroyHandle() = 0;

 protected:
  ~IMultiWindow() = default;
};

class IHostContainer {
 public:
  // Creates a control in the container and returns its handle, or null. `kind` is its service number (500);
  // `width` is its least width in pixels. The control fills the space that the docked window leaves.
  virtual HWND CreateControl(u32 kind, u32 width) = 0;
  // Docks and shows the window at the bottom of the container, over the full width and with the given height
  // in pixels. Only one window is docked at a time; null removes it.
  virtual void Dock(IMultiWindow* window, u32 height) = 0;

 protected:
  ~IHostContainer() = default;
};

// Events of a list.
enum ListEvent : u32 {
  kListContextMenu = 1,  // `information` points to a ListContextMenu
};

struct ListContextMenu {
  HWND window;  // the list
  s32 x;        // screen coordinates
  s32 y;
};

// Implemented by the module. The list calls Release when another callback replaces this one, and when the
// list is destroyed.
class IEventCallback {
 public:
  virtual void Destroy() = 0;  // destroys the object without freeing its memory
  virtual void Release() = 0;
  virtual s32 OnEvent(u32 event, void* information) = 0;

 protected:
  ~IEventCallback() = default;
};

// The object of service 500: the list and the operations that set it up. SetRowProvider, AddRow and Clear may
// be called on any thread; after Clear has returned, the host no longer queries the rows that it removed.
class IHostListControl : public IHostList {
 public:
  // Adds a column. `number` identifies it to the row provider and in the host's settings, which keep the
  // width that the user chooses. `width` is in pixels at 96 DPI.
  virtual void AddColumn(const WCHAR* heading, u32 width, u32 number) = 0;
  // Sets the height of rows in pixels. Rows are always high enough for their text and images.
  virtual void SetRowHeight(u32 height) = 0;
  virtual void SetEventCallback(u32 event, IEventCallback* callback) = 0;
  // Offers a message to the list before it is translated, so that the list can handle its keys. Returns true
  // if it has handled the message.
  virtual bool FilterMessage(tagMSG* message) = 0;

 protected:
  ~IHostListControl() = default;
};

}  // namespace Velmora::SDK
