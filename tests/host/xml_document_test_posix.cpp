// If the disk fails while an XML file is loaded or saved, the file is unchanged.
#include <gmock/gmock.h>

#include "host/xml_files.h"
#include "platform/posix/files/faults.h"
#include "support/memory_limit.h"

using testing::ElementsAre;

namespace {

class XmlDocumentFaults : public testing::Test {
 protected:
  static constexpr const char* kBefore = "<a><b/></a>";
  const Platform::Faults::Scope faults_;
  const ScratchFolder scratch_;
  const WString path_ = scratch_.Write(W("a.xml"), kBefore);
  XmlFiles::Document document_;

  void ExpectFileAsItWas() {
    Platform::Faults::Clear();
    EXPECT_EQ(scratch_.Read(W("a.xml")), kBefore);
    EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.xml")));
  }
};

TEST_F(XmlDocumentFaults, AFailedLoadGivesNull) {
  for (const char* const function : {"CreateFileW", "ReadFile"}) {
    Platform::Faults::Fail(function, 1, ERROR_IO_DEVICE);
    EXPECT_EQ(document_->Load(path_.c_str(), 0), nullptr) << function;
    Platform::Faults::Clear();
  }
  ExpectFileAsItWas();
}

TEST_F(XmlDocumentFaults, AFailedSaveLeavesTheOldFileAndNoOther) {
  const Velmora::SDK::XmlNode root = document_->Load(path_.c_str(), 0);
  for (const char* const function : {"CreateFileW", "WriteFile"}) {
    Platform::Faults::Fail(function, 1, ERROR_DISK_FULL);
    EXPECT_FALSE(document_->Save(root, path_.c_str(), 1, nullptr)) << function;
    ExpectFileAsItWas();
  }
  Platform::Faults::WriteShort(1, 3);
  Platform::Faults::Fail("WriteFile", 2, ERROR_DISK_FULL);
  EXPECT_FALSE(document_->Save(root, path_.c_str(), 1, nullptr));
  ExpectFileAsItWas();
}

TEST_F(XmlDocumentFaults, MemoryThatRunsOutGivesNullOrFalse) {
  int refused = 0;
  for (int count = 0; count < 200; ++count) {
    Velmora::SDK::XmlNode root = nullptr;
    {
      const Memory::Limit limit(count);
      root = document_->Load(path_.c_str(), 0);
    }
    if (root) break;
    ++refused;
  }
  EXPECT_GT(refused, 3);
  const Velmora::SDK::XmlNode root = document_->Load(path_.c_str(), 0);
  ASSERT_NE(root, nullptr);
  bool saved = false;
  for (int count = 0; count < 200 && !saved; ++count) {
    if (count > 0) {
      EXPECT_EQ(scratch_.Read(W("a.xml")), kBefore);
    }
    const Memory::Limit limit(count);
    saved = document_->Save(root, path_.c_str(), 1, nullptr);
  }
  EXPECT_TRUE(saved);
  EXPECT_EQ(scratch_.Read(W("a.xml")), "<a>\n  <b/>\n</a>\n");
}

}  // namespace
