// The fake host's channel to the elevated helper: records what is sent and returns the reply that the test
// sets.
#pragma once

#include <functional>
#include <memory>

#include "frame/host/host_helper_channel.h"
#include "support/host_recorder.h"

class FakePacketWriter final : public Velmora::SDK::IHostPacketWriter {
 public:
  explicit FakePacketWriter(HostRecorder& recorder) : recorder_(recorder) {}

  void WriteU32(Velmora::SDK::u32 value) override;
  void WriteString(const WCHAR* text) override;
  const void* GetData() override { return this; }
  Velmora::SDK::u32 GetSize() override { return size_; }
  void Release() override;

 private:
  HostRecorder& recorder_;
  Velmora::SDK::u32 size_ = 0;  // the number of values
};

// Its calls are recorded by the host's recorder: "helper.Connect()", "writer.WriteU32(3)", "helper.Send(5004,
// 4)".
class FakeHelperChannel final : public Velmora::SDK::IHostHelperChannel {
 public:
  explicit FakeHelperChannel(HostRecorder& recorder) : recorder_(recorder), writer_(recorder) {}

  bool exists = false;          // whether the host has the service
  Velmora::SDK::u32 reply = 0;  // returned by each Send

  // The test can refuse these calls, like the operations of the host.
  bool Connect() override;
  Velmora::SDK::IHostPacketWriter* CreateWriter() override;
  Velmora::SDK::u32 Send(Velmora::SDK::s32 code, const void* data, Velmora::SDK::u32 size) override;
  void Disconnect() override;

 private:
  HostRecorder& recorder_;
  FakePacketWriter writer_;
  bool isConnected_ = false;
};
