#include "host/system/folder_names.h"

#include <cstring>

namespace QxHost {
namespace {

constexpr std::size_t kMinSlots = 256;

constexpr std::size_t kBlock = 4;  // 16-bit units in a 64-bit word

constexpr std::uint64_t EachUnit(std::uint64_t value) { return value * 0x0001000100010001u; }

// Returns up to four units as one word.
std::uint64_t BlockOf(WStringView units) {
  std::uint64_t block = 0;
  if (units.size() == kBlock) {
    std::memcpy(&block, units.data(), sizeof block);
  } else {
    std::memcpy(&block, units.data(), units.size() * sizeof(WCHAR));
  }
  return block;
}

std::uint64_t UpperBlockOf(WStringView units) {
  WCHAR upper[kBlock];
  const int size = static_cast<int>(units.size());
  LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, units.data(), size, upper, size);
  return BlockOf(WStringView(upper, units.size()));
}

}  // namespace

// Hashes four units at a time, which can be converted to upper case together if they are ASCII.
std::uint64_t FolderNames::HashOf(WStringView name) {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15u;
  std::uint64_t hash = name.size() * kFactor;
  for (std::size_t at = 0; at < name.size(); at += kBlock) {
    std::uint64_t block = BlockOf(name.substr(at, kBlock));
    if ((block & EachUnit(0xFF80)) == 0) {
      const std::uint64_t fromA = block + EachUnit(0x80 - 'a');
      const std::uint64_t beyondZ = block + EachUnit(0x80 - ('z' + 1));
      block -= (fromA & ~beyondZ & EachUnit(0x80)) >> 2;
    } else {
      block = UpperBlockOf(name.substr(at, kBlock));
    }
    hash = (hash ^ block) * kFactor;
    hash ^= hash >> 29;
  }
  return hash;
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
  slots_.assign(slots_.empty() ? kMinSlots : slots_.size() * 2, 0);
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

bool FolderNames::HasHash(std::uint64_t hash, std::uint32_t but) const {
  return FirstOf(hash, [but](std::uint32_t index) { return index != but; }) != kNone;
}

}  // namespace QxHost
