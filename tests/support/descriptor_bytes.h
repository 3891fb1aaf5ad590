// Security descriptors and access lists as bytes, valid and invalid ones.
#pragma once

#include <cstring>
#include <vector>

#include "platform/security_api.h"

// A self-relative descriptor: its header of 20 bytes, followed by the parts that are appended. An offset of 0
// denotes a missing part.
class DescriptorBytes {
 public:
  DescriptorBytes() : bytes_(20) {
    bytes_[0] = 1;
    SetControl(0x8004);  // self-relative, with an access list
  }
  void SetControl(WORD control) { std::memcpy(&bytes_[2], &control, sizeof control); }
  void SetOwnerOffset(DWORD offset) { std::memcpy(&bytes_[4], &offset, sizeof offset); }
  void SetListOffset(DWORD offset) { std::memcpy(&bytes_[16], &offset, sizeof offset); }
  // Appends a part and returns its offset.
  DWORD Append(const std::vector<BYTE>& part) {
    const auto offset = static_cast<DWORD>(bytes_.size());
    bytes_.insert(bytes_.end(), part.begin(), part.end());
    return offset;
  }
  const std::vector<BYTE>& Bytes() const { return bytes_; }

 private:
  std::vector<BYTE> bytes_;
};

// Returns the header of an access list with the given size field, followed by the given bytes.
inline std::vector<BYTE> ListBytes(WORD aclSize, WORD aceCount, const std::vector<BYTE>& entries = {}) {
  const ACL header{ACL_REVISION, 0, aclSize, aceCount, 0};
  std::vector<BYTE> bytes(sizeof header);
  std::memcpy(bytes.data(), &header, sizeof header);
  bytes.insert(bytes.end(), entries.begin(), entries.end());
  return bytes;
}

// Returns an access-allowed entry with the given size field in its header.
inline std::vector<BYTE> EntryBytes(WORD aceSize, const std::vector<BYTE>& sid, DWORD mask = 1) {
  const ACE_HEADER header{ACCESS_ALLOWED_ACE_TYPE, 0, aceSize};
  std::vector<BYTE> bytes(sizeof header + sizeof mask);
  std::memcpy(bytes.data(), &header, sizeof header);
  std::memcpy(bytes.data() + sizeof header, &mask, sizeof mask);
  bytes.insert(bytes.end(), sid.begin(), sid.end());
  return bytes;
}
