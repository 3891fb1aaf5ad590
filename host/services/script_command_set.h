// The script commands that an extension declares, with their parameters.
#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "frame/host/host_script_commands.h"
#include "platform/text.h"

namespace QxHost {

using Velmora::SDK::u32;

class DeclaredScriptCommand final : public Velmora::SDK::IHostCustomCommand {
 public:
  struct Parameter {
    std::string name;
    u32 flags;
    WString description;

    bool IsSwitch() const;
    bool IsRequired() const;
    // Returns the name of its value: TEXT or NUMBER; empty for a switch.
    std::string KindName() const;
  };

  DeclaredScriptCommand(std::string commandName, u32 commandNumber)
      : name(std::move(commandName)), number(commandNumber) {}

  void AddParameter(const char* parameter, u32 flags, const WCHAR* text) override {
    parameters.push_back({parameter ? parameter : "", flags, WString(ViewOf(text))});
  }
  void SetDescription(const WCHAR* text) override { description = ViewOf(text); }

  // Returns the parameter of this name, ignoring case, or null.
  const Parameter* Find(std::string_view parameter) const;

  std::string name;
  u32 number;
  WString description;
  std::deque<Parameter> parameters;
};

class ScriptCommandSet final : public Velmora::SDK::IHostCustomCommandSet {
 public:
  // Returns null if `name` is null or the set is closed.
  Velmora::SDK::IHostCustomCommand* AddCommand(const char* name, u32 number, u32, u32) override {
    if (!name || closed_) return nullptr;
    return &commands.emplace_back(name, number);
  }
  void Commit(u32) override { closed_ = true; }
  bool IsRegistered() override { return closed_; }

  // Returns the command of this name, ignoring case, or null.
  const DeclaredScriptCommand* Find(std::string_view name) const;

  std::deque<DeclaredScriptCommand> commands;  // in the order of declaration
  u32 owner = 0;  // index of the extension that filled the set, which gets the calls

 private:
  bool closed_ = false;
};

}  // namespace QxHost
