// The class and interface ids of the object picker, written out.
#include <objbase.h>

#include <objsel.h>

#include <gtest/gtest.h>

#include <array>
#include <cstring>

namespace {

using IdBytes = std::array<unsigned char, 16>;

IdBytes BytesOfId(const GUID& id) {
  static_assert(sizeof(GUID) == sizeof(IdBytes));
  IdBytes bytes;
  std::memcpy(bytes.data(), &id, bytes.size());
  return bytes;
}

}  // namespace

TEST(ObjectPicker, IsAskedForByTheIdsThatWindowsGivesIt) {
  // {17D6CCD8-3B7B-11D2-B9E0-00C04FD8DBF7}
  const IdBytes kClass = {0xD8, 0xCC, 0xD6, 0x17, 0x7B, 0x3B, 0xD2, 0x11,
                          0xB9, 0xE0, 0x00, 0xC0, 0x4F, 0xD8, 0xDB, 0xF7};
  // {0C87E64E-3B7A-11D2-B9E0-00C04FD8DBF7}
  const IdBytes kInterface = {0x4E, 0xE6, 0x87, 0x0C, 0x7A, 0x3B, 0xD2, 0x11,
                              0xB9, 0xE0, 0x00, 0xC0, 0x4F, 0xD8, 0xDB, 0xF7};
  EXPECT_EQ(BytesOfId(CLSID_DsObjectPicker), kClass);
  EXPECT_EQ(BytesOfId(IID_IDsObjectPicker), kInterface);
}
