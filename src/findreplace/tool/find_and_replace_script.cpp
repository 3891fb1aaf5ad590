#include "findreplace/tool/find_and_replace_script.h"

#include <optional>

#include "findreplace/tool/find_and_replace_run.h"
#include "frame/services/script_file.h"
#include "frame/services/script_values.h"
#include "frame/services/script_words.h"

using namespace Velmora::SDK;
using namespace QXFindAndReplace;

namespace {

// clang-format off
constexpr ScriptWord kModes[] = {
  {W("One"), ModeOne},
  {W("Many"), ModeMany},
  {W("ManySame"), ModeManySame},
  {W("Multiline"), ModeMultiline},
};

constexpr ScriptSwitch kTextSwitches[] = {
  {"FORCEUTF8", ForceUtf8},
  {"WILDCARD", Wildcard},
};

// The first of these that is given applies; if none is given, a new file is written (C-010).
constexpr ScriptSwitch kSaveModes[] = {
  {"KEEPBACKUP", KeepBackup},
  {"DELETE", ReplaceFile},
};

constexpr ScriptSwitch kQuestionSwitches[] = {
  {"REPLACEALL", ReplaceAll},
  {"SILENT", Silent},
};
// clang-format on

// Replaces each backslash followed by an n by a line feed. There is no other escape sequence (C-245).
WString WithLineFeeds(const WString& text) {
  constexpr WStringView kEscape = W("\\n");
  WString result;
  std::size_t from = 0;
  for (std::size_t at = 0; (at = text.find(kEscape, from)) != WString::npos; from = at + kEscape.size()) {
    result.append(text, from, at - from).push_back(W('\n'));
  }
  return result.append(text, from);
}

bool IsEmpty(const std::optional<WString>& value) { return !value || value->empty(); }

}  // namespace

FindAndReplaceOptions ReadFindAndReplaceParameters(IHostCommandCall& call) {
  FindAndReplaceOptions options;
  options.find = WithLineFeeds(ScriptValue(call, "FIND").value_or(WString()));
  options.replace = WithLineFeeds(ScriptValue(call, "REPLACEWITH").value_or(WString()));
  // For any other word the mode is One (C-244).
  options.flags = FindScriptWord(ScriptValue(call, "MODE").value_or(WString()), kModes).value_or(ModeOne);
  options.flags |= ReadScriptSwitches(call, kTextSwitches);
  options.flags |= FirstScriptSwitch(call, kSaveModes, SaveAsNew);
  options.flags |= ReadScriptSwitches(call, kQuestionSwitches);
  return options;
}

s32 FindAndReplaceScript(IHostApp& host, IHostCommandCall& call) {
  const std::optional<WString> path = ScriptValue(call, "FILE");
  if (!path) return 0;
  // A script cannot use an empty text as the replacement (C-243).
  if (IsEmpty(ScriptValue(call, "FIND")) || IsEmpty(ScriptValue(call, "REPLACEWITH"))) return 0;
  const std::optional<WString> target = ScriptValue(call, "TARGET");
  if (!target) return 0;

  const ScriptFile file(host, *path);
  if (!file) {
    host.LogMessage(0, kLogError, W("[Custom Cmd - FindAndReplace] - FILE : %s not found"), path->c_str());
    return 0;
  }
  // An empty target pattern is accepted: the target is then the folder itself, and a silent run skips the
  // file (C-007).
  StartFindAndReplace(host, file.List(), ReadFindAndReplaceParameters(call), *target, false);
  return 1;
}
