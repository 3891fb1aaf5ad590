// The script command CreateLink.
#include "filetools/create_link_script.h"

#include <gmock/gmock.h>

#include "filetools/link_calls.h"
#include "frame/host/command_numbers.h"
#include "frame/script_dispatcher.h"
#include "support/fake_host.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::Optional;

namespace {

constexpr u32 kNumber = kScriptCreateLink;

class CreateLinkScriptTest : public testing::Test {
 protected:
  CreateLinkScriptTest() {
    call_.values = {{"LNKTYPE", W("1")}, {"LNKSRC", link_}, {"LNKTRG", target_}};
    host_.helper.exists = true;
  }

  void ExpectNoResult() {
    EXPECT_EQ(call_.resultCode, std::nullopt);
    EXPECT_EQ(call_.resultText, std::nullopt);
  }

  ScratchFolder scratch_;
  WString target_ = scratch_.Write(W("a.txt"), "abc");
  WString link_ = scratch_.Path(W("link"));
  FakeHost host_;
  FakeCommandCall call_{kNumber};
};

TEST_F(CreateLinkScriptTest, MakesALinkAndSetsItsResults) {
  EXPECT_EQ(CreateLinkScript(host_, call_), 1);
  EXPECT_EQ(scratch_.Read(W("link")), "abc");
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkCreated("Hardlink", link_, target_)));
  EXPECT_THAT(call_.recorder.Calls(),
              ElementsAre("GetValue(LNKTYPE)", "GetValue(LNKSRC)", "GetValue(LNKTRG)", "HasFlag(ASADMIN)",
                          "SetResultText(\"0\")", "SetResultCode(0)"));
}

TEST_F(CreateLinkScriptTest, TheErrorIsTheResult) {
  call_.values["LNKSRC"] = target_;
  EXPECT_EQ(CreateLinkScript(host_, call_), 0);
  EXPECT_THAT(call_.resultCode, Optional(183u));
  EXPECT_THAT(call_.resultText, Optional(WString(W("183"))));
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkFailed("Hardlink", 183, target_, target_)));
}

TEST_F(CreateLinkScriptTest, ATypeThatIsNoKindIsUnknownAndError13) {
  for (const WCHAR* type : {W("0"), W("hardlink"), W(""), W("-1"), W("5"), W("99999999999")}) {
    FakeHost host;
    FakeCommandCall call(kNumber);
    call.values = {{"LNKTYPE", type}, {"LNKSRC", link_}, {"LNKTRG", target_}};
    EXPECT_EQ(CreateLinkScript(host, call), 0);
    EXPECT_THAT(call.resultCode, Optional(13u));
    EXPECT_THAT(call.resultText, Optional(WString(W("13"))));
    EXPECT_THAT(host.recorder.Calls(), ElementsAre(LinkFailed("Unknown", 13, link_, target_)));
  }
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.txt")));
}

TEST_F(CreateLinkScriptTest, ATypeIsReadAsTheNumberThatItBeginsWith) {
  call_.values["LNKTYPE"] = W(" 1st");
  EXPECT_EQ(CreateLinkScript(host_, call_), 1);
  EXPECT_EQ(scratch_.Read(W("link")), "abc");
}

TEST_F(CreateLinkScriptTest, ATargetThatIsNotThereEndsItInSilence) {
  for (const WString& target : {scratch_.Path(W("nosuch")), WString(), WString(32000, W('x'))}) {
    call_.values["LNKTRG"] = target;
    EXPECT_EQ(CreateLinkScript(host_, call_), 0);
    ExpectNoResult();
  }
  EXPECT_THAT(host_.recorder.Calls(), IsEmpty());
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.txt")));
}

TEST_F(CreateLinkScriptTest, AMissingTextEndsItInSilence) {
  for (const char* name : {"LNKSRC", "LNKTRG"}) {
    FakeCommandCall call(kNumber);
    call.values = call_.values;
    call.values.erase(name);
    EXPECT_EQ(CreateLinkScript(host_, call), 0) << name;
    EXPECT_EQ(call.resultCode, std::nullopt) << name;
  }
  EXPECT_THAT(host_.recorder.Calls(), IsEmpty());
}

TEST_F(CreateLinkScriptTest, AnEmptyLinkPathIsAnError) {
  call_.values["LNKSRC"] = W("");
  EXPECT_EQ(CreateLinkScript(host_, call_), 0);
  EXPECT_THAT(call_.resultCode, Optional(3u));
}

