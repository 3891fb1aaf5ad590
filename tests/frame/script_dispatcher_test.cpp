// Which script commands are executed.
#include "frame/script_dispatcher.h"

#include <gmock/gmock.h>

#include <limits>
#include <stdexcept>

#include "frame/host/command_numbers.h"
#include "frame/qx_utils.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST(ScriptDispatcher, SortLinesRunsItsTool) {
  FakeHost host;
  CQXUtils extension;
  extension.OnStart(&host);
  FakeCommandCall call(kScriptSortLines);
  call.values = {{"FILE", W("C:\\x.txt")}, {"TARGET", W("*.*")}};
  EXPECT_EQ(extension.OnCustomCommand(&call), 0);
  EXPECT_THAT(host.recorder.Calls(),
              Contains("LogMessage(0, 30, \"[Custom Cmd - SortLines] - FILE : C:\\x.txt not found\")"));
}

TEST(ScriptDispatcher, FindAndReplaceRunsItsTool) {
  FakeHost host;
  CQXUtils extension;
  extension.OnStart(&host);
  FakeCommandCall call(kScriptFindAndReplace);
  call.values = {{"FILE", W("C:\\x.txt")}, {"TARGET", W("*.*")}, {"FIND", W("a")}, {"REPLACEWITH", W("b")}};
  EXPECT_EQ(extension.OnCustomCommand(&call), 0);
  EXPECT_THAT(host.recorder.Calls(),
              Contains("LogMessage(0, 30, \"[Custom Cmd - FindAndReplace] - FILE : C:\\x.txt not found\")"));
}

TEST(ScriptDispatcher, ReturnsTheResultOfTheTool) {
  FakeHost host;
  host.fileOperation.items = {host.AddFile(W("x.txt"))};
  FakeCommandCall call(kScriptSortLines);
  call.values = {{"FILE", W("C:\\view\\x.txt")}, {"TARGET", W("*.new")}};
  call.switches = {"SILENT"};
  EXPECT_EQ(DispatchScriptCommand(host, call), 1);
  EXPECT_THAT(host.recorder.Calls(),
              Contains("LogMessage(0, 30, \"[SortLines] - Failed to sortline in file : C:\\view\\x.txt\")"));
}

TEST(ScriptDispatcher, WhatAToolThrowsReachesTheHost) {
  FakeHost host;
  host.fileOperation.items = {host.AddFile(W("x.txt"))};
  CQXUtils extension;
  extension.OnStart(&host);
  FakeCommandCall call(kScriptSortLines);
  call.values = {{"FILE", W("C:\\view\\x.txt")}, {"TARGET", W("*.*")}, {"KEEPTOP", W("many")}};
  EXPECT_THROW(extension.OnCustomCommand(&call), std::invalid_argument);
  ExpectAllReleased(host);
}

TEST(ScriptDispatcher, OtherNumbersAreNoneAndCallNothing) {
  for (const u32 number :
       {u32{0}, u32{1}, u32{30150}, u32{30350}, u32{30354}, u32{60000}, std::numeric_limits<u32>::max()}) {
    FakeHost host;
    CQXUtils extension;
    extension.OnStart(&host);
    FakeCommandCall call(number);
    call.values = {{"FILE", W("C:\\x.txt")}, {"TARGET", W("*.*")}};
    EXPECT_EQ(extension.OnCustomCommand(&call), 0) << number;
    EXPECT_THAT(host.recorder.Calls(), IsEmpty()) << number;
    EXPECT_THAT(call.recorder.Calls(), ElementsAre("GetCommandId()")) << number;
  }
}

TEST(ScriptDispatcher, BeforeTheStartNoCallIsRun) {
  CQXUtils extension;
  FakeCommandCall call(kScriptSortLines);
  call.values = {{"FILE", W("C:\\x.txt")}, {"TARGET", W("*.*")}};
  EXPECT_EQ(extension.OnCustomCommand(&call), 0);
  EXPECT_THAT(call.recorder.Calls(), IsEmpty());
}

}  // namespace
