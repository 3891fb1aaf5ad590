#include "host/services/stored_properties.h"

#include <cstring>

namespace QxHost {

using Velmora::SDK::StoredProperty;

void StoredProperties::Store(u32 module, u32 property, const std::optional<WString>& value) {
  values_[{module, property}] = value;
}

int StoredProperties::Get(u32 module, u32 property, void* record) const {
  const auto found = values_.find({module, property});
  if (found == values_.end() || !record) return 0;
  StoredProperty stored = {};
  if (found->second) {
    stored.flags = StoredProperty::kHasValue;
    CopyPadded<WCHAR>(stored.text, StoredProperty::kTextCharacters, *found->second);
  }
  std::memcpy(record, &stored, sizeof stored);
  return 1;
}

void StoredProperties::Clear(u32 property) {
  std::erase_if(values_, [property](const auto& value) { return value.first.second == property; });
}

}  // namespace QxHost
