// A message to the elevated helper that counts whatever is done with it.
#pragma once

#include "frame/services/host_helper_channel.h"

class FakeHelperMessage final : public Velmora::SDK::IHostHelperMessage {
 public:
  int uses = 0;

  const void* GetData() override { return Use(nullptr); }
  Velmora::SDK::u32 GetSize() override { return Use(0u); }
  void SetReply(Velmora::SDK::u32, Velmora::SDK::u32, Velmora::SDK::u32, Velmora::SDK::u32) override {
    ++uses;
  }
  Velmora::SDK::IHostPacketReader* CreateReader() override { return Use(nullptr); }

 private:
  template <typename T>
  T Use(T answer) {
    ++uses;
    return answer;
  }
};
