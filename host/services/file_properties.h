// The properties of files that the host knows by name, for columns and for the templates of renames.
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

// A text, or a date as a FILETIME.
using PropertyValue = std::variant<WString, u64>;

struct FileProperty {
  WString name;  // as templates take it; letter case does not matter
  WString displayName;
  // Nothing if the file has no such value. Any thread.
  std::function<std::optional<PropertyValue>(const WString& fullPath)> value;
};

class PropertyList final : public OwnedByModule<PropertyList, Velmora::SDK::IHostPropertyList> {
 public:
  u32 Count() override { return static_cast<u32>(rows_.size()); }
  // Names that are longer than the buffers are cut.
  bool At(u32 index, WCHAR* internalName, WCHAR* displayName, u32 size) override;

  void Add(const FileProperty& property) { rows_.emplace_back(property.name, property.displayName); }

 private:
  std::vector<std::pair<WString, WString>> rows_;
};

class FileProperties final : public Velmora::SDK::IHostPropertyManager {
 public:
  // The host's own: size, dates, attributes.
  FileProperties();

  // Makes a property of an extension known. Before the first value is asked for.
  void Add(FileProperty property) { properties_.push_back(std::move(property)); }

  // 1 if the file has such a value, otherwise 0. A text that is longer than the buffer is cut.
  u32 GetValue(WCHAR* buffer, u32 size, const WCHAR* name, void* valueRecord, const WCHAR* fullPath) override;
  void ListProperties(Velmora::SDK::IHostPropertyList* list, u32 zero) override;

  // Whether there is a property of this name, in any letter case.
  bool Has(WStringView name) const;

  const std::vector<FileProperty>& All() const { return properties_; }

 private:
  std::vector<FileProperty> properties_;
};

}  // namespace QxHost
