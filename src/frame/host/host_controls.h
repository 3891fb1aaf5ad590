// The controls that the host lends to MultiRename's window: a container (service 1000), and in it a list
// (service 500) above and a window of the module below.
//
// IHostApp::CreateControl makes a container in a window and returns its handle; IHostContainer::CreateControl
// makes a list in the container. IHostApp::GetService with the kind and the handle gives the object, which
// ReleaseService takes back. The control's window stays until its parent is destroyed, and does nothing from
// then on.
//
// A control belongs to the thread that made it, and so do all calls here but those that say so.
#pragma once

#include "frame/host/host_list.h"

struct tagMSG;  // the system's record of a message, MSG

namespace Velmora::SDK {

// A window of the module that a container docks.
class IMultiWindow {
 public:
  virtual HWND GetHandle() = 0;
  // Shows a message to the window before it is translated. True if it is dealt with.
  virtual bool FilterMessage(tagMSG* message) = 0;
  virtual void DestroyHandle() = 0;

 protected:
  ~IMultiWindow() = default;
};

class IHostContainer {
 public:
  // Makes a control of a kind that goes into a container (500), of at least this width in pixels. Null if it
  // cannot be had. It takes all the room that the docked window leaves.
  virtual HWND CreateControl(u32 kind, u32 width) = 0;
  // Gives the window the lower end of the container, over its full width and this high in pixels, and shows
  // it. One window at a time; null gives the room back.
  virtual void Dock(IMultiWindow* window, u32 height) = 0;

 protected:
  ~IHostContainer() = default;
};

// Events of a list.
enum ListEvent : u32 {
  kListContextMenu = 1,  // the information is a ListContextMenu
};

struct ListContextMenu {
  HWND window;  // the list
  s32 x;        // of the screen
  s32 y;
};

// Implemented by the module. The list releases it when another one takes its place, and at its own end.
class IEventCallback {
 public:
  virtual void Destroy() = 0;  // without freeing its memory
  virtual void Release() = 0;
  virtual s32 OnEvent(u32 event, void* information) = 0;

 protected:
  ~IEventCallback() = default;
};

// What service 500 gives: the list and what it is set up with. SetRowProvider, AddRow and Clear of a list may
// be called on any thread; once Clear returns, no row of before is asked for any more.
class IHostListControl : public IHostList {
 public:
  // The number names the column to the row provider and in the host's settings, where the user's width is
  // kept. The width is in pixels of a screen of 96 to an inch.
  virtual void AddColumn(const WCHAR* heading, u32 width, u32 number) = 0;
  // In pixels. Rows are never lower than their text and their images.
  virtual void SetRowHeight(u32 height) = 0;
  virtual void SetEventCallback(u32 event, IEventCallback* callback) = 0;
  // The list's own keys: a message of the thread's loop before it is translated. True if it is dealt with.
  virtual bool FilterMessage(tagMSG* message) = 0;

 protected:
  ~IHostListControl() = default;
};

}  // namespace Velmora::SDK