TEST_F(CreateLinkScriptTest, ARefusalIsNotPassedToTheHelperWithoutAQuestion) {
  call_.values["LNKTRG"] = scratch_.Path();
  EXPECT_EQ(CreateLinkScript(host_, call_), 0);
  EXPECT_THAT(call_.resultCode, Optional(5u));
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkFailed("Hardlink", 5, link_, scratch_.Path())));
}

TEST_F(CreateLinkScriptTest, AsAdminTheHelperMakesItAndThereIsNoResultText) {
  call_.switches = {"ASADMIN"};
  EXPECT_EQ(CreateLinkScript(host_, call_), 1);
  EXPECT_THAT(host_.recorder.CallsOf({"writer.Write", "helper.Send", "LogMessage"}),
              ElementsAre("writer.WriteU32(1)", "writer.WriteString(\"" + ToUtf8(link_) + "\")",
                          "writer.WriteString(\"" + ToUtf8(target_) + "\")", "writer.WriteU32(0)",
                          "helper.Send(5004, 4)", LinkCreated("Hardlink", link_, target_)));
  EXPECT_THAT(call_.resultCode, Optional(0u));
  EXPECT_EQ(call_.resultText, std::nullopt);
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.txt")));
  ExpectAllReleased(host_);
}

TEST_F(CreateLinkScriptTest, AsAdminAFolderIsReportedToTheHelper) {
  call_.switches = {"ASADMIN"};
  call_.values["LNKTRG"] = scratch_.Path();
  EXPECT_EQ(CreateLinkScript(host_, call_), 1);
  EXPECT_THAT(host_.recorder.CallsOf({"writer.WriteU32"}),
              ElementsAre("writer.WriteU32(1)", "writer.WriteU32(1)"));
}

TEST_F(CreateLinkScriptTest, AsAdminTheHelpersErrorIsTheResultAndStaysAsItIs) {
  call_.switches = {"ASADMIN"};
  host_.helper.reply = 1314;
  EXPECT_EQ(CreateLinkScript(host_, call_), 0);
  EXPECT_THAT(call_.resultCode, Optional(1314u));
  EXPECT_THAT(host_.recorder.CallsOf({"LogMessage"}),
              ElementsAre(LinkFailed("Hardlink", 1314, link_, target_)));
}

TEST_F(CreateLinkScriptTest, AsAdminWithoutAHelperIsError5) {
  call_.switches = {"ASADMIN"};
  host_.helper.exists = false;
  EXPECT_EQ(CreateLinkScript(host_, call_), 0);
  EXPECT_THAT(call_.resultCode, Optional(5u));
  EXPECT_THAT(host_.recorder.CallsOf({"LogMessage"}), IsEmpty());
}

TEST_F(CreateLinkScriptTest, AnElevatedProcessRefusesAsAdmin) {
  call_.switches = {"ASADMIN"};
  host_.isElevated = true;
  EXPECT_EQ(CreateLinkScript(host_, call_), 0);
  ExpectNoResult();
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre("IsVistaOrNewer()", "IsProcessElevated()"));
}

TEST_F(CreateLinkScriptTest, AnOldSystemRefusesAsAdmin) {
  call_.switches = {"ASADMIN"};
  host_.isVista = false;
  EXPECT_EQ(CreateLinkScript(host_, call_), 0);
  ExpectNoResult();
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre("IsVistaOrNewer()"));
}

TEST_F(CreateLinkScriptTest, TheDispatcherAsksForThreeParametersInItsOrder) {
  EXPECT_EQ(DispatchScriptCommand(host_, call_), 1);
  EXPECT_THAT(call_.recorder.CallsOf({"HasFlag"}),
              ElementsAre("HasFlag(LNKSRC)", "HasFlag(LNKTRG)", "HasFlag(LNKTYPE)", "HasFlag(ASADMIN)"));
}

TEST_F(CreateLinkScriptTest, TheDispatcherRunsNoneThatLacksAParameter) {
  const std::pair<const char*, std::vector<std::string>> rows[] = {
      {"LNKSRC", {"GetCommandId()", "HasFlag(LNKSRC)"}},
      {"LNKTRG", {"GetCommandId()", "HasFlag(LNKSRC)", "HasFlag(LNKTRG)"}},
      {"LNKTYPE", {"GetCommandId()", "HasFlag(LNKSRC)", "HasFlag(LNKTRG)", "HasFlag(LNKTYPE)"}},
  };
  for (const auto& [missing, calls] : rows) {
    FakeCommandCall call(kNumber);
    call.values = call_.values;
    call.values.erase(missing);
    EXPECT_EQ(DispatchScriptCommand(host_, call), 0) << missing;
    EXPECT_EQ(call.recorder.Calls(), calls) << missing;
  }
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.txt")));
}

}  // namespace
