// Defines columns of the host's file lists, and describes the values that the host stores for them.
#pragma once

#include <cstddef>

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// The definition of one property. The host copies what it needs, so the record may be temporary.
struct PropertyDefinition {
  u32 number;         // the property's number, from 1
  u32 width;          // the column's width, in the host's units
  const WCHAR* name;  // the internal name, for rules and columns
  TextId displayText;
  TextId groupText;
  u32 typeFlags;  // defined by the host, like the alignment
  u32 alignment;
};

// Service 3100.
class IHostPropertyDefiner {
 public:
  virtual void SetProvider(const char* id) = 0;  // 32 hexadecimal digits; called before Define
  virtual void Define(const PropertyDefinition* definition) = 0;

 protected:
  ~IHostPropertyDefiner() = default;
};

// The record that IHostFileItem::GetStoredProperty fills.
struct StoredProperty {
  static constexpr BYTE kHasValue = 0x80;
  static constexpr std::size_t kTextCharacters = 527;

  BYTE flags;
  BYTE reserved;
  WCHAR text[kTextCharacters];  // not terminated if the text fills it
};
static_assert(sizeof(StoredProperty) == 1056 && offsetof(StoredProperty, text) == 2);

}  // namespace Velmora::SDK
