// One call of a script command, from the arguments of the command line.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/services/script_command_set.h"

namespace QxHost {

class ScriptCall final : public Velmora::SDK::IHostCommandCall {
 public:
  // Each argument is KEY=VALUE, or KEY alone for a switch; the case of a key does not matter. The values of
  // FILE, LNKSRC and LNKTRG are made full paths. Throws BadCall, which names the parameter, for a key that
  // the command does not have or that is given twice, for a value where none belongs or none where one does,
  // for a path that is none, and for a required parameter that is missing. The command outlives the call.
  ScriptCall(const DeclaredScriptCommand& command, const std::vector<std::string>& arguments);
  ScriptCall(const ScriptCall&) = delete;
  ScriptCall& operator=(const ScriptCall&) = delete;

  // Whether the command has a parameter of this name, as it is declared, that was not given.
  bool Misses(const std::string& name) const;

  bool HasFlag(const char* name) override;
  const WCHAR* GetValue(const char* name) override;
  u32 GetCommandId() override { return command_.number; }
  void SetResultCode(u32 code) override { resultCode = code; }
  void SetResultText(const WCHAR* text) override { resultText = ViewOf(text); }

  // What the command has set; nothing if it has not.
  std::optional<u32> resultCode;
  std::optional<WString> resultText;

 private:
  using Parameter = DeclaredScriptCommand::Parameter;

  void Give(const std::string& argument);

  const DeclaredScriptCommand& command_;
  std::map<std::string, std::optional<WString>> given_;  // by the declared name; no value for a switch
};

}  // namespace QxHost
