#include "multirename/window/host_list_controls.h"

#include <utility>

#include "frame/services/language_text.h"
#include "multirename/form/frame_form.h"

namespace Velmora::SDK {

namespace {

template <typename Interface>
Interface* ServiceOfControl(IHostApp& host, u32 kind, HWND control) {
  if (!control) return nullptr;
  return static_cast<Interface*>(host.GetService(kind, reinterpret_cast<std::uintptr_t>(control)));
}

template <typename Interface>
void ReleaseHostService(IHostApp& host, Interface*& service) {
  if (Interface* const given = std::exchange(service, nullptr)) host.ReleaseService(given, 0);
}

}  // namespace

s32 CListCtrlCallback::OnEvent(u32 event, void* information) {
  if (event != kListContextMenu || !information || !handler_) return 0;
  handler_(*static_cast<const ListContextMenu*>(information));
  return 1;
}

bool HostListControls::OpenContainer(HWND frame) {
  containerWindow_ = host_.CreateControl(kServiceContainerControl, frame, FrameLayout::kContainerStyle);
  container_ = ServiceOfControl<IHostContainer>(host_, kServiceContainerControl, containerWindow_);
  return container_ != nullptr;
}

bool HostListControls::OpenList(u32 width, u32 rowHeight, CListCtrlCallback::Handler onContextMenu) {
  listWindow_ = container_ ? container_->CreateControl(kServiceListControl, width) : nullptr;
  list_ = ServiceOfControl<IHostListControl>(host_, kServiceListControl, listWindow_);
  if (!list_) return false;
  for (const FrameColumn& column : kFrameColumns) {
    list_->AddColumn(LanguageText(host_, column.heading).c_str(), FrameLayout::kColumnWidth, column.number);
  }
  list_->SetRowHeight(rowHeight);
  list_->SetEventCallback(kListContextMenu, new CListCtrlCallback(std::move(onContextMenu)));
  return true;
}

void HostListControls::CloseList() {
  listWindow_ = nullptr;
  ReleaseHostService(host_, list_);
}

void HostListControls::Undock() {
  if (container_) container_->Dock(nullptr, 0);
}

void HostListControls::CloseContainer() {
  containerWindow_ = nullptr;
  ReleaseHostService(host_, container_);
}

}  // namespace Velmora::SDK
