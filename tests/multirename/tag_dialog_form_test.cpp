// The dialog of property tags.
#include "multirename/form/tag_dialog_form.h"

#include <gmock/gmock.h>

#include "multirename/panel_window.h"
#include "platform/windows_api.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TagDialog : public testing::Test {
 protected:
  void Choose(int line) {
    dialog_[kTagProperties].selectedLine = line;
    form_.Change(kTagProperties);
  }
  void Mark(int control) {
    dialog_[kTagComplete].isChecked = control == kTagComplete;
    dialog_[kTagSubString].isChecked = control == kTagSubString;
    form_.Press(control);
  }
  void Type(int control, const WString& text) {
    dialog_[control].text = text;
    form_.Change(control);
  }

  FakeHost host_;
  const std::vector<PropertyName> names_ = {{W("size"), W("Size of the file")},
                                            {W("modified"), W("Changed on")}};
  DialogWindow dialog_;
  TagDialogForm form_{host_, names_};
};

TEST_F(TagDialog, HasItsTexts) {
  form_.Open(dialog_);
  const std::map<int, WString> texts = {{0, W("T028A0064")},
                                        {kTagPropertyLabel, W("T028E0064")},
                                        {kTagChosenLabel, W("T028F0064")},
                                        {kTagStartLabel, W("T02920064")},
                                        {kTagLengthLabel, W("T02930064")},
                                        {kTagComplete, W("T02900064")},
                                        {kTagSubString, W("T02910064")},
                                        {IDOK, W("T02940064")},
                                        {IDCANCEL, W("M0:00030067")}};
  for (const auto& [control, text] : texts) EXPECT_EQ(dialog_[control].text, text) << control;
}

TEST_F(TagDialog, OffersThePropertiesAsTheyAreDisplayed) {
  form_.Open(dialog_);
  EXPECT_THAT(dialog_[kTagProperties].lines, ElementsAre(W("Size of the file"), W("Changed on")));
  EXPECT_EQ(dialog_[kTagProperties].selectedLine, -1);
}

TEST_F(TagDialog, BeginsWithTheWholeValueAndNoNumbers) {
  form_.Open(dialog_);
  EXPECT_TRUE(dialog_[kTagComplete].isChecked);
  EXPECT_FALSE(dialog_[kTagSubString].isChecked);
  EXPECT_FALSE(dialog_.IsEnabled(kTagStart));
  EXPECT_FALSE(dialog_.IsEnabled(kTagLength));
}

TEST_F(TagDialog, AChosenLineShowsItsNameAndMakesItsTag) {
  form_.Open(dialog_);
  Choose(1);
  EXPECT_EQ(dialog_[kTagChosen].text, W("Changed on"));
  EXPECT_EQ(dialog_[kTagText].text, W("[?modified]"));
  Choose(0);
  EXPECT_EQ(dialog_[kTagChosen].text, W("Size of the file"));
  EXPECT_EQ(dialog_[kTagText].text, W("[?size]"));
}

TEST_F(TagDialog, NoLineChangesNothing) {
  form_.Open(dialog_);
  Choose(1);
  Choose(-1);
  Choose(2);
  EXPECT_EQ(dialog_[kTagText].text, W("[?modified]"));
}

TEST_F(TagDialog, ThePartOfAValueHasStartAndLengthWhereTheyAreGiven) {
  form_.Open(dialog_);
  Choose(0);
  Mark(kTagSubString);
  EXPECT_TRUE(dialog_.IsEnabled(kTagStart));
  EXPECT_TRUE(dialog_.IsEnabled(kTagLength));
  EXPECT_EQ(dialog_[kTagText].text, W("[?size]"));
  Type(kTagStart, W("3"));
  EXPECT_EQ(dialog_[kTagText].text, W("[?size,3]"));
  Type(kTagLength, W("4"));
  EXPECT_EQ(dialog_[kTagText].text, W("[?size,3,4]"));
  Type(kTagStart, W(""));
  EXPECT_EQ(dialog_[kTagText].text, W("[?size,4]"));
}

TEST_F(TagDialog, TheFieldsAreTakenAsTextUnchecked) {
  form_.Open(dialog_);
  Mark(kTagSubString);
  Type(kTagStart, W("x]"));
  Type(kTagLength, W(" -"));
  EXPECT_EQ(dialog_[kTagText].text, W("[?,x], -]"));
}

TEST_F(TagDialog, TheWholeValueLeavesTheNumbersOutAndKeepsThem) {
  form_.Open(dialog_);
  Choose(0);
  Mark(kTagSubString);
  Type(kTagStart, W("3"));
  Mark(kTagComplete);
  EXPECT_EQ(dialog_[kTagText].text, W("[?size]"));
  EXPECT_FALSE(dialog_.IsEnabled(kTagStart));
  Mark(kTagSubString);
  EXPECT_EQ(dialog_[kTagText].text, W("[?size,3]"));
}

TEST_F(TagDialog, InsertTakesTheTextAsItWasEdited) {
  form_.Open(dialog_);
  Choose(0);
  Type(kTagText, W(" \t[?size,{n8}]\r\n "));
  form_.Press(IDOK);
  EXPECT_EQ(dialog_.result, IDOK);
  EXPECT_EQ(form_.Tag(), W("[?size,{n8}]"));
}

TEST_F(TagDialog, InsertWithNoPropertyChosenGivesAnEmptyName) {
  form_.Open(dialog_);
  form_.Press(IDOK);
  EXPECT_EQ(form_.Tag(), W("[?]"));
}

TEST_F(TagDialog, InsertReads1024Characters) {
  form_.Open(dialog_);
  dialog_[kTagText].text = WString(1023, W('a')) + W("bc");
  form_.Press(IDOK);
  EXPECT_EQ(form_.Tag(), WString(1023, W('a')) + W("b"));
}

TEST_F(TagDialog, CancelEndsWithTwo) {
  form_.Open(dialog_);
  form_.Press(IDCANCEL);
  EXPECT_EQ(dialog_.result, IDCANCEL);
}

TEST_F(TagDialog, WorksWithControlsThatReportWhatTheFormSets) {
  dialog_.echo = [this](int control) { form_.Change(control); };
  form_.Open(dialog_);
  Choose(1);
  EXPECT_EQ(dialog_[kTagText].text, W("[?modified]"));
}

TEST(PropertyNames, AreThosePairsThatTheHostGives) {
  PanelHost host;
  host.properties.properties = {{W("a"), W("A")}, {W("b"), W("B"), false}, {W("c"), W("C")}};
  const std::vector<PropertyName> names = ListPropertyNames(host, &host.properties);
  ASSERT_EQ(names.size(), 2u);
  EXPECT_EQ(names[0].internalName, W("a"));
  EXPECT_EQ(names[0].displayName, W("A"));
  EXPECT_EQ(names[1].internalName, W("c"));
  EXPECT_EQ(host.properties.lists, 1);
  EXPECT_EQ(host.properties.releases, 1);
}

TEST(PropertyNames, AreNoneWithoutAManagerOrAList) {
  PanelHost host;
  EXPECT_THAT(ListPropertyNames(host, nullptr), IsEmpty());
  FakeHost without;
  EXPECT_THAT(ListPropertyNames(without, &host.properties), IsEmpty());
}

}  // namespace
}  // namespace Velmora::SDK
