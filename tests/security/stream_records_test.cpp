// Chains of stream records, as a query stores them in its buffer.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "security/alternate_streams.h"

namespace {

using Velmora::SDK::s64;
using Velmora::SDK::u32;
using Velmora::SDK::u64;

class StreamBuffer {
 public:
  explicit StreamBuffer(std::size_t size) : bytes_(size) {}

  StreamBuffer& Put(std::size_t at, u32 nextOffset, s64 size) {
    std::memcpy(bytes_.data() + at, &nextOffset, sizeof nextOffset);
    std::memcpy(bytes_.data() + at + 8, &size, sizeof size);
    return *this;
  }
  AlternateStreams Sum() const { return SumStreamRecords(bytes_); }

 private:
  std::vector<std::byte> bytes_;
};

void ExpectStreams(const AlternateStreams& streams, u32 count, u64 size) {
  EXPECT_EQ(streams.count, count);
  EXPECT_EQ(streams.size, size);
}

}  // namespace

TEST(StreamRecords, ABufferOfZerosHasNone) { ExpectStreams(StreamBuffer(65536).Sum(), 0, 0); }

TEST(StreamRecords, TheFirstRecordIsLeftOutWhateverItIs) {
  ExpectStreams(StreamBuffer(100).Put(0, 0, 7).Sum(), 0, 0);
  ExpectStreams(StreamBuffer(100).Put(0, 40, 7).Put(40, 0, 5).Sum(), 1, 5);
}

TEST(StreamRecords, AllAfterTheFirstAreCountedAndAddedUp) {
  ExpectStreams(StreamBuffer(200).Put(0, 40, 1).Put(40, 48, 10).Put(88, 0, 20).Sum(), 2, 30);
}

TEST(StreamRecords, SizesAre64Bits) {
  ExpectStreams(StreamBuffer(200).Put(0, 40, 0).Put(40, 0, s64{1} << 40).Sum(), 1, u64{1} << 40);
}

TEST(StreamRecords, AChainThatLeavesTheBufferEndsThere) {
  ExpectStreams(StreamBuffer(100).Put(0, 40, 0).Put(40, 100, 5).Sum(), 1, 5);
  ExpectStreams(StreamBuffer(100).Put(0, 77, 0).Sum(), 0, 0);  // there is no space for a record after it
  ExpectStreams(StreamBuffer(100).Put(0, 76, 0).Put(76, 0, 9).Sum(), 1, 9);
  ExpectStreams(StreamBuffer(100).Put(0, std::numeric_limits<u32>::max(), 0).Sum(), 0, 0);
}

TEST(StreamRecords, AChainThatGoesBackOrNowhereEndsThere) {
  // Offsets are unsigned: one that wraps around to an earlier record is out of range.
  ExpectStreams(StreamBuffer(200).Put(0, 40, 0).Put(40, static_cast<u32>(-40), 5).Sum(), 1, 5);
  ExpectStreams(StreamBuffer(200).Put(0, 40, 0).Put(40, 1, 5).Sum(), 1, 5);
  ExpectStreams(StreamBuffer(200).Put(0, 40, 0).Put(40, 23, 5).Sum(), 1, 5);
}

TEST(StreamRecords, ABufferThatHoldsNoRecordHasNone) {
  for (const std::size_t size : {0u, 1u, 8u, 23u, 24u}) ExpectStreams(StreamBuffer(size).Sum(), 0, 0);
}
