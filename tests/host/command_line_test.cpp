// Arguments are passed to the verb unchanged.
#include "host/command_line/command_line.h"

#include <gmock/gmock.h>

#include "host/output/failures.h"
#include "host/verbs/verbs.h"
#include "recorded_output.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace QxHost {
namespace {

class CommandLineTest : public testing::Test {
 protected:
  std::optional<int> Parse(std::vector<std::string> arguments) {
    return ParseCommandLine(std::move(arguments), MakeVerbs(), line_, recorded_.output);
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

TEST_F(CommandLineTest, OptionsMayBeBeforeAndAfterTheVerb) {
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

TEST_F(CommandLineTest, TheVersionEndsTheCallWell) {
  EXPECT_EQ(Parse({"--version"}), 0);
  EXPECT_EQ(recorded_.Out(), "qxhost 1.3.0.0\n");
  EXPECT_EQ(recorded_.problems, "");
}

// Calls and their messages, without the program's name and the closing sentence.
TEST_F(CommandLineTest, AMistakeIsNamedAndTheNearestWordProposed) {
  const std::pair<std::vector<std::string>, std::string> calls[] = {
      {{"comand", "30000", "a"},
       R"("comand" is not a verb; the verbs are: info, menu, command, script, columns, rename, window. Did you mean command?)"},
      {{"Menu"},
       R"("Menu" is not a verb; the verbs are: info, menu, command, script, columns, rename, window. Did you mean menu?)"},
      {{"frobnicate"},
       R"("frobnicate" is not a verb; the verbs are: info, menu, command, script, columns, rename, window.)"},
      {{"sort-lines", "a"},
       R"("sort-lines" is not a verb; the verbs are: info, menu, command, script, columns, rename, window. Did you mean command sort-lines?)"},
      {{"30150"},
       R"("30150" is not a verb; the verbs are: info, menu, command, script, columns, rename, window. Did you mean command 30150?)"},
      {{"sort", "a"},
       R"("sort" is not a verb; the verbs are: info, menu, command, script, columns, rename, window. Did you mean command sort-lines?)"},
      {{"sort-linse", "a"},
       R"("sort-linse" is not a verb; the verbs are: info, menu, command, script, columns, rename, window. Did you mean command sort-lines?)"},
      {{"5", "a"},
       R"("5" is not a verb; the verbs are: info, menu, command, script, columns, rename, window.)"},
      {{"--", "-x"},
       R"("-x" is not a verb; the verbs are: info, menu, command, script, columns, rename, window.)"},
      {{"--anwser", "ok", "command", "30000"}, "command has no option --anwser. Did you mean --answer?"},
      {{"command", "30000", "a", "--anwser=ok"}, "command has no option --anwser. Did you mean --answer?"},
      {{"--dry", "menu"}, "menu has no option --dry. Did you mean --dry-run?"},
      {{"script", "--lst"}, "script has no option --lst. Did you mean --list?"},
      {{"menu", "--list"}, "menu has no option --list."},
      {{"-json", "info"}, "info has no option -json. Did you mean --json?"},
      {{"--verson"}, "there is no option --verson. Did you mean --version?"},
      {{"--colour"}, "there is no option --colour."},
      {{"info", "[extra]"}, R"(info takes no argument "[extra]".)"},
      {{"info", "--module"}, "--module needs a value: --module PATH."},
      {{"--answer", "ok", "--answer", "ok", "info", "--answer"}, "--answer needs a value: --answer A."},
      {{"--focus", "a", "info", "--focus", "b"}, "--focus is given more than once."},
      {{}, "give a verb: info, menu, command, script, columns, rename, window."},
  };
  for (const auto& [arguments, message] : calls) {
    recorded_.problems.clear();
    CommandLine line;
    EXPECT_EQ(ParseCommandLine(arguments, MakeVerbs(), line, recorded_.output), 2);
    EXPECT_EQ(recorded_.problems, "qxhost: " + message + " qxhost --help shows more.\n");
  }
  EXPECT_EQ(recorded_.Out(), "");
}

TEST_F(CommandLineTest, AMissingCommandIsNamedWithWhatItIs) {
  EXPECT_EQ(Parse({"command"}), 2);
  EXPECT_EQ(
      recorded_.problems,
      "qxhost: command needs NUMBER|NAME: The command's number, or its name or a beginning of it that no "
      "other name has. qxhost --help shows more.\n");
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
                                             {"command", "title-case"},
                                             {"command", "set-e"},
                                             {"command", "30060"}}) {
    CommandLine line;
    EXPECT_EQ(ParseCommandLine(arguments, MakeVerbs(), line, recorded_.output), std::nullopt);
    EXPECT_NO_THROW(line.verb->CheckDryRun()) << arguments.back();
  }
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{"script", "SortLines"},
                                             {"script", ""},
                                             {"command", "29999"},
                                             {"command", "30061"},
                                             {"command", "30150"},
                                             {"command", "sort-lines"},
                                             {"command", "31000"},
                                             {"command", "x"}}) {
    CommandLine line;
    EXPECT_EQ(ParseCommandLine(arguments, MakeVerbs(), line, recorded_.output), std::nullopt);
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
