#include "host/folder_names.h"

namespace QxHost {
namespace {

constexpr std::size_t kFewestSlots = 256;

WCHAR UpperCaseOf(WCHAR unit) {
  if (unit < 0x80)
    return unit >= W('a') && unit <= W('z') ? static_cast<WCHAR>(unit - (W('a') - W('A'))) : unit;
  LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, &unit, 1, &unit, 1);
  return unit;
}

}  // namespace

std::uint64_t FolderNames::HashOf(WStringView name) {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15u;
  std::uint64_t hash = name.size();
  // Four units at a time.
  std::uint64_t block = 0;
  unsigned filled = 0;
  for (const WCHAR unit : name) {
    block = block << 16 | static_cast<std::uint16_t>(UpperCaseOf(unit));
    if (++filled % 4 != 0) continue;
    hash = (hash ^ block) * kFactor;
    hash ^= hash >> 29;
    block = 0;
  }
  hash = (hash ^ block) * kFactor;
  return hash ^ hash >> 32;
}

void FolderNames::Clear() {
  names_.clear();
  entries_.clear();
  slots_.clear();
}

void FolderNames::Reserve(std::size_t count) {
  constexpr std::size_t kUsualSize = 24;
  names_.reserve(count * kUsualSize);
  entries_.reserve(count);
}

void FolderNames::Grow() {
  slots_.assign(slots_.empty() ? kFewestSlots : slots_.size() * 2, 0);
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t index = 0; index < entries_.size(); ++index) {
    std::size_t slot = entries_[index].hash & mask;
    while (slots_[slot] != 0) slot = (slot + 1) & mask;
    slots_[slot] = static_cast<std::uint32_t>(index + 1);
  }
}

void FolderNames::Insert(Entry entry, WStringView name) {
  if (slots_.size() < (entries_.size() + 1) * 2) Grow();
  entry.nameAt = static_cast<std::uint32_t>(names_.size());
  entry.nameSize = static_cast<std::uint16_t>(name.size());
  names_ += name;
  entries_.push_back(entry);
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = entry.hash & mask;
  while (slots_[slot] != 0) slot = (slot + 1) & mask;
  slots_[slot] = static_cast<std::uint32_t>(entries_.size());
}

template <typename Visit>
std::uint32_t FolderNames::FirstOf(std::uint64_t hash, Visit isIt) const {
  if (slots_.empty()) return kNone;
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t slot = hash & mask; slots_[slot] != 0; slot = (slot + 1) & mask) {
    const std::uint32_t index = slots_[slot] - 1;
    if (entries_[index].hash == hash && isIt(index)) return index;
  }
  return kNone;
}

std::uint32_t FolderNames::Find(WStringView name) const {
  return FirstOf(HashOf(name), [&](std::uint32_t index) {
    const Entry& entry = entries_[index];
    return entry.isOnDisk && WStringView(names_).substr(entry.nameAt, entry.nameSize) == name;
  });
}

bool FolderNames::HasLike(std::uint64_t hash, std::uint32_t but) const {
  return FirstOf(hash, [but](std::uint32_t index) { return index != but; }) != kNone;
}

}  // namespace QxHost
