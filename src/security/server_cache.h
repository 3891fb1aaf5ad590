// Caches the servers that drive letters are mapped to, because a network query may block for a long time. A
// known server is not queried again until Clear. Drives without a server are not cached, and several threads
// may query the same unknown drive at once.
#pragma once

#include <cstddef>
#include <map>
#include <mutex>
#include <optional>
#include <span>

#include "platform/text.h"

// The cache of the process. May be used from any thread.
class ServerCache {
 public:
  static ServerCache& Instance();

  // Returns the server of a drive letter; std::nullopt if it is not known.
  std::optional<WString> Find(WCHAR drive);
  // Stores the server of a drive letter.
  void Store(WCHAR drive, const WString& server);
  // Removes all servers.
  void Clear();

 private:
  std::mutex mutex_;
  std::map<WCHAR, WString> servers_;
};

// Returns the name in a buffer that WNetGetUniversalNameW has filled: a pointer, followed by the text.
// Returns the empty text if the pointer is outside the buffer; a text without a terminator ends with the
// buffer.
WString UniversalNameIn(std::span<const std::byte> buffer);

// Returns the server of a name such as "\\server\share\a"; std::nullopt for a name of fewer than four
// characters, without two backslashes at the beginning, or without a third one.
std::optional<WString> ServerOfUniversalName(WStringView name);
