// Arguments reach the verb as they were typed.
#include "host/command_line.h"

#include <gmock/gmock.h>

#include "host/failures.h"
#include "recorded_output.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace QxHost {
namespace {

class CommandLineTest : public testing::Test {
 protected:
  std::optional<int> Parse(std::vector<std::string> arguments) {
    return ParseCommandLine(std::move(arguments), line_, recorded_.output);
  }

  RecordedOutput recorded_;
  CommandLine line_;
};

TEST_F(CommandLineTest, ItemsMayLookLikeListsOptionsOfWindowsAndVerbs) {
  EXPECT_EQ(Parse({"command", "30000", "[a,b]", "[]", "/a/b", "menu", "a,b", "Z:\\x", "--", "-x", "[-]"}),
            std::nullopt);
  EXPECT_STREQ(line_.verb->Name(), "command");
  EXPECT_THAT(line_.verb->Items(), ElementsAre("[a,b]", "[]", "/a/b", "menu", "a,b", "Z:\\x", "-x", "[-]"));
}

TEST_F(CommandLineTest, AnAnswerTakesOneArgumentAndMayBeRepeated) {
  EXPECT_EQ(Parse({"--answer", "ok", "--answer=text=-x", "command", "1", "--answer", "[1,2]", "item"}),
            std::nullopt);
  EXPECT_THAT(line_.options.answers, ElementsAre("ok", "text=-x", "[1,2]"));
  EXPECT_THAT(line_.verb->Items(), ElementsAre("item"));
}

TEST_F(CommandLineTest, OptionsStandBeforeAndBehindTheVerb) {
  EXPECT_EQ(Parse({"--dry-run", "--config", "[c,d]", "menu", "--json", "--focus=f", "--class-b"}),
            std::nullopt);
  EXPECT_TRUE(line_.options.dryRun);
  EXPECT_TRUE(line_.options.json);
  EXPECT_TRUE(line_.options.classB);
  EXPECT_FALSE(line_.options.classA);
  EXPECT_FALSE(line_.options.elevated);
  EXPECT_FALSE(line_.options.beforeVista);
  EXPECT_EQ(line_.options.config, "[c,d]");
  EXPECT_EQ(line_.options.focus, "f");
  EXPECT_THAT(line_.verb->Items(), IsEmpty());
}

TEST_F(CommandLineTest, HelpEndsTheCallWellAndMistakesDoNot) {
  EXPECT_EQ(Parse({"--help"}), 0);
  EXPECT_EQ(Parse({"command", "-h"}), 0);
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{},
                                             {"--json"},
                                             {"nonsense"},
                                             {"info", "extra"},
                                             {"command"},
                                             {"--nonsense", "info"},
                                             {"info", "menu"},
                                             {"menu", "--list"}}) {
    EXPECT_EQ(Parse(arguments), 2);
  }
}

TEST_F(CommandLineTest, AScriptCommandHasNoItems) {
  EXPECT_EQ(Parse({"script", "Name", "KEY=[a,b]", "--json", "[x]", "ITEMSEP=,"}), std::nullopt);
  EXPECT_STREQ(line_.verb->Name(), "script");
  EXPECT_THAT(line_.verb->Items(), IsEmpty());
  EXPECT_TRUE(line_.options.json);
}

TEST_F(CommandLineTest, AScriptNeedsNoName) {
  EXPECT_EQ(Parse({"script"}), std::nullopt);
  EXPECT_STREQ(line_.verb->Name(), "script");
}

TEST_F(CommandLineTest, ADryRunIsForQuickRenamesAndForWhatChangesNothing) {
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{"info"},
                                             {"menu"},
                                             {"script"},
                                             {"script", "--list"},
                                             {"script", "SortLines", "--list"},
                                             {"command", "30000"},
                                             {"command", "30010"},
                                             {"command", "30060"}}) {
    CommandLine line;
    EXPECT_EQ(ParseCommandLine(arguments, line, recorded_.output), std::nullopt);
    EXPECT_NO_THROW(line.verb->CheckDryRun()) << arguments.back();
  }
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{"script", "SortLines"},
                                             {"script", ""},
                                             {"command", "29999"},
                                             {"command", "30061"},
                                             {"command", "30150"},
                                             {"command", "31000"},
                                             {"command", "x"}}) {
    CommandLine line;
    EXPECT_EQ(ParseCommandLine(arguments, line, recorded_.output), std::nullopt);
    EXPECT_THROW(line.verb->CheckDryRun(), BadCall) << arguments.back();
  }
}

TEST_F(CommandLineTest, TwentyThousandItemsAreAllRead) {
  std::vector<std::string> arguments = {"command", "30000"};
  for (int index = 0; index < 20000; ++index) arguments.push_back("item" + std::to_string(index));
  EXPECT_EQ(Parse(arguments), std::nullopt);
  EXPECT_EQ(line_.verb->Items().size(), 20000u);
  EXPECT_EQ(line_.verb->Items().back(), "item19999");
}

}  // namespace
}  // namespace QxHost
