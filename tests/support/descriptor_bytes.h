// Security descriptors and lists as bytes, right and wrong ones.
#pragma once

#include <cstring>
#include <vector>

#include "platform/security_api.h"

// A self-relative descriptor: its 20 bytes, then what is added. An offset of 0 is a part that is missing.
class DescriptorBytes {
 public:
  DescriptorBytes() : bytes_(20) {
    bytes_[0] = 1;
    SetControl(0x8004);  // self-relative, with an access list
  }
  void SetControl(WORD control) { std::memcpy(&bytes_[2], &control, sizeof control); }
  void SetOwnerOffset(DWORD offset) { std::memcpy(&bytes_[4], &offset, sizeof offset); }
  void SetListOffset(DWORD offset) { std::memcpy(&bytes_[16], &offset, sizeof offset); }
  // Appends; the offset at which it lies.
  DWORD Append(const std::vector<BYTE>& part) {
    const auto offset = static_cast<DWORD>(bytes_.size());
    bytes_.insert(bytes_.end(), part.begin(), part.end());
    return offset;
  }
  const std::vector<BYTE>& Bytes() const { return bytes_; }

 private:
  std::vector<BYTE> bytes_;
};

// The header of a list with that size in it, and as many bytes after it as are given.
inline std::vector<BYTE> ListBytes(WORD aclSize, WORD aceCount, const std::vector<BYTE>& entries = {}) {
  const ACL header{ACL_REVISION, 0, aclSize, aceCount, 0};
  std::vector<BYTE> bytes(sizeof header);
  std::memcpy(bytes.data(), &header, sizeof header);
  bytes.insert(bytes.end(), entries.begin(), entries.end());
  return bytes;
}

// An entry that allows, with that size in its header.
inline std::vector<BYTE> EntryBytes(WORD aceSize, const std::vector<BYTE>& sid, DWORD mask = 1) {
  const ACE_HEADER header{ACCESS_ALLOWED_ACE_TYPE, 0, aceSize};
  std::vector<BYTE> bytes(sizeof header + sizeof mask);
  std::memcpy(bytes.data(), &header, sizeof header);
  std::memcpy(bytes.data() + sizeof header, &mask, sizeof mask);
  bytes.insert(bytes.end(), sid.begin(), sid.end());
  return bytes;
}
