// The servers that drive letters are mapped to, as far as they are known in this process. Asking the network
// may block for long, so a letter whose server is known is not asked for again until Clear. Threads that come
// to one that is not known each ask, and so does every call for one that has no server.
#pragma once

#include <cstddef>
#include <map>
#include <mutex>
#include <optional>
#include <span>

#include "platform/text.h"

// May be used from any thread.
class ServerCache {
 public:
  static ServerCache& Instance();

  std::optional<WString> Find(WCHAR drive);
  void Store(WCHAR drive, const WString& server);
  void Clear();

 private:
  std::mutex mutex_;
  std::map<WCHAR, WString> servers_;
};

// The name in a buffer that WNetGetUniversalNameW has filled: a pointer, and the text somewhere after it.
// Empty if it does not lie in the buffer; one without a zero ends with the buffer.
WString UniversalNameIn(std::span<const std::byte> buffer);

// The server of a name such as "\\server\share\a". Nothing for one of fewer than four characters, one that
// does not begin with two backslashes, and one without a third.
std::optional<WString> ServerOfUniversalName(WStringView name);
