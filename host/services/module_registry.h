// The modules that the host knows, by id: those it has loaded, and one of its own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/host/host_types.h"

namespace QxHost {

// A module of the host itself, whose menu stands in the menu of the others.
inline constexpr std::string_view kSystemModuleId = "a4c2985d9c7e4035a3221cfd600171d0";

class ModuleRegistry {
 public:
  ModuleRegistry() { Add(std::string(kSystemModuleId), std::string(kSystemModuleId)); }

  // Makes a module known; `section` is its section of the language table.
  void Add(std::string id, std::string section) { modules_.push_back({std::move(id), std::move(section)}); }

  // The module's number: not zero, and its low 16 bits are the module's alone. 0 for an id that is not known.
  // Letter case does not count.
  Velmora::SDK::u32 NumberOf(std::string_view id) const;

  // The section of a number, of which the low 16 bits count; the common one for 0. Empty for no module.
  std::string_view SectionOf(Velmora::SDK::u32 number) const;

 private:
  struct Module {
    std::string id;
    std::string section;
  };
  std::vector<Module> modules_;
};

}  // namespace QxHost
