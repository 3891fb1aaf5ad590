// Measures each quick rename transform with one name.
#include <benchmark/benchmark.h>

#include "filetools/name_transforms.h"

namespace {

// An item with only a name: the recorder of the fake items would cost more than the transform.
class NamedItem final : public Velmora::SDK::IHostFileItem {
 public:
  explicit NamedItem(WString name) : name_(std::move(name)), dot_(name_.rfind(W('.'))) {}

  const WCHAR* GetName(WCHAR* buffer, Velmora::SDK::u32 size) override { return Fill(buffer, size, name_); }
  void GetBaseName(WCHAR* buffer, Velmora::SDK::u32 size) override {
    Fill(buffer, size, View().substr(0, dot_));
  }
  void GetExtension(WCHAR* buffer, Velmora::SDK::u32 size, Velmora::SDK::u32 flag) override {
    Fill(buffer, size, View().substr(dot_ + flag));
  }
  const WCHAR* GetFolderPath(WCHAR*, Velmora::SDK::u32) override { return W(""); }
  void GetParentPath(WCHAR*, Velmora::SDK::u32) override {}
  const WCHAR* GetFullPath(WCHAR*, Velmora::SDK::u32) override { return W(""); }
  void GetTagText(WCHAR*, Velmora::SDK::u32) override {}
  const WCHAR* GetExtensionText(Velmora::SDK::u32) override { return W(""); }
  Velmora::SDK::u32 GetAttributes() override { return FILE_ATTRIBUTE_ARCHIVE; }
  Velmora::SDK::s64 GetRowImage(Velmora::SDK::u32) override { return 0; }
  bool IsFolder() override { return false; }
  Velmora::SDK::s32 GetRemoteLevel() override { return 0; }
  int GetStoredProperty(Velmora::SDK::u32, Velmora::SDK::u32, void*) override { return 0; }
  void ClearStoredProperty(Velmora::SDK::u32) override {}

 private:
  WStringView View() const { return name_; }
  static const WCHAR* Fill(WCHAR* buffer, Velmora::SDK::u32 size, WStringView text) {
    CopyTerminated(buffer, size, text);
    return buffer;
  }

  WString name_;
  std::size_t dot_;
};

void Transform(benchmark::State& state) {
  const NameTransform transform = FindNameTransform(static_cast<Velmora::SDK::s32>(state.range(0)));
  NamedItem item(W("holiday_in_the-mountains 2026.photo 0001.JPEG"));
  FileItemEntry entry = {&item, {}};
  for (auto _ : state) benchmark::DoNotOptimize(transform(entry));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(Transform)->ArgName("command")->Arg(30000)->Arg(30002)->Arg(30003)->Arg(30007)->Arg(30041)->Arg(
    30050);

}  // namespace
