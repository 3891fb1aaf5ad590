// One call of a script command, made from the arguments of the command line.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/services/script_command_set.h"

namespace QxHost {

class ScriptCall final : public Velmora::SDK::IHostCommandCall {
 public:
  // Each argument is KEY=VALUE, or only KEY for a switch; the case of keys is ignored. The values of FILE,
  // LNKSRC and LNKTRG are made full paths. Throws BadCall, with the name of the parameter, for a key that is
  // unknown or given twice, for a switch with a value, for a missing value, for an invalid path, and for a
  // missing required parameter. `command` must outlive the object.
  ScriptCall(const DeclaredScriptCommand& command, const std::vector<std::string>& arguments);
  ScriptCall(const ScriptCall&) = delete;
  ScriptCall& operator=(const ScriptCall&) = delete;

  // Returns whether the command declares a parameter of this name and it was not given.
  bool Misses(const std::string& name) const;

  bool HasFlag(const char* name) override;
  const WCHAR* GetValue(const char* name) override;
  u32 GetCommandId() override { return command_.number; }
  void SetResultCode(u32 code) override { resultCode = code; }
  void SetResultText(const WCHAR* text) override { resultText = ViewOf(text); }

  // The results that the command has set.
  std::optional<u32> resultCode;
  std::optional<WString> resultText;

 private:
  using Parameter = DeclaredScriptCommand::Parameter;

  void Give(const std::string& argument);

  const DeclaredScriptCommand& command_;
  std::map<std::string, std::optional<WString>> given_;  // by declared name; std::nullopt for a switch
};

}  // namespace QxHost
