#include "multirename/engine/multi_rename_engine.h"
#include "multirename/rules/character_scan.h"
#include "multirename/rules/rule_flags.h"

namespace Velmora::SDK {

namespace {

void CutToName(WString& text) {
  if (text.size() > kLongestName) text.resize(kLongestName);
}

void SplitOldName(MultiRenameEngine& engine, const MultiRenameItem& item) {
  WStringView name = item.oldName;
  // Few names contain a backslash, and checking for one is faster than searching for the last.
  if (ContainsAnyOf<W('\\')>(name)) name.remove_prefix(name.rfind(W('\\')) + 1);
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

// Removes each CR LF of the text, but not a pair that is formed by the removal (C-612).
void RemoveLineEnds(WString& text) {
  constexpr WStringView kLineEnd = W("\r\n");
  if (!ContainsAnyOf<W('\r')>(text)) return;
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
  // A folder does not advance the counters of the extension (C-607).
  if (!item.isFolder) EvaluateTags(engine, engine.extensionTags, extension);
  engine.currentItem = nullptr;

  // Replacements come after the case rule and can undo it (C-611).
  ApplyCaseRule(engine.flags, name, extension);
  if (engine.replaceRules) {
    if ((engine.flags & (kSearchNameAndExtension | kSearchName)) != 0) engine.replaceRules->Apply(name);
    // An expression such as "^" would add an extension to an item without one.
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
