// The host's container and list in the frame, from their making to their return. On the window's thread.
#pragma once

#include <functional>

#include "frame/host/host_app.h"
#include "frame/host/host_controls.h"
#include "multirename/window/message_loop.h"

namespace Velmora::SDK {

// Hands the context menu of a list on. The list, which owns it, releases it.
class CListCtrlCallback final : public IEventCallback {
 public:
  using Handler = std::function<void(const ListContextMenu& menu)>;

  explicit CListCtrlCallback(Handler handler) : handler_(std::move(handler)) {}
  CListCtrlCallback(const CListCtrlCallback&) = delete;
  CListCtrlCallback& operator=(const CListCtrlCallback&) = delete;

  void Destroy() override { handler_ = nullptr; }
  void Release() override { delete this; }
  // 1 for a context menu, 0 for all else.
  s32 OnEvent(u32 event, void* information) override;

 private:
  ~CListCtrlCallback() = default;

  Handler handler_;
};

// Shows each message to the list, for its own keys.
class ControlWrapper final : public MessageFilter {
 public:
  // The list, which outlives the time that this is in the loop.
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

  // Makes the container in the frame. False if the host has none.
  bool OpenContainer(HWND frame);

  // Makes the list in the container with its columns and its rows' height, which are in pixels of the frame's
  // screen. False if the host has none.
  bool OpenList(u32 width, u32 rowHeight, CListCtrlCallback::Handler onContextMenu);

  // Gives both back; what is docked is not any more.
  void Close() {
    CloseBy([](auto call) { call(); });
  }
  // The same, by `run(call)` for each call of the host, so that one that throws keeps none of the others from
  // being made.
  template <typename Run>
  void CloseBy(Run run) {
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
