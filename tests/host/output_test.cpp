#include "host/output/output.h"

#include <gtest/gtest.h>

#include "frame/host/host_types.h"
#include "host/output/reporter.h"
#include "recorded_output.h"

namespace QxHost {
namespace {

using Velmora::SDK::kListResult;

TEST(Output, LinesAreCollectedAndProblemsComeAfterThem) {
  RecordedOutput recorded;
  recorded.output.Line("one");
  EXPECT_EQ(recorded.out, "");
  recorded.output.Problem("two");
  EXPECT_EQ(recorded.out, "one\n");
  EXPECT_EQ(recorded.problems, "qxhost: two\n");
}

TEST(Output, ManyLinesGoOutInBlocks) {
  RecordedOutput recorded;
  for (int line = 0; line < 100000; ++line) recorded.output.Line("x");
  EXPECT_GT(recorded.out.size(), 100000u);
  EXPECT_EQ(recorded.Out().size(), 200000u);
}

TEST(Output, AFailedWriteIsRemembered) {
  RecordedOutput recorded;
  recorded.output.Line("one");
  recorded.isBroken = true;
  EXPECT_FALSE(recorded.output.HasFailed());
  recorded.output.Flush();
  EXPECT_TRUE(recorded.output.HasFailed());
}

TEST(JsonReporter, EachEventIsOneLineOfPlainAsciiOrUtf8) {
  RecordedOutput recorded;
  const auto reporter = MakeJsonReporter(recorded.output);
  const WString lone = {W('a'), static_cast<WCHAR>(0xDCFF), W('\n'), W('"'), static_cast<WCHAR>(0xE4)};
  reporter->Log(0, 10, lone);
  reporter->List(kListResult, 1, {W("Z:\\a"), W("b")});
  reporter->Shell({W("Open"), W("f"), W("a b")});
  reporter->Result(-1);
  EXPECT_EQ(recorded.Out(),
            "{\"event\":\"log\",\"category\":0,\"level\":10,\"text\":\"a\xEF\xBF\xBD\\n\\\"\xC3\xA4\"}\n"
            "{\"event\":\"list\",\"request\":21120,\"marker\":1,\"items\":[\"Z:\\\\a\",\"b\"]}\n"
            "{\"event\":\"shell\",\"verb\":\"Open\",\"file\":\"f\",\"arguments\":\"a b\"}\n"
            "{\"event\":\"result\",\"value\":-1}\n");
}

TEST(JsonReporter, ResultsThatAScriptHasNotSetAreNull) {
  RecordedOutput recorded;
  const auto reporter = MakeJsonReporter(recorded.output);
  reporter->ScriptResult(5, W("five"));
  reporter->ScriptResult(std::nullopt, W(""));
  reporter->ScriptResult(0xFFFFFFFF, std::nullopt);
  EXPECT_EQ(recorded.Out(),
            "{\"event\":\"script-result\",\"code\":5,\"text\":\"five\"}\n"
            "{\"event\":\"script-result\",\"code\":null,\"text\":\"\"}\n"
            "{\"event\":\"script-result\",\"code\":4294967295,\"text\":null}\n");
}

TEST(ProseReporter, ScriptCommandsShowTheirParameters) {
  RecordedOutput recorded;
  const auto reporter = MakeProseReporter(recorded.output);
  reporter->ScriptCommand({"Sort",
                           1,
                           W("Sorts"),
                           {{"FILE", "TEXT", true, W("The file")},
                            {"COUNT", "NUMBER", false, W("A number")},
                            {"QUIET", "", false, W("A switch")}}});
  EXPECT_EQ(recorded.Out(),
            "Sort - Sorts\n"
            "  FILE=TEXT             The file (required)\n"
            "  COUNT=NUMBER          A number\n"
            "  QUIET                 A switch\n");
}

TEST(ProseReporter, ScriptResultsShowWhatIsSet) {
  RecordedOutput recorded;
  const auto reporter = MakeProseReporter(recorded.output);
  reporter->ScriptResult(5, W("five\r\n"));
  reporter->ScriptResult(std::nullopt, W("five"));
  reporter->ScriptResult(5, std::nullopt);
  EXPECT_EQ(recorded.Out(), "script result 5: five\nscript result: five\nscript result 5\n");
}

TEST(ProseReporter, EmptyListsAreNotShown) {
  RecordedOutput recorded;
  const auto reporter = MakeProseReporter(recorded.output);
  reporter->List(kListResult, 0, {});
  reporter->List(kListResult, 1, {W("Z:\\a")});
  EXPECT_EQ(recorded.Out(), "failed:\n  Z:\\a\n");
}

TEST(ProseReporter, LevelsHaveTheirNames) {
  RecordedOutput recorded;
  const auto reporter = MakeProseReporter(recorded.output);
  reporter->Log(0, 10, W("one\r\n"));
  reporter->Log(1, 30, W("two"));
  reporter->Log(1, 20, W("three"));
  EXPECT_EQ(recorded.Out(), "[info] one\n[error] two\n[20] three\n");
}

TEST(HeldOutputTest, NothingIsWrittenBeforeItEndsAndThenAllInOrder) {
  std::string all;
  Output output(
      [&all](std::string_view bytes) {
        all += "out:" + std::string(bytes);
        return true;
      },
      [&all](std::string_view bytes) {
        all += "err:" + std::string(bytes);
        return true;
      });
  {
    const HeldOutput held(output);
    output.Line("one");
    output.Problem("two");
    output.Line(std::string(200000, 'x'));
    output.Flush();
    EXPECT_EQ(all, "");
  }
  output.Flush();
  EXPECT_EQ(all, "out:one\nerr:qxhost: two\nout:" + std::string(200000, 'x') + "\n");
}

}  // namespace
}  // namespace QxHost
