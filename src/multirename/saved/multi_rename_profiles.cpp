#include "multirename/saved/multi_rename_profiles.h"

#include "frame/host/host_objects.h"
#include "multirename/rules/rule_flags.h"

namespace Velmora::SDK {

namespace {

constexpr u32 kProfileTextSize = 1024;  // of a text in the file, including a terminator

struct ProfileFlagRow {
  const WCHAR* attribute;
  u32 flag;
};

// The attributes in the order in which they are written. "casesensative" is the spelling of the files
// (C-633).
constexpr ProfileFlagRow kProfileFlags[] = {
    {W("replaceall"), kSearchReplaceAll},
    {W("casesensative"), kSearchCaseSensitive},
    {W("regex"), kSearchRegex},
};

struct ProfileNumberRow {
  const WCHAR* attribute;
  u32 MultiRenameProfile::*field;
};

constexpr ProfileNumberRow kProfileCounters[] = {
    {W("startat"), &MultiRenameProfile::startAt},
    {W("stepby"), &MultiRenameProfile::stepBy},
    {W("digits"), &MultiRenameProfile::digits},
};

constexpr ProfileNumberRow kProfileCase = {W("value"), &MultiRenameProfile::caseRule};

class ProfileReader {
 public:
  explicit ProfileReader(IHostXmlDocument& document) : document_(document) {}

  std::unique_ptr<MultiRenameProfile> Read(XmlNode node) {
    auto profile = std::make_unique<MultiRenameProfile>();
    WCHAR buffer[kProfileTextSize] = {};
    // Without a name, nothing else is read (C-634).
    if (!document_.GetAttributeText(buffer, kProfileTextSize, node, W("name"))) return profile;
    profile->name = buffer;
    profile->filenameRule = ChildText(node, W("filename"));
    profile->extensionRule = ChildText(node, W("extension"));
    if (const XmlNode counter = document_.FirstChild(node, W("counter"), 0, 0)) {
      for (const ProfileNumberRow& row : kProfileCounters) ReadNumber(counter, row, *profile);
    }
    if (const XmlNode rule = document_.FirstChild(node, W("case"), 0, 0)) {
      ReadNumber(rule, kProfileCase, *profile);
    }
    if (const XmlNode search = document_.FirstChild(node, W("searchandreplace"), 0, 0)) {
      ReadSearch(search, *profile);
    }
    return profile;
  }

 private:
  WString ChildText(XmlNode node, const WCHAR* name) {
    WCHAR buffer[kProfileTextSize] = {};
    return document_.GetChildText(node, name, buffer, kProfileTextSize) ? WString(buffer) : WString();
  }

  void ReadNumber(XmlNode node, const ProfileNumberRow& row, MultiRenameProfile& profile) {
    s32 value = 0;
    if (document_.GetAttributeInt(&value, node, row.attribute)) profile.*row.field = static_cast<u32>(value);
  }

  void ReadSearch(XmlNode search, MultiRenameProfile& profile) {
    for (const auto& [attribute, flag] : kProfileFlags) {
      s32 value = 0;
      if (document_.GetAttributeInt(&value, search, attribute) && value == 1) profile.flags |= flag;
    }
    s32 parts = 0;
    if (document_.GetAttributeInt(&parts, search, W("replaceparts"))) {
      profile.flags |= parts == 2 ? kSearchName : kSearchNameAndExtension;
    }
    SearchAndReplaceItems items;
    WCHAR find[kProfileTextSize];
    WCHAR replace[kProfileTextSize] = {};  // reused for a later item without a replacement (C-635)
    for (XmlNode item = document_.FirstChild(search, W("item"), 0, 0); item;
         item = document_.NextSibling(item, W("item"))) {
      find[0] = WCHAR();
      document_.GetAttributeText(find, kProfileTextSize, item, W("find"));
      document_.GetAttributeText(replace, kProfileTextSize, item, W("replacewith"));
      items.emplace_back(find, replace);
    }
    profile.searchItems = std::make_shared<const SearchAndReplaceItems>(std::move(items));
  }

