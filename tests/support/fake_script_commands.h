// The fake host's script command set.
#pragma once

#include <memory>

#include "frame/services/host_script_commands.h"
#include "support/host_recorder.h"

class FakeCustomCommand final : public Velmora::SDK::IHostCustomCommand {
 public:
  FakeCustomCommand(HostRecorder& recorder, std::string name) : recorder_(recorder), name_(std::move(name)) {}

  void AddParameter(const char* name, Velmora::SDK::u32 flags, const WCHAR* description) override;
  void SetDescription(const WCHAR* text) override;

 private:
  HostRecorder& recorder_;
  std::string name_;
};

class FakeCommandSet final : public Velmora::SDK::IHostCustomCommandSet {
 public:
  explicit FakeCommandSet(HostRecorder& recorder) : recorder_(recorder) {}

  bool registered = false;     // the answer of IsRegistered
  std::string refusedCommand;  // AddCommand answers null for it

  Velmora::SDK::IHostCustomCommand* AddCommand(const char* name, Velmora::SDK::u32 number,
                                               Velmora::SDK::u32 flags, Velmora::SDK::u32 kind) override;
  void Commit(Velmora::SDK::u32 one) override;
  bool IsRegistered() override;

 private:
  HostRecorder& recorder_;
  std::vector<std::unique_ptr<FakeCustomCommand>> commands_;
};
