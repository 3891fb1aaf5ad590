#include "host/rename/rename_properties.h"

#include <algorithm>

#include "host/output/nearest_name.h"
#include "multirename/rules/rename_tag.h"

namespace QxHost {
namespace {

using Velmora::SDK::RenameTag;

// Returns the names of the properties in the templates, each once.
std::vector<WString> PropertiesInTemplates(const RenameRules& rules) {
  std::vector<WString> names;
  for (const WString& text : {rules.filename, rules.extension}) {
    for (const RenameTag& tag : Velmora::SDK::ParseTemplate(text)) {
      if (tag.kind != Velmora::SDK::TagProperty) continue;
      if (std::ranges::find(names, tag.text) == names.end()) names.push_back(tag.text);
    }
  }
  return names;
}

}  // namespace

bool UsesProperty(const RenameRules& rules) { return !PropertiesInTemplates(rules).empty(); }

// The engine's worker requests the values while the main thread waits for it, so only one thread at a time
// uses the tree of items.
void AddColumnsAsProperties(Run& run) {
  Extensions& extensions = run.LoadExtensions();
  extensions.Start();
  Shared& shared = run.Host();
  const std::vector<ColumnHead> heads = extensions.ColumnHeads();
  for (std::size_t index = 0; index < heads.size(); ++index) {
    shared.properties.Add(
        {heads[index].name, heads[index].heading,
         [&shared, &extensions, index](const WString& fullPath) -> std::optional<PropertyValue> {
           FileItem* const item = shared.items.Find(fullPath);
           std::optional<WString> value = item ? extensions.ColumnValueAt(*item, index) : std::nullopt;
           if (!value) return std::nullopt;
           return PropertyValue(std::move(*value));
         }});
  }
}

void WarnOfUnknownProperties(Shared& shared, const RenameRules& rules) {
  std::vector<std::string> known;
  for (const FileProperty& property : shared.properties.All()) known.push_back(ToUtf8(property.name));
  const std::vector<std::string_view> views(known.begin(), known.end());
  for (const WString& name : PropertiesInTemplates(rules)) {
    if (shared.properties.Has(name)) continue;
    shared.output.Problem("note: there is no property \"" + ToUtf8(name) + "\", so its tag is empty" +
                          DidYouMean(ToUtf8(name), views));
  }
}

}  // namespace QxHost
