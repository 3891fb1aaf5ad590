// Service 3100: receives the columns that an extension declares.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "frame/host/host_property_definer.h"
#include "host/services/module_registry.h"

namespace QxHost {

using Velmora::SDK::u32;

// A declared column.
struct DeclaredColumn {
  u32 owner = 0;   // index of the extension
  u32 module = 0;  // number of the module that it was declared for, under which its values are stored
  u32 number = 0;
  WString name;
  WString heading;  // its display text
  bool isNumber = false;
};

class PropertyDefiner final : public Velmora::SDK::IHostPropertyDefiner {
 public:
  using TextOf = std::function<WString(Velmora::SDK::TextId)>;

  // Appends columns to `columns`. `modules` and `columns` must outlive the object.
  PropertyDefiner(u32 owner, const ModuleRegistry& modules, TextOf textOf,
                  std::vector<DeclaredColumn>& columns)
      : owner_(owner), modules_(modules), textOf_(std::move(textOf)), columns_(columns) {}

  void SetProvider(const char* id) override;
  // Ignores a definition without a name.
  void Define(const Velmora::SDK::PropertyDefinition* definition) override;

 private:
  u32 owner_;
  const ModuleRegistry& modules_;
  TextOf textOf_;
  std::vector<DeclaredColumn>& columns_;
  u32 module_ = 0;
};

}  // namespace QxHost
