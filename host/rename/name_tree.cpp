#include "host/rename/name_tree.h"

#include <algorithm>

namespace QxHost {
namespace {

void SetUpperCase(WStringView text, WString& upper) {
  upper.assign(text);
  const int size = static_cast<int>(text.size());
  if (size != 0) LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, text.data(), size, upper.data(), size);
}

}  // namespace

WString InUpperCase(WStringView text) {
  WString upper;
  SetUpperCase(text, upper);
  return upper;
}

NameTree::NameTree(FileView& files, std::size_t expected) : files_(files) {
  nodes_.reserve(expected + 1);
  byHash_.reserve(expected);
  nodes_.push_back({.parent = kRoots, .name = {}});
}

std::uint64_t NameTree::HashOf(Id folder, WStringView name) {
  SetUpperCase(name, upper_);
  return std::hash<WString>()(upper_) ^ (std::uint64_t{folder} * 0x9E3779B97F4A7C15u);
}

NameTree::Id NameTree::Child(Id folder, WStringView name) {
  const std::uint64_t hash = HashOf(folder, name);
  variants_.clear();
  const auto [first, last] = byHash_.equal_range(hash);
  for (auto found = first; found != last; ++found) {
    const Node& node = nodes_[found->second];
    if (node.parent != folder) continue;
    if (node.name == name) return found->second;
    if (node.name.size() == name.size() && InUpperCase(node.name) == upper_)
      variants_.push_back(found->second);
  }
  std::optional<DWORD> look;
  for (const Id variant : variants_) {
    if (IsOneName(variant, name, look)) return variant;
  }
  const Id id = Count();
  nodes_.push_back({.parent = folder, .name = name, .look = look});
  byHash_.emplace(hash, id);
  return id;
}

void NameTree::SetSpelling(Id id, WStringView name) {
  if (nodes_[id].name == name) return;
  nodes_[id].name = name;
  pathOwner_ = kRoots;
  path_.clear();
}

bool NameTree::HasNameIgnoringCase(Id folder, WStringView name) {
  const auto [first, last] = byHash_.equal_range(HashOf(folder, name));
  return std::any_of(first, last, [&](const auto& entry) {
    const Node& node = nodes_[entry.second];
    return node.parent == folder && InUpperCase(node.name) == upper_;
  });
}

bool NameTree::IsOneName(Id known, WStringView name, std::optional<DWORD>& look) {
  const WString knownPath = PathOf(known);
  const WString path = knownPath.substr(0, knownPath.size() - name.size()).append(name);
  if (!look) look = files_.Look(path);
  const bool isThere = *look == ERROR_SUCCESS;
  if ((Look(known) == ERROR_SUCCESS) != isThere) return false;
  if (isThere) return files_.AreOneFile(knownPath, path);
  // Neither file exists yet. The file that will get the known name shows whether the folder ignores letter
  // case.
  const Id claimant = nodes_[known].claimant;
  return claimant != kRoots && files_.IgnoresCaseInFolderOf(PathOf(claimant));
}

DWORD NameTree::Look(Id id) {
  std::optional<DWORD>& look = nodes_[id].look;
  if (!look) look = files_.Look(PathOf(id));
  return *look;
}

const WString& NameTree::FolderPath(Id id) {
  if (id == pathOwner_) return path_;
  std::vector<WStringView> names;
  for (Id node = id; node != kRoots; node = nodes_[node].parent) names.push_back(nodes_[node].name);
  path_.clear();
  for (auto name = names.rbegin(); name != names.rend(); ++name) {
    path_ += *name;
    path_ += W('\\');
  }
  pathOwner_ = id;
  return path_;
}

WString NameTree::PathOf(Id id) {
  WString path = FolderPath(nodes_[id].parent);
  path += nodes_[id].name;
  return path;
}

}  // namespace QxHost
