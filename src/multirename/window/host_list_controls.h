// The host's container and list in the frame, from their creation to their return. Used on the window's
// thread.
#pragma once

#include <functional>

#include "frame/host/host_app.h"
#include "frame/host/host_controls.h"
#include "multirename/window/message_loop.h"

namespace Velmora::SDK {

// Passes the context menu of a list on. Owned and released by the list.
class CListCtrlCallback final : public IEventCallback {
 public:
  using Handler = std::function<void(const ListContextMenu& menu)>;

  explicit CListCtrlCallback(Handler handler) : handler_(std::move(handler)) {}
  CListCtrlCallback(const CListCtrlCallback&) = delete;
  CListCtrlCallback& operator=(const CListCtrlCallback&) = delete;

  void Destroy() override { handler_ = nullptr; }
  void Release() override { delete this; }
  // Returns 1 for a context menu, 0 for any other event.
  s32 OnEvent(u32 event, void* information) override;

 private:
  ~CListCtrlCallback() = default;

  Handler handler_;
};

// Passes each message to the list first, for its keys.
class ControlWrapper final : public MessageFilter {
 public:
  // The list must stay valid while this filter is in the loop.
  explicit ControlWrapper(IHostListControl& list) : list_(list) {}
  bool FilterMessage(MSG& message) override { return list_.FilterMessage(&message); }

 private:
  IHostListControl& list_;
};

class HostListControls {
 public:
  explicit HostListControls(IHostApp& host) : host_(host) {}
  HostListControls(const HostListControls&) = delete;
  HostListControls& operator=(const HostListControls&) = delete;
  ~HostListControls() { Close(); }

  // Creates the container in the frame. Returns false if the host provides none.
  bool OpenContainer(HWND frame);

  // Creates the list in the container, with its columns and the height of its rows, in pixels of the frame's
  // screen. Returns false if the host provides none.
  bool OpenList(u32 width, u32 rowHeight, CListCtrlCallback::Handler onContextMenu);

  // Returns both to the host and undocks what is docked.
  void Close() {
    CloseWith([](auto call) { call(); });
  }
  // Does the same, but makes each call of the host with `run(call)`, so that an exception of one call does
  // not prevent the others.
  template <typename Run>
  void CloseWith(Run run) {
    run([this] { CloseList(); });
    run([this] { Undock(); });
    run([this] { CloseContainer(); });
  }

  HWND ContainerWindow() const { return containerWindow_; }
  HWND ListWindow() const { return listWindow_; }
  IHostContainer* Container() const { return container_; }
  IHostListControl* List() const { return list_; }

 private:
  void CloseList();
  void Undock();
  void CloseContainer();

  IHostApp& host_;
  HWND containerWindow_ = nullptr;
  HWND listWindow_ = nullptr;
  IHostContainer* container_ = nullptr;
  IHostListControl* list_ = nullptr;
};

}  // namespace Velmora::SDK
