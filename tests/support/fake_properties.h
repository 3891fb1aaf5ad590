// The fake host's property definer and view refresh.
#pragma once

#include "frame/host/host_files.h"
#include "frame/host/host_property_definer.h"
#include "support/host_recorder.h"

// How the services are named where what is taken is counted.
inline constexpr char kPropertyDefinerService[] = "service 3100";
inline constexpr char kViewRefreshService[] = "service 3010";

// Its calls stand in the host's record: "definer.SetProvider(...)",
// "definer.Define(1, \"owner\", 110, 0x006F0070, 0x00640070, 0x00030100, 0)".
class FakePropertyDefiner final : public Velmora::SDK::IHostPropertyDefiner {
 public:
  explicit FakePropertyDefiner(HostRecorder& recorder) : recorder_(recorder) {}

  void SetProvider(const char* id) override;
  void Define(const Velmora::SDK::PropertyDefinition* definition) override;

 private:
  HostRecorder& recorder_;
};

// "refresh.AddFolder(\"C:\\\\view\\\\\")".
class FakeViewRefresh final : public Velmora::SDK::IHostViewRefresh {
 public:
  explicit FakeViewRefresh(HostRecorder& recorder) : recorder_(recorder) {}

  void AddFolder(const WCHAR* path) override;

 private:
  HostRecorder& recorder_;
};
