// The panel's Load / Save box and its "X".
#include <gmock/gmock.h>

#include "multirename/engine/rename_worker.h"
#include "multirename/form/rename_texts.h"
#include "multirename/gate_properties.h"
#include "multirename/panel_window.h"
#include "platform/windows_api.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const WString kNoLineText = W("T00FA0064");
const WString kSaveLineText = W("T00FB0064");

class PanelProfiles : public PanelTest {
 protected:
  PanelProfiles() { profiles_.filePath = W("C:\\config\\MultiRenameProfiles.xml"); }

  MultiRenameProfile& Keep(const WString& name) {
    auto profile = std::make_unique<MultiRenameProfile>();
    profile->name = name;
    profile->filenameRule = W("n_") + name;
    profile->extensionRule = W("e_") + name;
    profile->caseRule = 2;
    profile->startAt = 7;
    profile->stepBy = static_cast<u32>(-3);
    profile->digits = 5;
    profile->flags = 0x2000000 | 0x200000;
    profile->searchItems = PairsOf({{W("\" a\""), W("b")}, {W("c "), W("")}});
    MultiRenameProfile& kept = *profile;
    profiles_.Add(std::move(profile));
    return kept;
  }

  // Answers the question for the name of a profile.
  void Name(const WString& name) { host_.textAnswers.push_back({true, name}); }

  std::vector<WString> ProfileNames() const {
    std::vector<WString> names;
    for (const auto& profile : profiles_.profiles) names.push_back(profile->name);
    return names;
  }
  std::string Saved() { return host_.files.saved[profiles_.filePath]; }
  int Saves() { return static_cast<int>(host_.files.saved.size()); }
};

TEST_F(PanelProfiles, TheBoxHasTwoLinesAndThenTheProfiles) {
  Keep(W("one"));
  Keep(W("two"));
  Open();
  EXPECT_THAT(view[kProfileBox].lines, ElementsAre(kNoLineText, kSaveLineText, W("one"), W("two")));
  EXPECT_EQ(view[kProfileBox].selectedLine, 0);
  EXPECT_EQ(view[kNameTemplate].text, W("[N]"));
}

TEST_F(PanelProfiles, AChosenProfileIsLoaded) {
  Keep(W("one"));
  Open({W("a.t")});
  Choose(kProfileBox, 2);
  EXPECT_EQ(view[kNameTemplate].text, W("n_one"));
  EXPECT_EQ(view[kExtensionTemplate].text, W("e_one"));
  EXPECT_EQ(view[kStartAt].text, W("7"));
  EXPECT_EQ(view[kStepBy].text, W("-3"));
  EXPECT_EQ(view[kDigits].text, W("5"));
  EXPECT_EQ(view[kCaseBox].selectedLine, 2);
  EXPECT_THAT(view[kPairList].rows,
              ElementsAre(ElementsAre(W("\" a\""), W("b")), ElementsAre(W("\"c \""), W(""))));
  EXPECT_FALSE(view[kCaseSensitiveBox].isChecked);
  EXPECT_TRUE(view[kRegexBox].isChecked);
  EXPECT_FALSE(view[kReplaceAllBox].isChecked);
  EXPECT_EQ(view[kPartsBox].selectedLine, 1);
  EXPECT_EQ(form.ProfileName(), W("one"));
  EXPECT_EQ(frameView.title, W("T000A0063 - T00150064one"));
}

TEST_F(PanelProfiles, ALoadedProfileIsPreviewedAtOnceWithoutAMessage) {
  Keep(W("one"));
  Open({W("a.t")});
  view.echo = [this](int control) { form.Change(control); };
  Choose(kProfileBox, 2);
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(NewNames(), ElementsAre(W("N_ONE.E_ONE")));
  EXPECT_THAT(Waiting(), ElementsAre(MRM_ROWS_CHANGED, MRM_RUN_FINISHED));
}

TEST_F(PanelProfiles, TheLoadingGuardHoldsBackAPreviewOfHalfAProfile) {
  Keep(W("one"));
  Open({W("a.t")});
  int held = 0;
  view.echo = [this, &held](int) {
    EXPECT_TRUE(form.OnMessage(MRM_UPDATE_PREVIEW, 0, 0));
    if (WStringView(NewNames()[0]) == W("a.t")) ++held;
  };
  Choose(kProfileBox, 2);
  EXPECT_GT(held, 3);
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  // One preview only, that of the complete profile.
  EXPECT_THAT(Waiting(), ElementsAre(MRM_ROWS_CHANGED, MRM_RUN_FINISHED));
}

