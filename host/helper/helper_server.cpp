#include "host/helper/helper_server.h"

#include <exception>

#include "host/output/failures.h"
#include "host/output/terminal.h"
#include "host/system/module_loader.h"
#include "host/system/paths.h"
#include "host/system/shell_objects.h"

namespace QxHost {
namespace {

using Velmora::SDK::IHostHelperMessage;
using Velmora::SDK::IHostPacketReader;
using Velmora::SDK::IPluginInterface;

constexpr s32 kServedExtension = 0;

class HelperMessage final : public IHostHelperMessage {
 public:
  explicit HelperMessage(const std::string& body) : body_(body) {}

  HelperReply reply{.code = ERROR_GEN_FAILURE};  // the default if the module sets no reply

  const void* GetData() override { return body_.data(); }
  u32 GetSize() override { return static_cast<u32>(body_.size()); }
  void SetReply(u32 success, u32 code, u32, u32) override {
    reply.success = success;
    reply.code = code;
  }
  IHostPacketReader* CreateReader() override { return PacketReader::Lend(); }

 private:
  const std::string& body_;
};

// Owns an extension object of the module.
class OwnedExtension {
 public:
  explicit OwnedExtension(const ModuleExports& exports)
      : exports_(exports), object_(exports.create(kServedExtension)) {
    if (!object_) throw ModuleFailure("the module did not create its extension");
  }
  OwnedExtension(const OwnedExtension&) = delete;
  OwnedExtension& operator=(const OwnedExtension&) = delete;
  ~OwnedExtension() { exports_.destroy(object_, kServedExtension); }

  IPluginInterface& Get() const { return *static_cast<IPluginInterface*>(object_); }

 private:
  ModuleExports exports_;
  void* object_;
};

void Serve(const std::string& module) {
  const std::optional<WString> path = FullPathOf(PathFromUtf8(module));
  if (!path) throw BadCall("helper: \"" + module + "\" is not a path");
  const ShellObjects shellObjects;
  // The extension is neither registered nor started: in this process it has no host.
  const OwnedExtension extension(LoadModule(*path));
  if (!ServeHelperMessages(extension.Get(), {ReadStandardInputBytes, WriteStandardOutput})) {
    throw BadCall("helper: the input is not a message");
  }
}

}  // namespace

HelperReply AnswerHelperMessage(IPluginInterface& extension, s32 code, const std::string& body) {
  HelperMessage message(body);
  message.reply.isHandled = extension.OnHelperMessage(code, &message) == 1;
  return message.reply;
}

bool ServeHelperMessages(IPluginInterface& extension, const HelperStreams& streams) {
  if (!streams.write(kHelperGreeting)) return false;
  for (;;) {
    std::array<char, HelperRequestHeader::kBytes> bytes{};
    const std::size_t size = streams.read(bytes.data(), bytes.size());
    if (size == 0) return true;
    if (size != bytes.size()) return false;
    const std::optional<HelperRequestHeader> header = DecodeHelperRequest(bytes);
    if (!header) return false;
    std::string body(header->bodySize, '\0');
    if (streams.read(body.data(), body.size()) != body.size()) return false;
    if (!streams.write(EncodeHelperReply(AnswerHelperMessage(extension, header->code, body)))) return false;
  }
}

int RunHelper(const std::vector<std::string>& arguments) {
  const auto tell = [](const char* text) { WriteStandardError(std::string("qxhost: ") + text + "\n"); };
  try {
    if (arguments.size() != 1) throw BadCall("helper: the host itself starts this verb");
    Serve(arguments.front());
    return kExitHandled;
  } catch (const BadCall& failure) {
    tell(failure.what());
    return kExitBadCall;
  } catch (const std::exception& failure) {
    tell(failure.what());
  } catch (...) {
    tell("helper: the module threw an unknown exception");
  }
  return kExitModuleFailed;
}

}  // namespace QxHost
