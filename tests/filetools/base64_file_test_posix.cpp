// Encoding and decoding when a call fails: the source is unchanged. Also, a longer file does not need more
// memory.
#include <gtest/gtest.h>

#include <functional>

#include "filetools/base64_file.h"
#include "filetools/plain_base64.h"
#include "platform/posix/files/faults.h"
#include "support/memory_limit.h"
#include "support/scratch_folder.h"

using namespace Platform;

namespace {

class Base64FileFaults : public testing::Test {
 protected:
  bool Encode() { return EncodeFileBase64(source_, scratch_.Path(W("t"))); }
  bool Decode(bool skipHeader = true) {
    return DecodeFileBase64(encoded_, scratch_.Path(W("t")), skipHeader);
  }

  void ExpectSourcesWhole() {
    Faults::Clear();
    EXPECT_EQ(scratch_.Read(W("s")), bytes_);
    EXPECT_EQ(scratch_.Read(W("e")), text_);
  }

  const Faults::Scope faults_;
  const ScratchFolder scratch_;
  const std::string bytes_ = std::string(200000, 'x');
  const std::string text_ = PlainBase64::Header("s") + PlainBase64::Text(bytes_);
  const WString source_ = scratch_.Write(W("s"), bytes_);
  const WString encoded_ = scratch_.Write(W("e"), text_);
};

long AllocationsOf(const std::function<void()>& work) {
  const long before = Memory::AllocationCount();
  work();
  return Memory::AllocationCount() - before;
}

}  // namespace

TEST_F(Base64FileFaults, AFileThatCannotBeOpenedOrMadeFails) {
  for (int nth = 1; nth <= 2; ++nth) {
    Faults::Fail("CreateFileW", nth, ERROR_ACCESS_DENIED);
    EXPECT_FALSE(Encode()) << nth;
    ExpectSourcesWhole();
    Faults::Fail("CreateFileW", nth, ERROR_ACCESS_DENIED);
    EXPECT_FALSE(Decode()) << nth;
    ExpectSourcesWhole();
  }
}

TEST_F(Base64FileFaults, EachFailedWriteFails) {
  Faults::Watch("WriteFile");
  ASSERT_TRUE(Encode());
  const int encodeWrites = Faults::CallCount("WriteFile");
  Faults::Clear();
  Faults::Watch("WriteFile");
  ASSERT_TRUE(Decode());
  const int decodeWrites = Faults::CallCount("WriteFile");
  ASSERT_GT(encodeWrites, 1);
  ASSERT_GT(decodeWrites, 1);
  for (int nth = 1; nth <= encodeWrites; ++nth) {
    Faults::Fail("WriteFile", nth, ERROR_DISK_FULL);
    EXPECT_FALSE(Encode()) << nth;
    ExpectSourcesWhole();
    Faults::WriteShort(nth, 1);
    EXPECT_FALSE(Encode()) << nth;
    ExpectSourcesWhole();
  }
  for (int nth = 1; nth <= decodeWrites; ++nth) {
    Faults::Fail("WriteFile", nth, ERROR_DISK_FULL);
    EXPECT_FALSE(Decode()) << nth;
    ExpectSourcesWhole();
  }
}

TEST_F(Base64FileFaults, AFailedReadWhileEncodingFails) {
  Faults::Watch("ReadFile");
  ASSERT_TRUE(Encode());
  const int reads = Faults::CallCount("ReadFile");
  Faults::Clear();
  for (const int nth : {1, 2, reads}) {
    Faults::Fail("ReadFile", nth, ERROR_IO_DEVICE);
    EXPECT_FALSE(Encode()) << nth;
    ExpectSourcesWhole();
  }
}

TEST_F(Base64FileFaults, WhatWasReadBeforeAFailedReadIsInThePartialTarget) {
  Faults::Fail("ReadFile", 2, ERROR_IO_DEVICE);
  EXPECT_FALSE(Encode());
  ExpectSourcesWhole();
  // One read fills a buffer of twenty blocks.
  const std::string whole = PlainBase64::Header("s") + PlainBase64::Text(bytes_.substr(0, 20 * 3072));
  EXPECT_EQ(scratch_.Read(W("t")), whole);
}

TEST_F(Base64FileFaults, AFailedReadEndsTheDecodingAndStillCountsAsSuccessByDesign) {
  Faults::Watch("ReadFile");
  ASSERT_TRUE(Decode(false));
  const int reads = Faults::CallCount("ReadFile");
  Faults::Clear();
  for (const int nth : {1, 2, reads - 1}) {
    Faults::Fail("ReadFile", nth, ERROR_IO_DEVICE);
    EXPECT_TRUE(Decode(false)) << nth;
    ExpectSourcesWhole();
  }
}

TEST_F(Base64FileFaults, ANameThatCannotBeReadIsNoneAndOneThatCannotBeConvertedIsRefused) {
  for (const char* const function : {"CreateFileW", "ReadFile"}) {
    Faults::Fail(function, 1, ERROR_IO_DEVICE, true);
    EXPECT_EQ(GetEncodedFileName(encoded_), std::nullopt) << function;
    Faults::Clear();
  }
  Faults::Fail("MultiByteToWideChar", 1, ERROR_NO_UNICODE_TRANSLATION, true);
  EXPECT_EQ(GetEncodedFileName(encoded_), W(""));
  Faults::Clear();
  EXPECT_EQ(GetEncodedFileName(encoded_), W("s"));
}

TEST_F(Base64FileFaults, MemoryDoesNotGrowWithTheFile) {
  const ScratchFolder small;
  const WString source = small.Write(W("s"), std::string(1000, 'x'));
  const WString encoded =
      small.Write(W("e"), PlainBase64::Header("s") + PlainBase64::Text(std::string(1000, 'x')));
  EXPECT_EQ(AllocationsOf([&] { Encode(); }),
            AllocationsOf([&] { EncodeFileBase64(source, small.Path(W("t"))); }));
  EXPECT_EQ(AllocationsOf([&] { Decode(); }),
            AllocationsOf([&] { DecodeFileBase64(encoded, small.Path(W("t")), true); }));
}
