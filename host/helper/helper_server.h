// The helper's end of the channel: an instance of the module that handles the messages of the host.
#pragma once

#include <functional>

#include "frame/host/plugin_interface.h"
#include "host/helper/helper_protocol.h"

namespace QxHost {

// The connection to the host.
struct HelperStreams {
  // Reads `size` bytes, fewer only at the end of the stream. Returns their number.
  std::function<std::size_t(char* buffer, std::size_t size)> read;
  std::function<bool(std::string_view bytes)> write;  // false if not all could be written
};

// Returns the reply of the extension to one message. Exceptions of the extension propagate.
HelperReply AnswerHelperMessage(Velmora::SDK::IPluginInterface& extension, s32 code, const std::string& body);

// Sends the greeting and replies to messages until the stream ends. Returns false if the stream ends within a
// message or does not follow the protocol.
bool ServeHelperMessages(Velmora::SDK::IPluginInterface& extension, const HelperStreams& streams);

// Loads the module named by `arguments`, those after kHelperArgument, and serves messages over the standard
// streams. Returns the exit status; reports failures on standard error.
int RunHelper(const std::vector<std::string>& arguments);

}  // namespace QxHost
