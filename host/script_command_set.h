// The script commands that extensions declare, with their parameters.
#pragma once

#include <deque>
#include <string>

#include "frame/services/host_script_commands.h"
#include "platform/text.h"

namespace QxHost {

using Velmora::SDK::u32;

class DeclaredScriptCommand final : public Velmora::SDK::IHostCustomCommand {
 public:
  struct Parameter {
    std::string name;
    u32 flags;
    WString description;
  };

  DeclaredScriptCommand(std::string commandName, u32 commandNumber)
      : name(std::move(commandName)), number(commandNumber) {}

  void AddParameter(const char* parameter, u32 flags, const WCHAR* text) override {
    parameters.push_back({parameter ? parameter : "", flags, WString(ViewOf(text))});
  }
  void SetDescription(const WCHAR* text) override { description = ViewOf(text); }

  std::string name;
  u32 number;
  WString description;
  std::deque<Parameter> parameters;
};

class ScriptCommandSet final : public Velmora::SDK::IHostCustomCommandSet {
 public:
  // Null without a name, and once the set is closed.
  Velmora::SDK::IHostCustomCommand* AddCommand(const char* name, u32 number, u32, u32) override {
    if (!name || closed_) return nullptr;
    return &commands.emplace_back(name, number);
  }
  void Commit(u32) override { closed_ = true; }
  bool IsRegistered() override { return closed_; }

  std::deque<DeclaredScriptCommand> commands;  // in the order of their declaration

 private:
  bool closed_ = false;
};

}  // namespace QxHost
