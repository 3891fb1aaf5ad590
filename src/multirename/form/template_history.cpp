#include "multirename/form/template_history.h"

#include <array>

#include "frame/host/host_objects.h"

namespace Velmora::SDK {

namespace {

constexpr u32 kTemplateTextSize = 1025;  // with the terminator; a compilation uses as much
constexpr u32 kMaxTemplates = 20;

}  // namespace

std::vector<WString> LoadTemplateHistory(IHostApp& host, const WCHAR* key) {
  std::vector<WString> texts;
  IHostConfig* const config = host.GetConfig();
  if (!config) return texts;
  const HostObject<IHostStringList> list(host.CreateStringList());
  if (!list) return texts;
  config->LoadStringList(key, list.Get());
  std::array<WCHAR, kTemplateTextSize> buffer = {};
  for (u32 index = 0, count = list->GetCount(); index < count; ++index) {
    if (list->GetString(index, buffer.data(), kTemplateTextSize)) texts.emplace_back(buffer.data());
  }
  return texts;
}

void SaveTemplateHistory(IHostApp& host, const WCHAR* key, const WString& current, const WString& standard,
                         const std::vector<WString>& offered) {
  IHostConfig* const config = host.GetConfig();
  if (!config) return;
  const HostObject<IHostStringList> list(host.CreateStringList());
  if (!list) return;
  const auto add = [&](const WString& text) {
    if (text != standard && !list->Contains(text.c_str(), 0)) list->Add(text.c_str());
  };
  add(current);
  for (const WString& text : offered) add(text);
  list->Finish(1);
  config->SaveStringList(key, list.Get(), kMaxTemplates);
}

}  // namespace Velmora::SDK