TEST_F(PanelProfiles, PartsAreThoseOfTheFirstBitAndStayWithoutOne) {
  MultiRenameProfile& profile = Keep(W("one"));
  Open();
  for (const auto& [flags, line] : {std::pair{0x1000000u, 0}, std::pair{0x4000000u, 2},
                                    std::pair{0x6000000u, 1}, std::pair{0x7000000u, 0}}) {
    profile.flags = flags;
    Choose(kProfileBox, 2);
    EXPECT_EQ(view[kPartsBox].selectedLine, line) << flags;
  }
  view[kPartsBox].selectedLine = 2;
  profile.flags = 0x100000;
  Choose(kProfileBox, 2);
  EXPECT_EQ(view[kPartsBox].selectedLine, 2);
  EXPECT_TRUE(view[kCaseSensitiveBox].isChecked);
}

TEST_F(PanelProfiles, AnUnknownCaseRuleShowsTheFirstLine) {
  Keep(W("one")).caseRule = 3;
  Open();
  view[kCaseBox].selectedLine = 5;
  Choose(kProfileBox, 2);
  EXPECT_EQ(view[kCaseBox].selectedLine, 0);
}

TEST_F(PanelProfiles, AProfileWithoutItemsLeavesTheListEmpty) {
  Keep(W("one"));
  Keep(W("two")).searchItems = nullptr;
  Open();
  Choose(kProfileBox, 2);
  Choose(kProfileBox, 3);
  EXPECT_THAT(view[kPairList].rows, IsEmpty());
  Settle();
  EXPECT_TRUE(engine_->searchItems->empty());
}

TEST_F(PanelProfiles, ABadExpressionInAProfileShowsWhenItIsLoaded) {
  Keep(W("one")).searchItems = PairsOf({{W("("), W("")}});
  Open({W("a.t")});
  Choose(kProfileBox, 2);
  EXPECT_NE(frameView.panes[1], W(""));
  EXPECT_THAT(Waiting(), IsEmpty());
  EXPECT_THAT(NewNames(), ElementsAre(W("a.t")));
}

TEST_F(PanelProfiles, TheEmptyChoiceSetsTheDefaultsAndEmptiesThePairs) {
  Keep(W("one"));
  Open({W("a.t")});
  Choose(kProfileBox, 2);
  Settle();
  Choose(kProfileBox, 0);
  EXPECT_EQ(view[kNameTemplate].text, W("[N]"));
  EXPECT_EQ(view[kExtensionTemplate].text, W("[E]"));
  EXPECT_EQ(view[kStartAt].text, W("1"));
  EXPECT_EQ(view[kStepBy].text, W("1"));
  EXPECT_EQ(view[kDigits].text, W("2"));
  EXPECT_EQ(view[kCaseBox].selectedLine, 0);
  EXPECT_THAT(view[kPairList].rows, IsEmpty());
  EXPECT_EQ(form.ProfileName(), W(""));
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("a.t")));
}

TEST_F(PanelProfiles, TheEmptyChoiceLeavesTheChecksThePartsAndTheTitleAsTheyAre) {
  Keep(W("one"));
  Open();
  Choose(kProfileBox, 2);
  Choose(kProfileBox, 0);
  EXPECT_TRUE(view[kRegexBox].isChecked);
  EXPECT_FALSE(view[kReplaceAllBox].isChecked);
  EXPECT_EQ(view[kPartsBox].selectedLine, 1);
  EXPECT_EQ(frameView.title, W("T000A0063 - T00150064one"));
}

TEST_F(PanelProfiles, SavingAsksForANameAndKeepsAllOfThePanel) {
  Open({W("a.t")});
  view[kNameTemplate].text = W("x[C]");
  view[kExtensionTemplate].text = W("y");
  view[kStartAt].text = W(" 12z");
  view[kStepBy].text = W("-4");
  view[kDigits].text = W("none");
  view[kCaseBox].selectedLine = 7;
  view[kPartsBox].selectedLine = 1;
  view[kCaseSensitiveBox].isChecked = true;
  view[kPairFind].text = W(" f");
  view[kPairReplace].text = W("r");
  form.Press(kPairAdd);
  Settle();
  host_.recorder.ClearCalls();
  Name(W(" \tmine\r\n "));
  Choose(kProfileBox, 1);
  EXPECT_THAT(
      host_.recorder.CallsOf({"AskText"}),
      ElementsAre(
          "AskText(\"T01900064\", \"T01910064\", \"\", \"T01920064\", buffer \"\", 1024, a window, 0)"));
  EXPECT_EQ(Saved(),
            "<MultiRename><profile name='mine'><filename>x[C]</filename><extension>y</extension>"
            "<counter startat='12' stepby='-4' digits='0'/><case value='64'/>"
            "<searchandreplace replaceall='1' casesensative='1' regex='0' replaceparts='2'>"
            "<item find='\" f\"' replacewith='r'/></searchandreplace></profile></MultiRename>");
  // The profile is in the box, and it is loaded.
  EXPECT_THAT(view[kProfileBox].lines, ElementsAre(kNoLineText, kSaveLineText, W("mine")));
  EXPECT_EQ(view[kProfileBox].selectedLine, 2);
  EXPECT_EQ(view[kStartAt].text, W("12"));
  EXPECT_EQ(view[kDigits].text, W("0"));
  EXPECT_EQ(form.ProfileName(), W("mine"));
  EXPECT_EQ(frameView.title, W("T000A0063 - T00150064mine"));
  EXPECT_THAT(view[kPairList].rows, ElementsAre(ElementsAre(W("\" f\""), W("r"))));
}

