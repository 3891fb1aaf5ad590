#include "frame/services/helper_requests.h"

#include <memory>

namespace Velmora::SDK {

namespace {

struct EndUse {
  void operator()(IHostHelperChannel* channel) const { channel->Disconnect(); }
};

struct ReleaseWriter {
  void operator()(IHostPacketWriter* writer) const { writer->Release(); }
};

}  // namespace

std::optional<u32> SendToHelper(IHostApp& host, s32 code,
                                const std::function<void(IHostPacketWriter&)>& write) {
  auto* const service = static_cast<IHostHelperChannel*>(host.GetService(kServiceHelperChannel, 0));
  if (!service) return std::nullopt;
  std::unique_ptr<IHostPacketWriter, ReleaseWriter> writer;
  const std::unique_ptr<IHostHelperChannel, EndUse> channel(
      service);  // disconnected before the writer is released
  if (!channel->Connect()) return std::nullopt;
  writer.reset(channel->CreateWriter());
  if (!writer) return std::nullopt;
  write(*writer);
  const void* const data = writer->GetData();
  return channel->Send(code, data, writer->GetSize());
}

HelperPayload::HelperPayload(IHostHelperMessage& message)
    : reader_(message.CreateReader()), isComplete_(reader_ != nullptr) {
  if (!reader_) return;
  const void* const data = message.GetData();
  reader_->Attach(data, message.GetSize());
}

HelperPayload::~HelperPayload() {
  if (reader_) reader_->Release();
}

u32 HelperPayload::ReadU32() {
  u32 value{};
  isComplete_ = isComplete_ && reader_->ReadU32(&value);
  return isComplete_ ? value : 0;
}

WString HelperPayload::ReadString() {
  const WCHAR* text = nullptr;
  isComplete_ = isComplete_ && reader_->ReadString(&text);
  return isComplete_ ? WString(ViewOf(text)) : WString();
}

}  // namespace Velmora::SDK
