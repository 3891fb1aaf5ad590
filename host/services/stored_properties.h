// The values of properties that the host stores for one item.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "frame/host/host_property_definer.h"

namespace QxHost {

using Velmora::SDK::u32;

class StoredProperties {
 public:
  // Stores a value, truncated to the size of the record; std::nullopt stores that the property has no value.
  void Store(u32 module, u32 property, const std::optional<WString>& value);
  // Works as IHostFileItem::GetStoredProperty.
  int Get(u32 module, u32 property, void* record) const;
  // Removes the values of this property for all modules.
  void Clear(u32 property);

 private:
  using Values = std::map<std::pair<u32, u32>, std::optional<WString>>;  // by module and property

  std::unique_ptr<Values> values_;  // null for most items, which have none
};

}  // namespace QxHost
