// The controls of one extension: creates them, finds them by their handles and releases them, and gives them
// access to the host.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "host/controls/control.h"
#include "host/controls/picture_request.h"
#include "host/services/settings.h"

namespace QxHost {

// Whether the controls of this build are visible. Those of the native build have the same rows but draw
// nothing.
extern const bool kControlsAreDrawn;

// The event by which a list reports a change of the selection. Its source is the list's number.
constexpr s32 kSelectionChanged = 52300;

class Controls {
 public:
  // Passes an event to the extension.
  using EventSink = std::function<void(std::intptr_t source, s32 code)>;

  // `module` is the extension's module name, under which the widths of columns are stored. `picture` may be
  // null.
  Controls(SettingsFiles& files, const std::string& module, EventSink sink, PictureRequest* picture);

  // Creates a control as IHostApp::CreateControl does.
  HWND Create(u32 kind, HWND parent, u32 style);
  // Takes ownership of a control. Returns its handle, or null on failure.
  HWND Add(std::unique_ptr<Control> control);
  // Returns the interface of a control; null if the handle is not that of a control of this kind. Any thread.
  void* Find(u32 kind, HWND handle);
  // Destroys a control, given by its interface. Returns false if it is not that of a control. Any thread but
  // that of a control.
  bool Release(void* service);

  // The functions below are for the controls.
  u32 NextId();
  void SendEvent(std::intptr_t source, s32 code) { sink_(source, code); }
  // Returns the width that the user has given a column, in pixels at 96 DPI.
  std::optional<u32> StoredWidth(u32 column);
  void StoreWidth(u32 column, u32 width);
  PictureRequest* Picture() const { return picture_; }

 private:
  Settings settings_;
  WString section_;
  EventSink sink_;
  PictureRequest* picture_;
  std::mutex mutex_;  // protects the members below
  u32 lastId_ = 0;
  std::vector<std::unique_ptr<Control>> controls_;
};

// Create the controls of this build. Return null if the system cannot create the window.
std::unique_ptr<Control> MakeContainer(Controls& controls, HWND parent, u32 style);
std::unique_ptr<Control> MakeList(Controls& controls, HWND parent);

}  // namespace QxHost
