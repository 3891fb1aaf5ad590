#include "window/module_window.h"

#include <thread>

#include "frame/host/command_numbers.h"
#include "frame/host/plugin_interface.h"

namespace {

using namespace Velmora::SDK;

constexpr s32 kMultiRenameOfModule = 2;

QxHost::ModuleExports builtModule;
IHostApp* hostOfModule = nullptr;

// Forwards all calls to the module's own object.
class KnownPlugin final : public IPluginInterface {
 public:
  explicit KnownPlugin(IPluginInterface* plugin) : plugin_(*plugin) {}
  void* Object() const { return &plugin_; }

  s32 OnRegister(IHostApp* host) override { return plugin_.OnRegister(host); }
  u32 GetExtensionKind() override { return plugin_.GetExtensionKind(); }
  s32 OnStart(IHostApp* host) override {
    hostOfModule = host;
    return plugin_.OnStart(host);
  }
  const char* GetExtensionId() override { return plugin_.GetExtensionId(); }
  bool OnHostEvent(std::intptr_t source, s32 code) override { return plugin_.OnHostEvent(source, code); }
  s32 OnCommand(s32 number, std::intptr_t a, std::intptr_t b) override {
    return plugin_.OnCommand(number, a, b);
  }
  s32 Reserved1() override { return plugin_.Reserved1(); }
  s32 OnCustomCommand(IHostCommandCall* call) override { return plugin_.OnCustomCommand(call); }
  s32 OnHelperMessage(s32 code, IHostHelperMessage* message) override {
    return plugin_.OnHelperMessage(code, message);
  }
  s32 Reserved2() override { return plugin_.Reserved2(); }
  s32 Reserved3() override { return plugin_.Reserved3(); }
  s32 OnShutdown(std::intptr_t unread) override { return plugin_.OnShutdown(unread); }
  s32 Reserved4() override { return plugin_.Reserved4(); }
  s32 Reserved5() override { return plugin_.Reserved5(); }
  s32 Reserved6() override { return plugin_.Reserved6(); }

 private:
  IPluginInterface& plugin_;
};

void* CreateKnown(s32 index) {
  void* const object = builtModule.create(index);
  if (index != kMultiRenameOfModule || !object) return object;
  return static_cast<IPluginInterface*>(new KnownPlugin(static_cast<IPluginInterface*>(object)));
}

bool DeleteKnown(void* object, s32 index) {
  if (index != kMultiRenameOfModule) return builtModule.destroy(object, index);
  const std::unique_ptr<KnownPlugin> known(static_cast<KnownPlugin*>(static_cast<IPluginInterface*>(object)));
  return builtModule.destroy(known->Object(), index);
}

}  // namespace

QxHost::ModuleExports ExportsOfBuiltModule() {
  builtModule = QxHost::LoadModule(QxHost::ProgramFolder() + W("\\QXUtils.dll"));
  return {CreateKnown, DeleteKnown, builtModule.getExtensionInfo};
}

IHostApp& HostOfBuiltModule() { return *hostOfModule; }

void ModuleWindow::Use(const std::function<void(WindowUser&)>& user) {
  std::thread acting([&user] {
    try {
      WindowUser hands;
      try {
        user(hands);
      } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
      }
      if (hands.IsClosed()) return;
      // The user's last action may still be closing the window.
      const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
      while (!hands.IsClosed() && std::chrono::steady_clock::now() < end) Sleep(10);
      if (hands.IsClosed()) return;
      ADD_FAILURE() << "the window was left open";
      hands.Close();
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
  });
  EXPECT_EQ(hosted_.extensions->RunWindow(kCommandMultiRename), 1);
  acting.join();
}
