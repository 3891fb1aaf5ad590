#include "host/services/script_call.h"

#include <algorithm>
#include <iterator>

#include "host/output/failures.h"
#include "host/output/nearest_name.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

// Parameters whose values are paths of files and folders.
constexpr std::string_view kPathParameters[] = {"FILE", "LNKSRC", "LNKTRG"};

bool IsPathParameter(std::string_view name) {
  return std::ranges::find(kPathParameters, name) != std::end(kPathParameters);
}

WString ValueOf(const std::string& name, const std::string& text) {
  const WString value = PathFromUtf8(text);
  if (!IsPathParameter(name)) return value;
  const std::optional<WString> fullPath = FullPathOf(value);
  if (!fullPath) throw BadCall(name + ": \"" + text + "\" is not a path");
  return *fullPath;
}

}  // namespace

ScriptCall::ScriptCall(const DeclaredScriptCommand& command, const std::vector<std::string>& arguments)
    : command_(command) {
  for (const std::string& argument : arguments) Give(argument);
  for (const Parameter& parameter : command.parameters) {
    if (parameter.IsRequired() && !given_.contains(parameter.name)) {
      throw BadCall(command.name + " needs " + parameter.name + "=" + parameter.KindName() + ": " +
                    ToUtf8(parameter.description));
    }
  }
}

void ScriptCall::Give(const std::string& argument) {
  const std::size_t equals = argument.find('=');
  const std::string key = argument.substr(0, equals);
  const Parameter* const parameter = command_.Find(key);
  if (!parameter) {
    std::vector<std::string_view> names;
    for (const Parameter& declared : command_.parameters) names.push_back(declared.name);
    throw BadCall(command_.name + " has no parameter \"" + key + "\"; `qxhost script " + command_.name +
                  " --list` shows them" + DidYouMean(key, names));
  }
  const std::string& name = parameter->name;
  const bool hasValue = equals != std::string::npos;
  if (parameter->IsSwitch() && hasValue) throw BadCall(name + " is a switch: it takes no value");
  if (!parameter->IsSwitch() && !hasValue) {
    throw BadCall(name + " takes a value: " + name + "=" + parameter->KindName());
  }
  std::optional<WString> value;
  if (hasValue) value = ValueOf(name, argument.substr(equals + 1));
  if (!given_.emplace(name, std::move(value)).second) throw BadCall(name + " is given twice");
}

bool ScriptCall::Misses(const std::string& name) const {
  return command_.Find(name) && !given_.contains(name);
}

bool ScriptCall::HasFlag(const char* name) { return name && given_.contains(name); }

const WCHAR* ScriptCall::GetValue(const char* name) {
  const auto found = name ? given_.find(name) : given_.end();
  return found != given_.end() && found->second ? found->second->c_str() : nullptr;
}

}  // namespace QxHost
