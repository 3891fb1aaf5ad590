#include "window/hosted_list.h"

#include <commctrl.h>

using namespace Velmora::SDK;

HostedList::HostedList() { MakeControls(); }

HostedList::~HostedList() { ReleaseControls(); }

void HostedList::MakeControls() {
  containerWindow_ = controls_.Create(kServiceContainerControl, frame_.Get(), 0x56000000);
  container_ = static_cast<IHostContainer*>(controls_.Find(kServiceContainerControl, containerWindow_));
  if (!container_) throw std::runtime_error("no container");
  window_ = container_->CreateControl(kServiceListControl, 200);
  list_ = static_cast<IHostListControl*>(controls_.Find(kServiceListControl, window_));
  if (!list_) throw std::runtime_error("no list");
  list_->AddColumn(W("Old name"), 200, 2);
  list_->AddColumn(W("New name"), 200, 3);
  list_->SetRowHeight(16);
  list_->SetRowProvider(&rows_);
}

void HostedList::ReleaseControls() {
  controls_.Release(std::exchange(list_, nullptr));
  controls_.Release(std::exchange(container_, nullptr));
}

void HostedList::AddRows(const std::vector<WString>& names) {
  for (const WString& name : names) list_->AddRow(list_->CreateRow(rows_.Add(name)));
  list_->Refresh();
}

std::vector<WString> HostedList::Names() {
  std::vector<void*> items(list_->GetRows(nullptr, 0));
  list_->GetRows(items.data(), static_cast<u32>(items.size()));
  std::vector<WString> names;
  for (void* const item : items) names.push_back(*static_cast<const WString*>(item));
  return names;
}

std::vector<int> HostedList::SelectedPlaces() const {
  std::vector<int> places;
  const auto count = static_cast<int>(Send(LVM_GETITEMCOUNT));
  for (int place = 0; place < count; ++place) {
    if (Send(LVM_GETITEMSTATE, static_cast<WPARAM>(place), LVIS_SELECTED) != 0) places.push_back(place);
  }
  return places;
}

int HostedList::FocusedPlace() const {
  return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
}

void HostedList::Select(int place, bool isSelected) const {
  LVITEMW item = {};
  item.state = isSelected ? LVIS_SELECTED : 0;
  item.stateMask = LVIS_SELECTED;
  Send(LVM_SETITEMSTATE, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(&item));
}

void HostedList::Focus(int place) const {
  LVITEMW item = {};
  item.state = LVIS_FOCUSED;
  item.stateMask = LVIS_FOCUSED;
  Send(LVM_SETITEMSTATE, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(&item));
}

RECT HostedList::RowArea(int place) const {
  RECT area = {LVIR_BOUNDS, 0, 0, 0};
  Send(LVM_GETITEMRECT, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(&area));
  return area;
}

std::pair<u32, u32> HostedList::Counts() {
  std::pair<u32, u32> counts;
  list_->GetCounts(&counts.first, &counts.second);
  return counts;
}

void HostedList::TakeMessages() {
  MSG message = {};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void HostedList::Paint() const {
  RedrawWindow(window_, nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW | RDW_ERASENOW);
}
