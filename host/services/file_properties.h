// The properties of files that the host provides by name, for columns and for rename templates.
#pragma once

#include <functional>
#include <optional>
#include <variant>
#include <vector>

#include "frame/host/host_properties.h"
#include "host/system/owned_by_module.h"

namespace QxHost {

using Velmora::SDK::u32;
using Velmora::SDK::u64;

// The value of a property: a text, or a date as a FILETIME.
using PropertyValue = std::variant<WString, u64>;

struct FileProperty {
  WString name;  // the name in templates; letter case is ignored
  WString displayName;
  // Returns the value; std::nullopt if the file has none. May be called from any thread.
  std::function<std::optional<PropertyValue>(const WString& fullPath)> value;
};

class PropertyList final : public OwnedByModule<PropertyList, Velmora::SDK::IHostPropertyList> {
 public:
  u32 Count() override { return static_cast<u32>(rows_.size()); }
  // Stores the names of a property, truncated to the size of the buffers.
  bool At(u32 index, WCHAR* internalName, WCHAR* displayName, u32 size) override;

  void Add(const FileProperty& property) { rows_.emplace_back(property.name, property.displayName); }

 private:
  std::vector<std::pair<WString, WString>> rows_;
};

class FileProperties final : public Velmora::SDK::IHostPropertyManager {
 public:
  // Adds the host's own properties: size, dates, attributes.
  FileProperties();

  // Adds a property of an extension. Call it before the first GetValue.
  void Add(FileProperty property) { properties_.push_back(std::move(property)); }

  // Stores a value and returns 1; returns 0 if the file has no such value. Truncates a text to the size of
  // the buffer.
  u32 GetValue(WCHAR* buffer, u32 size, const WCHAR* name, void* valueRecord, const WCHAR* fullPath) override;
  void ListProperties(Velmora::SDK::IHostPropertyList* list, u32 zero) override;

  // Returns whether there is a property of this name, ignoring letter case.
  bool Has(WStringView name) const;

  const std::vector<FileProperty>& All() const { return properties_; }

 private:
  std::vector<FileProperty> properties_;
};

}  // namespace QxHost
