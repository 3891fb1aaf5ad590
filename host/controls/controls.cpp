#include "host/controls/controls.h"

#include <algorithm>

namespace QxHost {
namespace {

// The limits of column widths. Other values in the settings are errors and ignored.
constexpr u32 kMinStoredWidth = 20;
constexpr u32 kMaxStoredWidth = 5000;

WString WidthKey(u32 column) { return W("column ") + FromUtf8(std::to_string(column)); }

}  // namespace

Controls::Controls(SettingsFiles& files, const std::string& module, EventSink sink, PictureRequest* picture)
    : settings_(files, "qxhost"),
      section_(FromUtf8(module) + W(" list")),
      sink_(std::move(sink)),
      picture_(picture) {}

HWND Controls::Create(u32 kind, HWND parent, u32 style) {
  return kind == Velmora::SDK::kServiceContainerControl ? Add(MakeContainer(*this, parent, style)) : nullptr;
}

HWND Controls::Add(std::unique_ptr<Control> control) {
  if (!control) return nullptr;
  const HWND handle = control->Handle();
  const std::lock_guard lock(mutex_);
  controls_.push_back(std::move(control));
  return handle;
}

void* Controls::Find(u32 kind, HWND handle) {
  const std::lock_guard lock(mutex_);
  for (const std::unique_ptr<Control>& control : controls_) {
    if (control->Kind() == kind && control->Handle() == handle && handle) return control->Service();
  }
  return nullptr;
}

bool Controls::Release(void* service) {
  std::unique_ptr<Control> released;  // destroyed after the lock is released, because that calls the module
  const std::lock_guard lock(mutex_);
  const auto found = std::ranges::find_if(controls_, [service](const std::unique_ptr<Control>& control) {
    return control->Service() == service;
  });
  if (found == controls_.end()) return false;
  released = std::move(*found);
  controls_.erase(found);
  return true;
}

u32 Controls::NextId() {
  const std::lock_guard lock(mutex_);
  return ++lastId_;
}

std::optional<u32> Controls::StoredWidth(u32 column) {
  u32 width = 0;
  if (!settings_.GetInt(1, section_.c_str(), WidthKey(column).c_str(), &width)) return std::nullopt;
  if (width < kMinStoredWidth || width > kMaxStoredWidth) return std::nullopt;
  return width;
}

void Controls::StoreWidth(u32 column, u32 width) {
  settings_.SetInt(1, section_.c_str(), WidthKey(column).c_str(), width);
}

}  // namespace QxHost
