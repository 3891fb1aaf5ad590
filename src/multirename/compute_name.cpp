#include "multirename/character_scan.h"
#include "multirename/multi_rename_engine.h"
#include "multirename/rule_flags.h"

namespace Velmora::SDK {

namespace {

void CutToName(WString& text) {
  if (text.size() > kLongestName) text.resize(kLongestName);
}

void SplitOldName(MultiRenameEngine& engine, const MultiRenameItem& item) {
  WStringView name = item.oldName;
  // Hardly any name holds one, and to see that is faster than to look for the last.
  if (HoldsAnyOf<W('\\')>(name)) name.remove_prefix(name.rfind(W('\\')) + 1);
  const std::size_t dot = item.isFolder ? WStringView::npos : name.rfind(W('.'));
  engine.currentBase = name.substr(0, dot);
  engine.currentExtension = dot == WStringView::npos ? WStringView() : name.substr(dot + 1);
}

void EvaluateTags(MultiRenameEngine& engine, RenameTags& tags, WString& text) {
  text.clear();
  for (RenameTag& tag : tags) {
    AppendTagValue(engine, tag, text);
    CutToName(text);
  }
}

// Each pair of the text as it stands is left out; what moves together makes no new one.
void RemoveLineEnds(WString& text) {
  constexpr WStringView kLineEnd = W("\r\n");
  if (!HoldsAnyOf<W('\r')>(text)) return;
  std::size_t from = text.find(kLineEnd);
  if (from == WString::npos) return;
  std::size_t kept = from;
  while (from < text.size()) {
    if (WStringView(text).substr(from).starts_with(kLineEnd))
      from += kLineEnd.size();
    else
      text[kept++] = text[from++];
  }
  text.resize(kept);
}

}  // namespace

void ComputeName(MultiRenameEngine& engine, MultiRenameItem& item) {
  if (item.state == StateSkipped) return;
  engine.currentItem = &item;
  SplitOldName(engine, item);
  WString& name = engine.nameBeingMade;
  WString& extension = engine.extensionBeingMade;
  EvaluateTags(engine, engine.filenameTags, name);
  extension.clear();
  // The counters of the extension stay where they are at a folder.
  if (!item.isFolder) EvaluateTags(engine, engine.extensionTags, extension);
  engine.currentItem = nullptr;

  ApplyCaseRule(engine.flags, name, extension);
  if (engine.replaceRules) {
    if ((engine.flags & (kSearchNameAndExtension | kSearchName)) != 0) engine.replaceRules->Apply(name);
    // An expression such as "^" would give an item without an extension one.
    if ((engine.flags & (kSearchNameAndExtension | kSearchExtension)) != 0 && !extension.empty())
      engine.replaceRules->Apply(extension);
  }
  if (!extension.empty()) {
    name += W('.');
    name += extension;
  }
  CutToName(name);
  RemoveLineEnds(name);
  item.StoreNewName(name);
}

}  // namespace Velmora::SDK
