// Columns of the host's file lists, and the values that it keeps of them.
#pragma once

#include <cstddef>

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// What the host is given for one property. The host copies what it keeps.
struct PropertyDefinition {
  u32 number;         // of the property, from 1
  u32 width;          // of the column, in the host's units
  const WCHAR* name;  // by which rules and columns name it
  TextId displayText;
  TextId groupText;
  u32 typeFlags;  // opaque, as the alignment
  u32 alignment;
};

// Service 3100.
class IHostPropertyDefiner {
 public:
  virtual void SetProvider(const char* id) = 0;  // 32 hexadecimal digits; comes first
  virtual void Define(const PropertyDefinition* definition) = 0;

 protected:
  ~IHostPropertyDefiner() = default;
};

// What IHostFileItem::GetStoredProperty fills.
struct StoredProperty {
  static constexpr BYTE kHasValue = 0x80;
  static constexpr std::size_t kTextCharacters = 527;

  BYTE flags;
  BYTE reserved;
  WCHAR text[kTextCharacters];  // without a zero when it is full
};
static_assert(sizeof(StoredProperty) == 1056 && offsetof(StoredProperty, text) == 2);

}  // namespace Velmora::SDK
