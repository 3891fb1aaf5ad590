#include "support/fake_helper_channel.h"

using namespace Velmora::SDK;

namespace {

constexpr char kChannel[] = "the helper channel";
constexpr char kWriter[] = "the writer";

}  // namespace

void FakePacketWriter::WriteU32(u32 value) {
  recorder_.Record("writer.WriteU32(" + std::to_string(value) + ")");
  ++size_;
}

void FakePacketWriter::WriteString(const WCHAR* text) {
  recorder_.Record("writer.WriteString(" + Quoted(text) + ")");
  ++size_;
}

void FakePacketWriter::Release() {
  recorder_.Record("writer.Release()");
  recorder_.Released(kWriter);
}

bool FakeHelperChannel::Connect() {
  // The channel is in use until Disconnect, whatever Connect returns.
  recorder_.Taken(kChannel);
  isConnected_ = recorder_.Allow("helper.Connect()");
  return isConnected_;
}

IHostPacketWriter* FakeHelperChannel::CreateWriter() {
  if (!recorder_.Allow("helper.CreateWriter()")) return nullptr;
  recorder_.Taken(kWriter);
  return &writer_;
}

u32 FakeHelperChannel::Send(s32 code, const void* data, u32 size) {
  recorder_.Record("helper.Send(" + std::to_string(code) + ", " + std::to_string(size) + ")");
  if (!isConnected_) recorder_.Problem("something is sent to a helper that is not there");
  if (data != &writer_ || !recorder_.IsTaken(kWriter)) recorder_.Problem("what is sent is not the writer's");
  return reply;
}

void FakeHelperChannel::Disconnect() {
  recorder_.Record("helper.Disconnect()");
  recorder_.Released(kChannel);
  isConnected_ = false;
}
