// SIDs and access control lists in the form in which tests write them.
#pragma once

#include <algorithm>
#include <cstring>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/security_api.h"
#include "platform/text.h"

// An entry of an access list, with its SID as text.
struct ShownEntry {
  int type;
  int flags;
  unsigned mask;
  std::string sid;
  friend bool operator==(const ShownEntry&, const ShownEntry&) = default;
};
inline void PrintTo(const ShownEntry& entry, std::ostream* out) {
  *out << "{" << entry.type << ", " << entry.flags << ", 0x" << std::hex << entry.mask << std::dec << ", \""
       << entry.sid << "\"}";
}

inline std::vector<BYTE> SidBytes(BYTE authority, std::vector<std::uint32_t> numbers) {
  std::vector<BYTE> sid = {1, static_cast<BYTE>(numbers.size()), 0, 0, 0, 0, 0, authority};
  for (const std::uint32_t number : numbers) {
    for (int shift = 0; shift < 32; shift += 8) sid.push_back(static_cast<BYTE>(number >> shift));
  }
  return sid;
}

inline std::vector<BYTE> EveryoneSid() { return SidBytes(1, {0}); }
inline std::vector<BYTE> UserSidBytes(std::uint32_t id) { return SidBytes(22, {1, id}); }
inline std::vector<BYTE> GroupSidBytes(std::uint32_t id) { return SidBytes(22, {2, id}); }

// Returns a text such as "S-1-22-1-0".
inline std::string SidText(const void* sid) {
  const auto* const bytes = static_cast<const BYTE*>(sid);
  std::string text = "S-" + std::to_string(bytes[0]) + "-" + std::to_string(bytes[7]);
  for (int index = 0; index < bytes[1]; ++index) {
    std::uint32_t number;
    std::memcpy(&number, bytes + 8 + 4 * index, sizeof number);
    text += "-" + std::to_string(number);
  }
  return text;
}

inline std::vector<ShownEntry> EntriesOf(ACL* list) {
  std::vector<ShownEntry> entries;
  for (DWORD index = 0; list && index < list->AceCount; ++index) {
    void* entry = nullptr;
    if (!GetAce(list, index, &entry)) break;
    ACCESS_ALLOWED_ACE ace = {};
    std::memcpy(&ace.Header, entry, sizeof ace.Header);
    const std::size_t size = ace.Header.AceSize;
    std::memcpy(&ace, entry, std::min(size, sizeof ace));
    const auto* const sid = static_cast<const BYTE*>(entry) + 8;
    // A SID that is not completely inside its entry is not read.
    const bool isWhole = size >= 16 && size >= 16 + sid[1] * sizeof(DWORD);
    entries.push_back({ace.Header.AceType, ace.Header.AceFlags, static_cast<unsigned>(ace.Mask),
                       isWhole ? SidText(sid) : "cut"});
  }
  return entries;
}

// Returns the access list of a file, or nothing if the call fails or the file has none.
inline std::optional<std::vector<ShownEntry>> EntriesOfFile(const WString& path) {
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  PACL list = nullptr;
  if (GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list,
                            nullptr, &descriptor) != ERROR_SUCCESS)
    return std::nullopt;
  std::optional<std::vector<ShownEntry>> entries;
  if (list) entries = EntriesOf(list);
  LocalFree(descriptor);
  return entries;
}

// Returns how many entries of the file's list allow everyone to read, write and execute. Wine does not store
// more of a list.
inline int FullEntriesOfEveryone(const WString& path) {
  constexpr unsigned kFull = 0x1301BF;
  int found = 0;
  for (const ShownEntry& entry : EntriesOfFile(path).value_or(std::vector<ShownEntry>())) {
    if (entry.sid == "S-1-1-0" && entry.type == 0 && (entry.mask & kFull) == kFull) ++found;
  }
  return found;
}

// Returns the bytes of an access list entry.
inline std::vector<BYTE> TypedEntryBytes(BYTE type, BYTE flags, DWORD mask, const std::vector<BYTE>& sid) {
  std::vector<BYTE> entry(8);
  const ACE_HEADER header{type, flags, static_cast<WORD>(8 + sid.size())};
  std::memcpy(entry.data(), &header, sizeof header);
  std::memcpy(entry.data() + 4, &mask, sizeof mask);
  entry.insert(entry.end(), sid.begin(), sid.end());
  return entry;
}

// Returns a list of that size, filled with equal entries that grant everyone the rights in `mask`.
inline std::vector<BYTE> FilledList(std::size_t bytes, DWORD mask) {
  std::vector<BYTE> memory(bytes);
  auto* const list = reinterpret_cast<ACL*>(memory.data());
  InitializeAcl(list, static_cast<DWORD>(bytes), ACL_REVISION);
  const std::vector<BYTE> entry = TypedEntryBytes(0, 0, mask, EveryoneSid());
  std::vector<BYTE> entries;
  while (sizeof(ACL) + entries.size() + entry.size() <= bytes) {
    entries.insert(entries.end(), entry.begin(), entry.end());
  }
  AddAce(list, ACL_REVISION, MAXDWORD, entries.data(), static_cast<DWORD>(entries.size()));
  return memory;
}

// An access list, built entry by entry in a sufficiently large buffer.
class BuiltList {
 public:
  BuiltList() : memory_(4096) { InitializeAcl(Get(), static_cast<DWORD>(memory_.size()), ACL_REVISION); }
  BuiltList& Add(BYTE type, BYTE flags, DWORD mask, const std::vector<BYTE>& sid) {
    std::vector<BYTE> entry = TypedEntryBytes(type, flags, mask, sid);
    AddAce(Get(), ACL_REVISION, MAXDWORD, entry.data(), static_cast<DWORD>(entry.size()));
    return *this;
  }
  ACL* Get() { return reinterpret_cast<ACL*>(memory_.data()); }

 private:
  std::vector<BYTE> memory_;
};

// Sets the access list of a file. Returns 0 or an error number.
inline DWORD SetEntries(const WString& path, ACL* list, DWORD more = 0) {
  WString name = path;
  return SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | more, nullptr,
                               nullptr, list, nullptr);
}