  IHostXmlDocument& document_;
};

s32 PartsValue(u32 flags) {
  if ((flags & kSearchNameAndExtension) != 0) return 1;
  if ((flags & kSearchName) != 0) return 2;
  return (flags & kSearchExtension) != 0 ? 3 : 1;
}

void WriteSearch(IHostXmlDocument& document, XmlNode node, const MultiRenameProfile& profile) {
  if (!profile.searchItems || profile.searchItems->empty()) return;
  XmlNode search = nullptr;
  for (const auto& [attribute, flag] : kProfileFlags) {
    const s32 value = (profile.flags & flag) != 0 ? 1 : 0;
    if (search)
      document.SetAttributeInt(search, attribute, value, 0);
    else
      search = document.AddChildWithIntAttribute(node, W("searchandreplace"), attribute, value, 0);
  }
  document.SetAttributeInt(search, W("replaceparts"), PartsValue(profile.flags), 0);
  for (const auto& [find, replace] : *profile.searchItems) {
    const XmlNode item = document.AddChildWithTextAttribute(search, W("item"), W("find"), find.c_str(), 0);
    // This attribute has a different name in FindReplace.xml (C-636).
    document.SetAttributeText(item, W("replacewith"), replace.c_str(), 0);
  }
}

void WriteProfile(IHostXmlDocument& document, XmlNode root, const MultiRenameProfile& profile) {
  const XmlNode node =
      document.AddChildWithTextAttribute(root, W("profile"), W("name"), profile.name.c_str(), 0);
  document.AddChild(node, W("filename"), profile.filenameRule.c_str());
  document.AddChild(node, W("extension"), profile.extensionRule.c_str());
  const XmlNode counter = document.AddChildWithIntAttribute(node, W("counter"), W("startat"),
                                                            static_cast<s32>(profile.startAt), 0);
  document.SetAttributeInt(counter, W("stepby"), static_cast<s32>(profile.stepBy), 0);
  document.SetAttributeInt(counter, W("digits"), static_cast<s32>(profile.digits), 0);
  document.AddChildWithIntAttribute(node, W("case"), W("value"), static_cast<s32>(profile.caseRule), 0);
  WriteSearch(document, node, profile);
}

}  // namespace

bool IsSameProfileName(const WString& lhs, const WString& rhs) {
  return CompareStringOrdinal(lhs.c_str(), static_cast<int>(lhs.size()), rhs.c_str(),
                              static_cast<int>(rhs.size()), TRUE) == CSTR_EQUAL;
}

void MultiRenameProfiles::Load() {
  profiles.clear();
  WCHAR buffer[kProfileTextSize] = {};
  if (!host.GetConfigPath(buffer, kProfileTextSize) || buffer[0] == WCHAR()) return;
  filePath = WString(buffer) + W("MultiRenameProfiles.xml");
  const HostObject<IHostXmlDocument> document(host.CreateXmlDocument());
  if (!document) return;
  const XmlNode root = document->Load(filePath.c_str(), 1);
  if (!root) return;
  ProfileReader reader(*document.Get());
  for (XmlNode node = document->FirstChild(root, W("profile"), 0, 0); node;
       node = document->NextSibling(node, W("profile"))) {
    profiles.push_back(reader.Read(node));
  }
  document->Close(root);
}

bool MultiRenameProfiles::Save() const {
  const HostObject<IHostXmlDocument> document(host.CreateXmlDocument());
  if (!document) return false;
  const XmlNode root = document->CreateRoot(W("MultiRename"));
  if (!root) return false;
  for (const auto& profile : profiles) WriteProfile(*document.Get(), root, *profile);
  if (!filePath.empty()) document->Save(root, filePath.c_str(), 1, nullptr);
  return true;
}

void MultiRenameProfiles::Add(std::unique_ptr<MultiRenameProfile> profile) {
  profiles.push_back(std::move(profile));
}

const MultiRenameProfile* MultiRenameProfiles::Find(const WString& name) const {
  for (const auto& profile : profiles) {
    if (IsSameProfileName(profile->name, name)) return profile.get();
  }
  return nullptr;
}

void MultiRenameProfiles::Remove(const WString& name) {
  std::erase_if(profiles, [&name](const auto& profile) { return IsSameProfileName(profile->name, name); });
}

void MultiRenameProfiles::Remove(const MultiRenameProfile* profile) {
  std::erase_if(profiles, [profile](const auto& own) { return own.get() == profile; });
}

}  // namespace Velmora::SDK
