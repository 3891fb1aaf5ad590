// The modules that the host knows, by id: those that it has loaded, and one of its own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/host/host_types.h"

namespace QxHost {

// The id of the host's own module, to whose menu other modules add their entries.
inline constexpr std::string_view kSystemModuleId = "a4c2985d9c7e4035a3221cfd600171d0";

class ModuleRegistry {
 public:
  ModuleRegistry() { Add(std::string(kSystemModuleId), std::string(kSystemModuleId)); }

  // Registers a module. `section` is its section of the language table.
  void Add(std::string id, std::string section) { modules_.push_back({std::move(id), std::move(section)}); }

  // Returns the number of a module, which is not zero and has unique low 16 bits; 0 for an unknown id. Letter
  // case is ignored.
  Velmora::SDK::u32 NumberOf(std::string_view id) const;

  // Returns the language section of a module number, by its low 16 bits; the common section for 0; empty for
  // an unknown number.
  std::string_view SectionOf(Velmora::SDK::u32 number) const;

 private:
  struct Module {
    std::string id;
    std::string section;
  };
  std::vector<Module> modules_;
};

}  // namespace QxHost
