// A message to the elevated helper with a payload given by the test. Records all calls.
#pragma once

#include <optional>
#include <variant>

#include "frame/host/host_helper_channel.h"
#include "support/host_recorder.h"

// The values of a payload, in order.
using PayloadValue = std::variant<Velmora::SDK::u32, WString>;

class FakePacketReader final : public Velmora::SDK::IHostPacketReader {
 public:
  FakePacketReader(HostRecorder& recorder, std::vector<PayloadValue> payload)
      : recorder_(recorder), payload_(std::move(payload)) {}

  void Attach(const void* data, Velmora::SDK::u32 size) override;
  // Returns false and leaves `*text` or `*value` unchanged if the next value has another type.
  bool ReadString(const WCHAR** text) override;
  bool ReadU32(Velmora::SDK::u32* value) override;
  void Release() override;

 private:
  const PayloadValue* Next();

  HostRecorder& recorder_;
  std::vector<PayloadValue> payload_;
  std::size_t next_ = 0;
};

class FakeHelperMessage final : public Velmora::SDK::IHostHelperMessage {
 public:
  explicit FakeHelperMessage(std::vector<PayloadValue> payload = {})
      : reader_(recorder, std::move(payload)) {}

  HostRecorder recorder;  // "GetData()", "reader.ReadU32()", "SetReply(1, 0, 0, 0)"
  bool givesReader = true;

  const void* GetData() override;
  Velmora::SDK::u32 GetSize() override;
  void SetReply(Velmora::SDK::u32 success, Velmora::SDK::u32 code, Velmora::SDK::u32 zero,
                Velmora::SDK::u32 alsoZero) override;
  Velmora::SDK::IHostPacketReader* CreateReader() override;

 private:
  FakePacketReader reader_;
};
