#include "host/fake_module.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "frame/host/command_numbers.h"
#include "frame/host/extension_info.h"
#include "frame/host/file_properties.h"
#include "frame/host/plugin_base.h"

namespace QxHost {
namespace {

using namespace Velmora::SDK;

class FakePlugin final : public PluginBase {
 public:
  explicit FakePlugin(s32 index) : index_(std::to_string(index)) {}

  s32 OnRegister(IHostApp* hostApp) override {
    FakeModule::calls.push_back("register " + index_);
    return FakeModule::onRegister ? FakeModule::onRegister(*hostApp) : 1;
  }
  s32 OnStart(IHostApp* hostApp) override {
    FakeModule::calls.push_back("start " + index_);
    return PluginBase::OnStart(hostApp);
  }
  const char* GetExtensionId() override { return ""; }
  bool OnHostEvent(std::intptr_t source, s32 code) override {
    FakeModule::calls.push_back("event " + index_ + " " + std::to_string(source) + " " +
                                std::to_string(code));
    if (code < 0) throw std::runtime_error("bad event");
    return true;
  }
  s32 OnCommand(s32 number, std::intptr_t a, std::intptr_t b) override {
    FakeModule::calls.push_back("command " + index_ + " " + std::to_string(number) + " " + std::to_string(a) +
                                " " + std::to_string(b));
    return number != kCommandShutdown && FakeModule::onCommand ? FakeModule::onCommand(*host, number) : 0;
  }
  s32 OnCustomCommand(IHostCommandCall* call) override {
    FakeModule::calls.push_back("script " + index_ + " " + std::to_string(call->GetCommandId()));
    return FakeModule::onScript ? FakeModule::onScript(*host, *call) : 0;
  }

 private:
  std::string index_;
};

class FakeProperties final : public IFileProperties {
 public:
  const char* GetProviderId() override { return ""; }
  s32 RegisterProperties(IHostApp*) override {
    FakeModule::calls.push_back("properties");
    return 0;
  }
  bool Detach() override {
    FakeModule::calls.push_back("detach");
    return false;
  }
  bool Attach(u64 value) override {
    FakeModule::calls.push_back("attach " + std::to_string(value));
    return false;
  }
  bool ClearCache() override { return false; }
  bool Reserved1() override { return false; }
  bool GetPropertyValue(IHostFileItem*, WCHAR*, u16, u16) override { return false; }
  bool Reserved2() override { return false; }
  bool Reserved3() override { return false; }
  bool Reserved4() override { return false; }
  bool Reserved5() override { return false; }
  bool Reserved6() override { return false; }
  bool Reserved7() override { return false; }
};

FakePlugin fakePlugins[] = {FakePlugin(0), FakePlugin(1), FakePlugin(2)};
FakeProperties fakeProperties;

void* FakeCreate(s32 index) {
  FakeModule::calls.push_back("create " + std::to_string(index));
  if (index == 1) return static_cast<IFileProperties*>(&fakeProperties);
  return static_cast<IPluginInterface*>(&fakePlugins[index]);
}

bool FakeDelete(void*, s32 index) {
  FakeModule::calls.push_back("delete " + std::to_string(index));
  return true;
}

bool FakeInfo(u32 index, ExtensionInfo* info) {
  if (index >= FakeModule::extensionCount) return false;
  // A module may fill the fields completely, without a terminator.
  std::fill(std::begin(info->name), std::end(info->name), W('n'));
  std::fill(std::begin(info->version), std::end(info->version), 'v');
  std::fill(std::begin(info->id), std::end(info->id), static_cast<char>('a' + index % 26));
  info->moduleName[0] = W('M');
  info->hostBuild = 1;
  return true;
}

}  // namespace

void FakeModule::Reset() {
  calls.clear();
  extensionCount = 3;
  onCommand = nullptr;
  onRegister = nullptr;
  onScript = nullptr;
}

ModuleExports FakeModule::Exports() { return {FakeCreate, FakeDelete, FakeInfo}; }

}  // namespace QxHost
