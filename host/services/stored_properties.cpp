#include "host/services/stored_properties.h"

#include <cstring>

namespace QxHost {

using Velmora::SDK::StoredProperty;

void StoredProperties::Store(u32 module, u32 property, const std::optional<WString>& value) {
  if (!values_) values_ = std::make_unique<Values>();
  (*values_)[{module, property}] = value;
}

int StoredProperties::Get(u32 module, u32 property, void* record) const {
  if (!values_ || !record) return 0;
  const auto found = values_->find({module, property});
  if (found == values_->end()) return 0;
  StoredProperty stored = {};
  if (found->second) {
    stored.flags = StoredProperty::kHasValue;
    CopyPadded<WCHAR>(stored.text, StoredProperty::kTextCharacters, *found->second);
  }
  std::memcpy(record, &stored, sizeof stored);
  return 1;
}

void StoredProperties::Clear(u32 property) {
  if (!values_) return;
  std::erase_if(*values_, [property](const auto& value) { return value.first.second == property; });
}

}  // namespace QxHost
