// The helper's side of the channel: an instance of the module that does what the host sends it.
#pragma once

#include <functional>

#include "frame/host/plugin_interface.h"
#include "host/helper/helper_protocol.h"

namespace QxHost {

// The road to the host.
struct HelperStreams {
  // As many bytes as asked for; fewer at the end of the stream alone. Answers how many.
  std::function<std::size_t(char* buffer, std::size_t size)> read;
  std::function<bool(std::string_view bytes)> write;  // false if not all could be written
};

// The reply of the extension to one message. Throws what the extension throws.
HelperReply AnswerHelperMessage(Velmora::SDK::IPluginInterface& extension, s32 code, const std::string& body);

// Greets, and answers messages until the stream ends. False if it ends in the midst of one, or is no stream
// of messages.
bool ServeHelperMessages(Velmora::SDK::IPluginInterface& extension, const HelperStreams& streams);

// Loads the module that the arguments behind kHelperArgument name and serves it over the standard streams.
// Answers the exit status; failures are told on standard error.
int RunHelper(const std::vector<std::string>& arguments);

}  // namespace QxHost
