#include "security/ntfs_prop.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <optional>
#include <utility>

#include "frame/host/host_objects.h"
#include "frame/services/extension_ids.h"
#include "security/alternate_streams.h"
#include "security/item_path.h"
#include "security/ntfs_tools.h"
#include "security/server_cache.h"

namespace Velmora::SDK {

namespace {

constexpr TextId kPropertyGroupText = 0x00640070;

// clang-format off
constexpr PropertyDefinition kProperties[] = {
  {kPropertyOwner,       110, W("owner"),    0x006F0070, kPropertyGroupText, 0x30100, 0},
  {kPropertyAccess,      100, W("access"),   0x00700070, kPropertyGroupText, 0x30100, 0},
  {kPropertyStreamCount,  60, W("ADScount"), 0x00710070, kPropertyGroupText, 0x70200, 2},
  {kPropertyStreamSize,   60, W("ADSsize"),  0x00720070, kPropertyGroupText, 0x70200, 2},
};
// clang-format on

// The host's number of this extension, under which it stores values.
std::atomic<u32> propertyModule = 0;

// Copies the text to a cell of `textSize` characters: truncates it, and terminates it if there is room.
void FillCell(WCHAR* text, u16 textSize, WStringView value) {
  const std::size_t count = value.copy(text, textSize);
  if (count < textSize) text[count] = WCHAR();
}

bool FillCell(WCHAR* text, u16 textSize, u64 number) {
  std::array<char, 20> digits;
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  FillCell(text, textSize, WString(std::as_const(digits).data(), end));
  return true;
}

// Fills the cell with the value that the host has stored. Returns false if the host has stored none;
// otherwise stores in `hasValue` whether the record has a value.
bool FillFromStored(IHostFileItem& item, WCHAR* text, u16 textSize, u16 propertyNumber, bool& hasValue) {
  StoredProperty stored = {};
  if (item.GetStoredProperty(propertyModule, propertyNumber, &stored) == 0) return false;
  hasValue = (stored.flags & StoredProperty::kHasValue) != 0;
  const WCHAR* const end = std::find(std::begin(stored.text), std::end(stored.text), WCHAR());
  if (hasValue)
    FillCell(text, textSize, WStringView(stored.text, static_cast<std::size_t>(end - stored.text)));
  return true;
}

bool FillOwner(IHostFileItem& item, WCHAR* text, u16 textSize) {
  const bool isRemote = item.GetRemoteLevel() > 0;
  const std::optional<WString> path = SecurityPathOf(item);
  WString owner;
  if (!path || !NTFSTools().GetOwnerName(path->c_str(), owner, isRemote)) return false;
  FillCell(text, textSize, owner);
  return true;
}

bool FillAccess(IHostFileItem& item, WCHAR* text, u16 textSize) {
  const std::optional<WString> path = SecurityPathOf(item);
  if (!path) return false;
  FillCell(text, textSize, NTFSTools().GetAccessString(*path));
  return true;
}

bool FillStreamCount(IHostFileItem& item, WCHAR* text, u16 textSize) {
  const std::optional<WString> path = SecurityPathOf(item);
  if (!path) return false;
  ResolveStreamQuery();
  return FillCell(text, textSize, u64{NTFSTools().GetAlternateStreamCount(path->c_str())});
}

bool FillStreamSize(IHostFileItem& item, WCHAR* text, u16 textSize) {
  const std::optional<WString> path = SecurityPathOf(item);
  if (!path) return false;
  ResolveStreamQuery();
  const u64 size = NTFSTools().GetAlternateStreamSize(path->c_str());
  // Returns no value instead of 0, so the cell is empty (C-502).
  return size != 0 && FillCell(text, textSize, size);
}

struct CellRow {
  u16 property;
  bool (*fill)(IHostFileItem& item, WCHAR* text, u16 textSize);
};

constexpr CellRow kCells[] = {
    {kPropertyOwner, FillOwner},
    {kPropertyAccess, FillAccess},
    {kPropertyStreamCount, FillStreamCount},
    {kPropertyStreamSize, FillStreamSize},
};

}  // namespace

const char* NTFSProp::GetProviderId() { return ntfsPropertiesId; }

s32 NTFSProp::RegisterProperties(IHostApp* host) {
  if (!host) return 0;
  {
    const HostService<IHostPropertyDefiner> definer(*host, kServicePropertyDefiner);
    if (!definer) return 0;
    definer->SetProvider(ntfsPropertiesId);
    for (const PropertyDefinition& property : kProperties) definer->Define(&property);
  }
  propertyModule = host->FindModuleByGuid(ntfsPropertiesId);
  return 0;
}

bool NTFSProp::Detach() {
  active = 0;
  return false;
}

bool NTFSProp::Attach(u64 value) {
  active = value;
  return false;
}

bool NTFSProp::ClearCache() {
  ServerCache::Instance().Clear();
  return false;
}

bool NTFSProp::GetPropertyValue(IHostFileItem* item, WCHAR* text, u16 textSize, u16 propertyNumber) {
  if (active == 0 || !item || !text) return false;
  bool hasValue = false;
  if (FillFromStored(*item, text, textSize, propertyNumber, hasValue)) return hasValue;
  const auto* const row = std::ranges::find(kCells, propertyNumber, &CellRow::property);
  return row != std::end(kCells) && row->fill(*item, text, textSize);
}

}  // namespace Velmora::SDK
