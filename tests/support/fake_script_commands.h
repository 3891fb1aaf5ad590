// The fake host's script command set, and one call of a script command.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>

#include "frame/host/host_script_commands.h"
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

  bool registered = false;     // what IsRegistered returns
  std::string refusedCommand;  // AddCommand returns null for this command

  Velmora::SDK::IHostCustomCommand* AddCommand(const char* name, Velmora::SDK::u32 number,
                                               Velmora::SDK::u32 flags, Velmora::SDK::u32 kind) override;
  void Commit(Velmora::SDK::u32 one) override;
  bool IsRegistered() override;

 private:
  HostRecorder& recorder_;
  std::vector<std::unique_ptr<FakeCustomCommand>> commands_;
};

// A call with the parameters that the test passes. A value stays valid until the next operation of the call.
class FakeCommandCall final : public Velmora::SDK::IHostCommandCall {
 public:
  explicit FakeCommandCall(Velmora::SDK::u32 number, std::set<std::string> given = {})
      : switches(std::move(given)), number_(number) {}

  std::map<std::string, WString> values;
  std::set<std::string> switches;

  std::optional<Velmora::SDK::u32> resultCode;
  std::optional<WString> resultText;
  HostRecorder recorder;  // "HasFlag(NAME)", "GetValue(NAME)", the results

  bool HasFlag(const char* name) override;
  const WCHAR* GetValue(const char* name) override;
  Velmora::SDK::u32 GetCommandId() override;
  void SetResultCode(Velmora::SDK::u32 code) override;
  void SetResultText(const WCHAR* text) override;

 private:
  Velmora::SDK::u32 number_;
};
