#include "host/verbs/run_qxhost.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <optional>

#include "host/command_line/command_line.h"
#include "host/helper/helper_server.h"
#include "host/output/failures.h"
#include "host/output/output.h"
#include "host/output/terminal.h"
#include "host/system/shell_objects.h"
#include "host/verbs/run.h"
#include "host/verbs/verbs.h"

namespace QxHost {
namespace {

// Runs the verb and returns the exit status. Saves the settings and completes the output even if the module
// fails.
int ExecuteVerb(const CommandLine& line, Output& output) {
  if (line.options.dryRun) line.verb->CheckDryRun();
  Run run(line.options, line.verb->Items(), output,
          line.verb->TakesItemsInTurn() ? ItemUse::kInTurn : ItemUse::kSelected);
  try {
    const int value = line.verb->Execute(run);
    return run.Finish(value, line.verb->NoteOfZero());
  } catch (const ModuleFailure&) {
    run.SaveSettings();
    throw;
  }
}

}  // namespace

int RunQxHost(std::vector<std::string> arguments) {
  // The channel of the elevated helper starts this program with this argument, which is not in the help.
  if (!arguments.empty() && arguments.front() == kHelperArgument) {
    return RunHelper({arguments.begin() + 1, arguments.end()});
  }
  const ShellObjects shellObjects;
  Output output(WriteStandardOutput, [](std::string_view bytes) {
    WriteStandardError(bytes);
    return true;
  });
  int status = kExitBadCall;
  try {
    CommandLine line;
    const std::optional<int> ended = ParseCommandLine(std::move(arguments), MakeVerbs(), line, output);
    status = ended ? *ended : ExecuteVerb(line, output);
  } catch (const BadCall& failure) {
    output.Problem(failure.what());
    status = kExitBadCall;
  } catch (const std::exception& failure) {
    output.Problem(failure.what());
    status = kExitModuleFailed;
  }
  output.Flush();
  if (output.HasFailed()) {
    output.Problem("cannot write the output");
    status = kExitModuleFailed;
  }
  return status;
}

}  // namespace QxHost
