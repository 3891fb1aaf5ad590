#include "linesorter/tool/sort_lines_script.h"

#include <optional>

#include "frame/services/script_file.h"
#include "frame/services/script_values.h"
#include "frame/services/script_words.h"
#include "linesorter/engine/code_page_text.h"
#include "linesorter/engine/stoi.h"
#include "linesorter/tool/sort_lines_job.h"

using namespace Velmora::SDK;
using namespace WQLineSorter;

namespace {

struct NumberParameter {
  const char* name;
  std::uint32_t SortLinesOptions::*field;
};

// clang-format off
constexpr ScriptWord kSortBy[] = {
  {W("line"), SortByLine},
  {W("substring"), SortBySubstring},
  {W("item"), SortByItem},
};

constexpr ScriptWord kSortAs[] = {
  {W("text"), SortAsText},
  {W("num"), SortAsNumber},
  {W("date"), SortAsDate},
};

constexpr NumberParameter kKeptLines[] = {
  {"KEEPTOP", &SortLinesOptions::keepLinesTop},
  {"KEEPBOTTOM", &SortLinesOptions::keepLinesBottom},
};

// The spelling of "NATRUALNUMORDER" is intended; scripts depend on it (C-006).
constexpr ScriptSwitch kSwitches[] = {
  {"SKIPLEADINGSPACE", SortSkipLeadingSpace},
  {"IGNORECASE", SortIgnoreCase},
  {"LANGUAGEORDER", SortLanguageAware},
  {"NATRUALNUMORDER", SortNaturalNumbers},
  {"REVERSE", SortReverse},
  {"OVERWRITE", SaveOverwrite},
};

// The first of these that is given applies; if none is given, a new file is written (C-010).
constexpr ScriptSwitch kSaveModes[] = {
  {"KEEPBACKUP", SaveKeepBackup},
  {"DELETE", SaveDeleteBackup},
};
// clang-format on

// The maximum length of the stored date format.
constexpr std::size_t kMaxDateFormatBytes = 127;

// Returns 0 if the number is absent or empty. A negative number wraps around (C-145).
std::uint32_t NumberOf(IHostCommandCall& call, const char* name) {
  const WString value = ScriptValue(call, name).value_or(WString());
  return value.empty() ? 0 : static_cast<std::uint32_t>(Stoi(value));
}

// Stores the first character of the text, or the zero character if it is empty (C-143).
void SetFirstMatchChar(SortLinesOptions& options, const WString& text) {
  SetMatchChar(options, text.c_str()[0]);
}

void ReadSubstring(IHostCommandCall& call, SortLinesOptions& options) {
  options.subStringLen = NumberOf(call, "SUBSTRLEN");
  if (const std::optional<WString> endChar = ScriptValue(call, "ENDCHAR")) {
    SetFirstMatchChar(options, *endChar);
    options.options |= SortEndAtChar;
  } else if (call.HasFlag("ENDATWHITESPACE")) {
    options.options |= SortEndAtWhitespace;
  }
}

void ReadItem(IHostCommandCall& call, SortLinesOptions& options) {
  if (const std::optional<WString> separator = ScriptValue(call, "ITEMSEP"))
    SetFirstMatchChar(options, *separator);
  options.lineItem = NumberOf(call, "ITEM");
}

// If the word is not one of the three, no key is set (C-142).
void ReadSortBy(IHostCommandCall& call, SortLinesOptions& options) {
  const WString word = ScriptValue(call, "SORTBY").value_or(WString());
  const std::uint32_t sortBy = word.empty() ? SortByLine : FindScriptWord(word, kSortBy).value_or(0);
  options.options |= sortBy;
  if (sortBy == SortBySubstring) ReadSubstring(call, options);
  if (sortBy == SortByItem) ReadItem(call, options);
}

void ReadPositions(IHostCommandCall& call, SortLinesOptions& options) {
  for (const NumberParameter& row : kKeptLines) options.*row.field = NumberOf(call, row.name);
  const std::uint32_t lineOffset = NumberOf(call, "LINEOFFSET");  // from 1; 0 is the same as 1 (C-144)
  options.lineOffset = lineOffset == 0 ? 0 : lineOffset - 1;
}

void ReadSortAs(IHostCommandCall& call, SortLinesOptions& options) {
  const WString word = ScriptValue(call, "SORTAS").value_or(WString());
  const std::uint32_t sortAs = FindScriptWord(word, kSortAs).value_or(SortAsText);
  options.options |= sortAs;
  if (sortAs != SortAsDate) return;
  if (const std::optional<WString> format = ScriptValue(call, "DATEFORMAT")) {
    SetDateFormat(options, *format, kMaxDateFormatBytes);
  }
}

}  // namespace

SortLinesOptions ReadSortLinesParameters(IHostCommandCall& call) {
  SortLinesOptions options;
  ReadSortBy(call, options);
  ReadPositions(call, options);
  options.options |= ReadScriptSwitches(call, kSwitches);
  ReadSortAs(call, options);
  options.options |= FirstScriptSwitch(call, kSaveModes, SaveAsNewFile);
  if (call.HasFlag("SILENT")) options.options |= SortSilent;
  return options;
}

s32 SortLinesScript(IHostApp& host, IHostCommandCall& call) {
  const std::optional<WString> path = ScriptValue(call, "FILE");
  if (!path) return 0;
  std::optional<WString> target = ScriptValue(call, "TARGET");
  if (!target) return 0;

  const ScriptFile file(host, *path);
  if (!file) {
    host.LogMessage(0, kLogError, W("[Custom Cmd - SortLines] - FILE : %s not found"), path->c_str());
    return 0;
  }
  // An empty target pattern is accepted: the target is then the folder itself, and a silent run skips the
  // file (C-007).
  SortLinesJob job{host, file.List(), ReadSortLinesParameters(call), std::move(*target), false};
  RunSortLinesJob(job);
  return 1;
}