TEST_F(PanelProfiles, TheRememberedNameIsSuggested) {
  Keep(W("one"));
  Open();
  Choose(kProfileBox, 2);
  host_.recorder.ClearCalls();
  host_.textAnswers.push_back({false, W("")});
  Choose(kProfileBox, 1);
  EXPECT_THAT(host_.recorder.CallsOf({"AskText"}),
              ElementsAre(testing::HasSubstr("\"T01910064\", \"one\", ")));
}

TEST_F(PanelProfiles, ANameWithoutAnEndIsCutAtItsBuffer) {
  Open();
  host_.fillsBuffers = true;
  Choose(kProfileBox, 1);
  EXPECT_THAT(ProfileNames(), ElementsAre(WString(1023, W('n'))));
}

TEST_F(PanelProfiles, AnEmptyNameIsANameToo) {
  Open();
  Name(W(" \t"));
  Choose(kProfileBox, 1);
  EXPECT_THAT(ProfileNames(), ElementsAre(W("")));
  EXPECT_THAT(view[kProfileBox].lines, ElementsAre(kNoLineText, kSaveLineText, W("")));
  EXPECT_EQ(view[kProfileBox].selectedLine, 2);
  EXPECT_EQ(frameView.title, W("T000A0063 - T00150064"));
  EXPECT_EQ(Saves(), 1);
}

TEST_F(PanelProfiles, OfEqualNamesTheFirstIsSelected) {
  const MultiRenameProfile* const first = &Keep(W("one"));
  Keep(W("ONE"));
  ProfileBox box(view, host_, profiles_);
  const WString name = W("One");
  EXPECT_EQ(box.Rebuild(&name), first);
  EXPECT_EQ(view[kProfileBox].selectedLine, 2);
}

// With controls that report the changes made by the form.

TEST_F(PanelProfiles, TheEmptyChoicePostsOneUpdate) {
  Keep(W("one"));
  Open({W("a.t")});
  Choose(kProfileBox, 2);
  Settle();
  view.echo = [this](int control) { form.Change(control); };
  Choose(kProfileBox, 0);
  EXPECT_THAT(Waiting(), ElementsAre(MRM_UPDATE_PREVIEW));
}

TEST_F(PanelProfiles, ASavedProfileIsLoadedOnce) {
  Open({W("a.t")});
  int loads = 0;
  view.echo = [&](int control) {
    if (control == kNameTemplate) ++loads;
    form.Change(control);
  };
  Name(W("mine"));
  Choose(kProfileBox, 1);
  EXPECT_EQ(loads, 1);
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(Waiting(), ElementsAre(MRM_ROWS_CHANGED, MRM_RUN_FINISHED));
}

TEST_F(PanelProfiles, XPostsOneUpdateAndItsEmptyChoiceIsNotThatOfTheUser) {
  Keep(W("one"));
  Open({W("a.t")});
  Choose(kProfileBox, 2);
  Settle();
  view.echo = [this](int control) { form.Change(control); };
  view.boxes.answers = {IDYES};
  form.Press(kDeleteProfile);
  EXPECT_THAT(Waiting(), ElementsAre(MRM_UPDATE_PREVIEW));
  EXPECT_EQ(view[kPairList].rows.size(), 2u);
  EXPECT_EQ(form.ProfileName(), W("one"));
}

TEST_F(PanelProfiles, CancelSavesNothingAndTheBoxKeepsItsLine) {
  Open();
  host_.textAnswers.push_back({false, W("x")});
  Choose(kProfileBox, 1);
  EXPECT_EQ(view[kProfileBox].selectedLine, 1);
  EXPECT_THAT(ProfileNames(), IsEmpty());
  EXPECT_EQ(Saves(), 0);
}

TEST_F(PanelProfiles, SavingOverAProfileAsksAndMovesItToTheEnd) {
  Keep(W("One"));
  Keep(W("two"));
  Keep(W("ONE"));
  Open();
  view[kNameTemplate].text = W("fresh");
  Name(W("oNe"));
  view.boxes.answers = {IDYES};
  Choose(kProfileBox, 1);
  EXPECT_THAT(view.boxes.shown, ElementsAre(RecordedBox{W("T000A0063"), W("T01930064"), MB_YESNO}));
  EXPECT_THAT(ProfileNames(), ElementsAre(W("two"), W("oNe")));
  EXPECT_EQ(profiles_.profiles[1]->filenameRule, W("fresh"));
  EXPECT_EQ(view[kProfileBox].selectedLine, 3);
  EXPECT_EQ(Saves(), 1);
}

