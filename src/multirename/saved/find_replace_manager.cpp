#include "multirename/saved/find_replace_manager.h"

#include "frame/host/host_objects.h"

namespace Velmora::SDK {

namespace {

constexpr u32 kPairValueSize = 1024;  // of a value in the file, including a terminator; longer values are cut
constexpr u32 kPairFolderSize = 4096;

WString PairAttribute(IHostXmlDocument& document, XmlNode item, const WCHAR* name) {
  WCHAR buffer[kPairValueSize];
  buffer[0] = WCHAR();
  return document.GetAttributeText(buffer, kPairValueSize, item, name) ? WString(buffer) : WString();
}

SearchAndReplaceItems ReadPairs(IHostXmlDocument& document, XmlNode list) {
  SearchAndReplaceItems items;
  for (XmlNode item = document.FirstChild(list, W("item"), 0, 0); item;
       item = document.NextSibling(item, W("item"))) {
    WString find = PairAttribute(document, item, W("find"));
    items.emplace_back(std::move(find), PairAttribute(document, item, W("replace")));
  }
  return items;
}

}  // namespace

FindReplaceManager::FindReplaceManager(IHostApp& hostApp) : host_(hostApp) {
  WCHAR buffer[kPairFolderSize] = {};
  if (!host_.GetConfigPath(buffer, kPairFolderSize) || buffer[0] == WCHAR()) return;
  filePath_ = buffer;
  if (!filePath_.ends_with(W('\\'))) filePath_ += W('\\');
  filePath_ += W("FindReplace.xml");
}

void FindReplaceManager::Load() {
  lists_.clear();
  if (filePath_.empty()) return;
  const HostObject<IHostXmlDocument> document(host_.CreateXmlDocument());
  if (!document) return;
  const XmlNode root = document->Load(filePath_.c_str(), 1);
  if (!root) return;
  for (XmlNode list = document->FirstChild(root, W("FindReplace"), 0, 0); list;
       list = document->NextSibling(list, W("FindReplace"))) {
    const s32 number = document->GetAttributeValue(list, W("id"));
    if (number > 0) lists_[number] = ReadPairs(*document.Get(), list);
  }
  document->Close(root);
}

void FindReplaceManager::Save() const {
  if (filePath_.empty()) return;
  const HostObject<IHostXmlDocument> document(host_.CreateXmlDocument());
  if (!document) return;
  const XmlNode root = document->CreateRoot(W("MultiRename"));
  if (!root) return;
  for (const auto& [number, items] : lists_) {
    const XmlNode list = document->AddChildWithIntAttribute(root, W("FindReplace"), W("id"), number, 0);
    for (const auto& [find, replace] : items) {
      const XmlNode item = document->AddChildWithTextAttribute(list, W("item"), W("find"), find.c_str(), 0);
      document->SetAttributeText(item, W("replace"), replace.c_str(), 1);
    }
  }
  document->Save(root, filePath_.c_str(), 1, "UTF-8");
}

const SearchAndReplaceItems* FindReplaceManager::Get(s32 number) const {
  const auto found = lists_.find(number);
  return found == lists_.end() ? nullptr : &found->second;
}

void FindReplaceManager::Set(s32 number, SearchAndReplaceItems items) { lists_[number] = std::move(items); }

}  // namespace Velmora::SDK
