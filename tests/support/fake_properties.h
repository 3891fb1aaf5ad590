// The fake host's property definer and view refresh.
#pragma once

#include "frame/host/host_files.h"
#include "frame/host/host_property_definer.h"
#include "support/host_recorder.h"

// The names of the services in the count of objects in use.
inline constexpr char kPropertyDefinerService[] = "service 3100";
inline constexpr char kViewRefreshService[] = "service 3010";

// Its calls are recorded by the host's recorder: "definer.SetProvider(...)", "definer.Define(1, \"owner\",
// 110, 0x006F0070, 0x00640070, 0x00030100, 0)".
class FakePropertyDefiner final : public Velmora::SDK::IHostPropertyDefiner {
 public:
  explicit FakePropertyDefiner(HostRecorder& recorder) : recorder_(recorder) {}

  void SetProvider(const char* id) override;
  void Define(const Velmora::SDK::PropertyDefinition* definition) override;

 private:
  HostRecorder& recorder_;
};

// Recorded as "refresh.AddFolder(\"C:\\\\view\\\\\")".
class FakeViewRefresh final : public Velmora::SDK::IHostViewRefresh {
 public:
  explicit FakeViewRefresh(HostRecorder& recorder) : recorder_(recorder) {}

  void AddFolder(const WCHAR* path) override;

 private:
  HostRecorder& recorder_;
};