TEST_F(PanelProfiles, NoToReplacingSelectsTheEmptyChoiceAndSavesNothing) {
  Keep(W("one"));
  Open();
  view.echo = [this](int control) { form.Change(control); };
  Choose(kProfileBox, 2);
  Settle();
  Name(W("ONE"));
  view.boxes.answers = {IDNO};
  Choose(kProfileBox, 1);
  EXPECT_EQ(view[kProfileBox].selectedLine, 0);
  EXPECT_EQ(Saves(), 0);
  EXPECT_THAT(ProfileNames(), ElementsAre(W("one")));
  // Only the selected line changes; the rules do not.
  EXPECT_EQ(view[kNameTemplate].text, W("n_one"));
  EXPECT_EQ(form.ProfileName(), W("one"));
}

TEST_F(PanelProfiles, SavingStopsThePreviewFirst) {
  GateProperties gate;
  Open({W("a.t"), W("b.t")});
  PreviewIntoGate(gate);
  bool isBusy = true;
  host_.beforeDocument = [&] { isBusy = engine_->busy; };
  WhileHeld(gate.gate, [&] {
    Name(W("mine"));
    Choose(kProfileBox, 1);
  });
  EXPECT_FALSE(isBusy);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.t"), W("x02.t")));
}

TEST_F(PanelProfiles, AHostWithoutXmlSavesNothingAndTheProfileIsThere) {
  Open();
  host_.files.givesDocuments = false;
  Name(W("mine"));
  Choose(kProfileBox, 1);
  EXPECT_THAT(ProfileNames(), ElementsAre(W("mine")));
  EXPECT_EQ(view[kProfileBox].selectedLine, 2);
}

TEST_F(PanelProfiles, XDeletesTheChosenProfileAfterAQuestion) {
  host_.texts[kRenameTextDeleteProfile] = W("Delete %s?");
  Keep(W("one"));
  Keep(W("two%s"));
  Open({W("a.t")});
  Choose(kProfileBox, 3);
  Settle();
  view.boxes.answers = {IDYES};
  form.Press(kDeleteProfile);
  EXPECT_THAT(view.boxes.shown, ElementsAre(RecordedBox{W("T000A0063"), W("Delete two%s?"), MB_YESNO}));
  EXPECT_THAT(ProfileNames(), ElementsAre(W("one")));
  EXPECT_THAT(view[kProfileBox].lines, ElementsAre(kNoLineText, kSaveLineText, W("one")));
  EXPECT_EQ(view[kProfileBox].selectedLine, 0);
  EXPECT_EQ(view[kNameTemplate].text, W("[N]"));
  EXPECT_EQ(view[kDigits].text, W("2"));
  EXPECT_EQ(frameView.title, W("T000A0063"));
  EXPECT_EQ(Saves(), 1);
  EXPECT_EQ(Saved().find("two"), std::string::npos);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("a.t")));
}

TEST_F(PanelProfiles, XDeletesTheChosenOneOfTwoWithEqualNames) {
  Keep(W("ONE"));
  Keep(W("one"));
  Open();
  Choose(kProfileBox, 3);
  view.boxes.answers = {IDYES};
  form.Press(kDeleteProfile);
  EXPECT_THAT(ProfileNames(), ElementsAre(W("ONE")));
}

TEST_F(PanelProfiles, XLeavesThePairsAndTheRememberedName) {
  Keep(W("one"));
  Open();
  Choose(kProfileBox, 2);
  view.boxes.answers = {IDYES};
  form.Press(kDeleteProfile);
  EXPECT_EQ(view[kPairList].rows.size(), 2u);
  EXPECT_EQ(form.ProfileName(), W("one"));
}

TEST_F(PanelProfiles, NoToXDeletesNothing) {
  Keep(W("one"));
  Open();
  Choose(kProfileBox, 2);
  view.boxes.answers = {IDNO};
  form.Press(kDeleteProfile);
  EXPECT_THAT(ProfileNames(), ElementsAre(W("one")));
  EXPECT_EQ(view[kProfileBox].selectedLine, 2);
  EXPECT_EQ(Saves(), 0);
}

TEST_F(PanelProfiles, XDoesNothingWithoutAProfileLine) {
  Keep(W("one"));
  Open();
  for (const int line : {-1, 0, 1}) {
    view[kProfileBox].selectedLine = line;
    form.Press(kDeleteProfile);
  }
  EXPECT_THAT(view.boxes.shown, IsEmpty());
  EXPECT_THAT(ProfileNames(), ElementsAre(W("one")));
}

}  // namespace
}  // namespace Velmora::SDK
