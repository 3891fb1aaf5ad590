// The channel to the elevated helper (service 3250) and its messages. A reader reads values in the order in
// which the writer wrote them.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// Writes the values of a message. The data is valid until the next write or the release.
class IHostPacketWriter {
 public:
  virtual void WriteU32(u32 value) = 0;
  virtual void WriteString(const WCHAR* text) = 0;
  virtual const void* GetData() = 0;
  virtual u32 GetSize() = 0;  // bytes
  virtual void Release() = 0;

 protected:
  ~IHostPacketWriter() = default;
};

// Reads the values of a message. A text is valid until the reader is released.
class IHostPacketReader {
 public:
  virtual void Attach(const void* data, u32 size) = 0;
  virtual bool ReadString(const WCHAR** text) = 0;
  virtual bool ReadU32(u32* value) = 0;
  virtual void Release() = 0;

 protected:
  ~IHostPacketReader() = default;
};

// The channel in the process of the host.
class IHostHelperChannel {
 public:
  virtual bool Connect() = 0;  // starts the helper if necessary
  virtual IHostPacketWriter* CreateWriter() = 0;
  virtual u32 Send(s32 code, const void* data, u32 size) = 0;  // blocks; returns the code of the reply
  virtual void Disconnect() = 0;                               // also after a failed Connect

 protected:
  ~IHostHelperChannel() = default;
};

// The argument of OnHelperMessage in the helper process.
class IHostHelperMessage {
 public:
  virtual const void* GetData() = 0;
  virtual u32 GetSize() = 0;
  virtual void SetReply(u32 success, u32 code, u32 zero, u32 alsoZero) = 0;
  virtual IHostPacketReader* CreateReader() = 0;

 protected:
  ~IHostHelperMessage() = default;
};

}  // namespace Velmora::SDK
