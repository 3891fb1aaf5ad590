// Values and switches in the call of a script command.
#include "frame/services/script_values.h"

#include <gmock/gmock.h>

#include "support/fake_script_commands.h"

using namespace Velmora::SDK;
using testing::ElementsAre;

namespace {

constexpr ScriptSwitch kSwitches[] = {{"FIRST", 1}, {"SECOND", 0x20}, {"THIRD", 0x80000000}};

FakeCommandCall CallWith(const std::set<std::string>& switches) { return FakeCommandCall(1, switches); }

}  // namespace

TEST(ScriptValue, IsKeptBeyondTheNextOperation) {
  FakeCommandCall call(1);
  call.values = {{"A", W("one")}, {"B", W("")}};
  const std::optional<WString> first = ScriptValue(call, "A");
  const std::optional<WString> second = ScriptValue(call, "B");
  EXPECT_EQ(first, W("one"));
  EXPECT_EQ(second, W(""));
}

TEST(ScriptValue, ParameterThatWasNotGivenIsNone) {
  FakeCommandCall call(1);
  EXPECT_EQ(ScriptValue(call, "A"), std::nullopt);
}

TEST(ScriptSwitches, AllThatWereGivenCount) {
  FakeCommandCall none = CallWith({});
  EXPECT_EQ(ReadScriptSwitches(none, kSwitches), 0u);
  FakeCommandCall call = CallWith({"THIRD", "SECOND", "OTHER"});
  EXPECT_EQ(ReadScriptSwitches(call, kSwitches), 0x80000020u);
  EXPECT_THAT(call.recorder.Calls(), ElementsAre("HasFlag(FIRST)", "HasFlag(SECOND)", "HasFlag(THIRD)"));
}

TEST(ScriptSwitches, FirstOfTheRowsWinsAndTheRestIsNotAskedFor) {
  FakeCommandCall call = CallWith({"THIRD", "SECOND"});
  EXPECT_EQ(FirstScriptSwitch(call, kSwitches, 7), 0x20u);
  EXPECT_THAT(call.recorder.Calls(), ElementsAre("HasFlag(FIRST)", "HasFlag(SECOND)"));
  FakeCommandCall none = CallWith({"OTHER"});
  EXPECT_EQ(FirstScriptSwitch(none, kSwitches, 7), 7u);
}
