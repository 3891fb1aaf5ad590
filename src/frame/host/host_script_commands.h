// Interfaces that declare script commands, and that of one call of a script command.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// The declaration of one script command.
class IHostCustomCommand {
 public:
  virtual void AddParameter(const char* name, u32 flags, const WCHAR* description) = 0;
  virtual void SetDescription(const WCHAR* text) = 0;

 protected:
  ~IHostCustomCommand() = default;
};

// A named set of script commands.
class IHostCustomCommandSet {
 public:
  // Returns null if the command cannot be declared.
  virtual IHostCustomCommand* AddCommand(const char* name, u32 number, u32 flags, u32 kind) = 0;
  virtual void Commit(u32 one) = 0;  // ends the registration
  virtual bool IsRegistered() = 0;   // whether the set already contains its commands

 protected:
  ~IHostCustomCommandSet() = default;
};

// One call of a script command, with its parameters and results.
class IHostCommandCall {
 public:
  virtual bool HasFlag(const char* name) = 0;           // whether the parameter was given
  virtual const WCHAR* GetValue(const char* name) = 0;  // null if it was not given
  virtual u32 GetCommandId() = 0;                       // the number passed to AddCommand
  virtual void SetResultCode(u32 code) = 0;
  virtual void SetResultText(const WCHAR* text) = 0;

 protected:
  ~IHostCommandCall() = default;
};

}  // namespace Velmora::SDK
