#include "host/helper/helper_channel.h"

#include "host/helper/helper_protocol.h"

namespace QxHost {
namespace {

Deadline In(std::chrono::milliseconds time) { return std::chrono::steady_clock::now() + time; }

}  // namespace

HelperChannel::HelperChannel(HelperCommand command, HelperTimes times)
    : command_(std::move(command)), times_(times) {}

bool HelperChannel::Connect() {
  if (process_) return true;
  process_ = StartHelper(command_);
  if (!process_) return false;
  std::array<char, kHelperGreeting.size()> greeting{};
  const DWORD error = process_->Read(greeting.data(), greeting.size(), In(times_.start));
  const bool isGreeted =
      error == ERROR_SUCCESS && std::string_view(greeting.data(), greeting.size()) == kHelperGreeting;
  if (!isGreeted) process_.reset();
  return isGreeted;
}

Velmora::SDK::IHostPacketWriter* HelperChannel::CreateWriter() { return PacketWriter::Lend(); }

u32 HelperChannel::Send(s32 code, const void* data, u32 size) {
  if (!process_) return ERROR_BROKEN_PIPE;
  if (size > kMaxHelperBodyBytes || (size != 0 && !data)) return ERROR_INVALID_PARAMETER;
  return Exchange(code, std::string_view(static_cast<const char*>(data), size));
}

u32 HelperChannel::Exchange(s32 code, std::string_view body) {
  const Deadline deadline = In(times_.answer);
  std::array<char, HelperReply::kBytes> bytes{};
  DWORD error = process_->Write(EncodeHelperRequest({code, static_cast<u32>(body.size())}), deadline);
  if (error == ERROR_SUCCESS) error = process_->Write(body, deadline);
  if (error == ERROR_SUCCESS) error = process_->Read(bytes.data(), bytes.size(), deadline);
  const std::optional<HelperReply> reply = DecodeHelperReply(bytes);
  if (error == ERROR_SUCCESS && !reply) error = ERROR_INVALID_DATA;
  if (error != ERROR_SUCCESS) {
    // After an error the position in the helper's stream is unknown, so end the helper.
    process_.reset();
    return error;
  }
  return reply->isHandled ? reply->code : u32{ERROR_INVALID_FUNCTION};
}

void HelperChannel::Disconnect() {
  if (process_) process_->End(In(times_.end));
  process_.reset();
}

HelperCommand OwnHelper(const WString& modulePath) {
  return {OwnProgram(), {FromUtf8(kHelperArgument), modulePath}};
}

}  // namespace QxHost
