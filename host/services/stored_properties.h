// The values of properties that the host keeps for one item.
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
  // Nothing is kept as that: the property has no value. A text is kept as far as the record takes it.
  void Store(u32 module, u32 property, const std::optional<WString>& value);
  // As IHostFileItem::GetStoredProperty.
  int Get(u32 module, u32 property, void* record) const;
  // Drops the value of every module.
  void Clear(u32 property);

 private:
  using Values = std::map<std::pair<u32, u32>, std::optional<WString>>;  // by module and property

  std::unique_ptr<Values> values_;  // null for most items, which have none
};

}  // namespace QxHost
