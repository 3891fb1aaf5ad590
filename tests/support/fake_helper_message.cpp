#include "support/fake_helper_message.h"

using namespace Velmora::SDK;

namespace {

constexpr char kReader[] = "reader";
constexpr char kData[] = "the payload";
constexpr u32 kDataSize = 11;

}  // namespace

void FakePacketReader::Attach(const void* data, u32 size) {
  const bool isPayload = data == kData && size == kDataSize;
  recorder_.Record(std::string("reader.Attach(") + (isPayload ? "the payload" : "something else") + ")");
}

const PayloadValue* FakePacketReader::Next() {
  if (!recorder_.IsTaken(kReader)) recorder_.Problem("the reader is used behind its release");
  return next_ < payload_.size() ? &payload_[next_++] : nullptr;
}

bool FakePacketReader::ReadString(const WCHAR** text) {
  recorder_.Record("reader.ReadString()");
  const PayloadValue* const value = Next();
  const WString* const found = value ? std::get_if<WString>(value) : nullptr;
  if (found) *text = recorder_.Lend(*found);
  return found != nullptr;
}

bool FakePacketReader::ReadU32(u32* number) {
  recorder_.Record("reader.ReadU32()");
  const PayloadValue* const value = Next();
  const u32* const found = value ? std::get_if<u32>(value) : nullptr;
  if (found) *number = *found;
  return found != nullptr;
}

void FakePacketReader::Release() {
  recorder_.Record("reader.Release()");
  recorder_.Released(kReader);
}

const void* FakeHelperMessage::GetData() {
  recorder.Record("GetData()");
  return kData;
}

u32 FakeHelperMessage::GetSize() {
  recorder.Record("GetSize()");
  return kDataSize;
}

void FakeHelperMessage::SetReply(u32 success, u32 code, u32 zero, u32 alsoZero) {
  recorder.Record("SetReply(" + std::to_string(success) + ", " + std::to_string(code) + ", " +
                  std::to_string(zero) + ", " + std::to_string(alsoZero) + ")");
}

IHostPacketReader* FakeHelperMessage::CreateReader() {
  recorder.Record("CreateReader()");
  if (!givesReader) return nullptr;
  recorder.Taken(kReader);
  return &reader_;
}
