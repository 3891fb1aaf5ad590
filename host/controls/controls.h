// The controls of one extension: made, found by their handles, given back; and what they need of the host.
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

// Whether this build's controls can be seen. Those of the native build hold the same rows, and nothing is
// drawn.
extern const bool kControlsAreDrawn;

// The event by which a list says that other rows are selected; its source is the list's number.
constexpr s32 kSelectionChanged = 52300;

class Controls {
 public:
  // Hands an event to the extension.
  using EventSink = std::function<void(std::intptr_t source, s32 code)>;

  // `module` is the extension's; the widths of columns are kept by it. The picture may be null.
  Controls(SettingsFiles& files, const std::string& module, EventSink sink, PictureRequest* picture);

  // As IHostApp::CreateControl.
  HWND Create(u32 kind, HWND parent, u32 style);
  // Keeps a control. Returns its handle, or null on failure.
  HWND Add(std::unique_ptr<Control> control);
  // The interface of a control; null for a handle of another kind. Any thread.
  void* Find(u32 kind, HWND handle);
  // Ends a control by its interface. False for what is no control. Any thread, but for that of a control.
  bool Release(void* service);

  // For the controls.
  u32 NextId();
  void SendEvent(std::intptr_t source, s32 code) { sink_(source, code); }
  // The width that the user has given a column, in pixels of a screen of 96 to an inch.
  std::optional<u32> StoredWidth(u32 column);
  void StoreWidth(u32 column, u32 width);
  PictureRequest* Picture() const { return picture_; }

 private:
  Settings settings_;
  WString section_;
  EventSink sink_;
  PictureRequest* picture_;
  std::mutex mutex_;  // guards what follows
  u32 lastId_ = 0;
  std::vector<std::unique_ptr<Control>> controls_;
};

// The controls of this build. Null if the system makes none.
std::unique_ptr<Control> MakeContainer(Controls& controls, HWND parent, u32 style);
std::unique_ptr<Control> MakeList(Controls& controls, HWND parent);

}  // namespace QxHost
