#include "support/fake_script_commands.h"

using namespace Velmora::SDK;

void FakeCustomCommand::AddParameter(const char* name, u32 flags, const WCHAR* description) {
  recorder_.Record(name_ + ".AddParameter(" + name + ", " + std::to_string(flags) + ", " +
                   Quoted(description) + ")");
}

void FakeCustomCommand::SetDescription(const WCHAR* text) {
  recorder_.Record(name_ + ".SetDescription(" + Quoted(text) + ")");
}

IHostCustomCommand* FakeCommandSet::AddCommand(const char* name, u32 number, u32 flags, u32 kind) {
  const bool allowed = recorder_.Allow(std::string("set.AddCommand(") + name + ", " + std::to_string(number) +
                                       ", " + Hex(flags) + ", " + std::to_string(kind) + ")");
  if (!allowed || name == refusedCommand) return nullptr;
  commands_.push_back(std::make_unique<FakeCustomCommand>(recorder_, name));
  return commands_.back().get();
}

void FakeCommandSet::Commit(u32 one) { recorder_.Record("set.Commit(" + std::to_string(one) + ")"); }

bool FakeCommandSet::IsRegistered() {
  recorder_.Record("set.IsRegistered()");
  return registered;
}

// A parameter with a value also counts as given.
bool FakeCommandCall::HasFlag(const char* name) {
  recorder.Record(std::string("HasFlag(") + name + ")");
  return switches.count(name) != 0 || values.count(name) != 0;
}

const WCHAR* FakeCommandCall::GetValue(const char* name) {
  recorder.Record(std::string("GetValue(") + name + ")");
  const auto found = values.find(name);
  return found != values.end() ? recorder.Lend(found->second) : nullptr;
}

u32 FakeCommandCall::GetCommandId() {
  recorder.Record("GetCommandId()");
  return number_;
}

void FakeCommandCall::SetResultCode(u32 code) {
  recorder.Record("SetResultCode(" + std::to_string(code) + ")");
  resultCode = code;
}

void FakeCommandCall::SetResultText(const WCHAR* text) {
  recorder.Record("SetResultText(" + Quoted(text) + ")");
  resultText = WString(ViewOf(text));
}
