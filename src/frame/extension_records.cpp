#include "frame/extension_records.h"

#include "frame/services/extension_ids.h"

using namespace Velmora::SDK;

namespace {

struct ExtensionRecord {
  const WCHAR* name;
  const WCHAR* moduleName;
  const char* version;
  const char* id;
  const WCHAR* description;
  u32 kindFlags;
  u32 orderValue;
  bool hasExtraFields;
};

constexpr const WCHAR* kAuthor = W("QXUtils contributors");
constexpr const WCHAR* kWebAddress = W("https://qxutils.example");
constexpr u32 kHostBuild = 1830000;

// The field has room for 250 characters, but a description is truncated to this length (C-001).
constexpr std::size_t kDescriptionLimit = 160;

constexpr ExtensionRecord kRecords[kExtensionCount] = {
    {W("File Utils"), W("QXUtils"), "1.3.0.0", fileUtilsId,
     W("File Utilities like XML conversion, Base64 conversion, File security tools, Link Tools, Quick "
       "rename ") W("commands, ..."),
     0x2100, 700, false},
    {W("NTFS Properties"), W("NTFSProp"), "1.0.0.0", ntfsPropertiesId,
     W("Show NTFS/File Security Properties"), 0x202800, 300, true},
    {W("Multi Rename"), W("QXMultiRename"), "1.0.0.0", multiRenameId,
     W("MultiRename can rename multiple files using rules and filters"), 0x2100, 710, false},
};

template <typename CharT, std::size_t size>
void CopyField(CharT (&field)[size], const CharT* text, std::size_t limit = size) {
  CopyPadded(field, limit, std::basic_string_view<CharT>(text));
}

}  // namespace

void FillExtensionInfo(u32 index, ExtensionInfo& info) {
  const ExtensionRecord& record = kRecords[index];
  CopyField(info.name, record.name);
  CopyField(info.author, kAuthor);
  CopyField(info.webAddress, kWebAddress);
  CopyField(info.description, record.description, kDescriptionLimit);
  CopyField(info.moduleName, record.moduleName);
  CopyField(info.version, record.version);
  CopyField(info.id, record.id);
  info.kindFlags = record.kindFlags;
  info.hostBuild = kHostBuild;
  info.orderValue = record.orderValue;
  if (record.hasExtraFields) {
    CopyField(info.extraText1, W(""));
    CopyField(info.extraText2, W(""));
    info.extraValue = 0;
  }
}
