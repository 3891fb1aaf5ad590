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
