// The texts of property tags.
#include <gmock/gmock.h>

#include <algorithm>

#include "multirename/rename_host.h"
#include "multirename/rules/date_text.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;

constexpr u64 kNoon = 127014444000000000;  // 2003-06-30 11:00:00, counted from 1601 in units of 100 ns

class PropertyTextTest : public testing::Test {
 protected:
  WString NameOf(const WString& filenameTemplate) {
    RuleInput rules = DefaultRules(RowsOf(host_, {W("a.txt")}));
    rules.filenameTemplate = filenameTemplate;
    rules.extensionTemplate.clear();
    EXPECT_TRUE(CompileRules(engine_, rules));
    ComputeName(engine_, *engine_.items.front());
    return engine_.items.front()->newName;
  }

  RenameHost host_;
  FakeProperties properties_;
  MultiRenameEngine engine_{&host_};
};

TEST_F(PropertyTextTest, WithoutAManagerOrAValueItIsEmpty) {
  EXPECT_EQ(NameOf(W("x[?size]")), W("x"));
  engine_.propertyManager = &properties_;
  EXPECT_EQ(NameOf(W("x[?size]")), W("x"));
  properties_.values[W("size")] = {W("77"), 0, 0};
  EXPECT_EQ(NameOf(W("x[?size]")), W("x"));
  properties_.values[W("size")] = {W("77"), 0, 0xFFFFFFFF};  // less than 0
  EXPECT_EQ(NameOf(W("x[?size]")), W("x"));
  properties_.values[W("")] = {W("nobody's")};
  EXPECT_EQ(NameOf(W("x[?]")), W("xnobody's"));
}

TEST_F(PropertyTextTest, ATextIsTakenWholeOrInPart) {
  engine_.propertyManager = &properties_;
  properties_.values[W("title")] = {W("abcdef")};
  EXPECT_EQ(NameOf(W("[?title]")), W("abcdef"));
  EXPECT_EQ(NameOf(W("[?title,2,3]")), W("bcd"));
  EXPECT_EQ(NameOf(W("[?title,2]")), W("ab"));
  // A range selects a part only if its start and its length are greater than 0.
  EXPECT_EQ(NameOf(W("[?title,2-3]")), W("abcdef"));
  EXPECT_EQ(NameOf(W("[?title,-2]")), W("abcdef"));
  EXPECT_THAT(properties_.paths, testing::Each(W("C:\\view\\a.txt")));
}

TEST_F(PropertyTextTest, ANumberIsPaddedByItsFormat) {
  engine_.propertyManager = &properties_;
  properties_.values[W("size")] = {W("77 bytes")};
  EXPECT_EQ(NameOf(W("[?size,{n5}]")), W("00077"));
  EXPECT_EQ(NameOf(W("[?size,{N3}]")), W("077"));
  EXPECT_EQ(NameOf(W("[?size,{n}]")), W("77"));
  EXPECT_EQ(NameOf(W("[?size,{x5}]")), W("77 bytes"));
  EXPECT_EQ(NameOf(W("[?size,{n5},4,2]")), W("77"));
  EXPECT_EQ(NameOf(W("[?size,{n-5}]x")), W("77   x"));
  properties_.values[W("size")] = {W("-7")};
  EXPECT_EQ(NameOf(W("[?size,{n4}]")), W("-007"));
  properties_.values[W("size")] = {W("none")};
  EXPECT_EQ(NameOf(W("[?size,{n2}]")), W("00"));
}

TEST_F(PropertyTextTest, ADateIsWrittenByItsFormatWithTheTimeDirectlyAfterIt) {
  engine_.propertyManager = &properties_;
  properties_.values[W("modified")] = {W(""), kNoon};
  EXPECT_EQ(NameOf(W("[?modified,{yyyyMMdd}]")), W("20030630"));
  EXPECT_EQ(NameOf(W("[?modified,{yyyy.MM.dd|HH'h'mm}]")), W("2003.06.3011h00"));
  EXPECT_EQ(NameOf(W("[?modified,{|HHmmss}]")), W("110000"));
  EXPECT_EQ(NameOf(W("[?modified,{yyyy|}]")), W("2003"));
  EXPECT_EQ(NameOf(W("[?modified,{yyyyMMdd},5,2]")), W("06"));
  SYSTEMTIME noon{2003, 6, 1, 30, 11, 0, 0, 0};
  const WString both =
      FormatDate(noon, LocaleFormat(LOCALE_SSHORTDATE)) + FormatTime(noon, LocaleFormat(LOCALE_STIMEFORMAT));
  EXPECT_NE(both.find(W("2003")), WString::npos);
  EXPECT_EQ(NameOf(W("[?modified]")), both);
  EXPECT_EQ(NameOf(W("[?modified,{|}]")), both);
}

TEST_F(PropertyTextTest, ADateThatIsNoneAndNoDateAreEmpty) {
  engine_.propertyManager = &properties_;
  properties_.values[W("d")] = {W(""), 0};
  EXPECT_EQ(NameOf(W("x[?d]")), W("x"));
  properties_.values[W("d")] = {W(""), 0xFFFFFFFFFFFFFFFF};
  EXPECT_EQ(NameOf(W("x[?d]")), W("x"));
}

TEST_F(PropertyTextTest, AnExceptionOfTheHostIsTheWordErrorWithoutARange) {
  engine_.propertyManager = &properties_;
  properties_.throws = true;
  EXPECT_EQ(NameOf(W("[?size]")), W("Error"));
  EXPECT_EQ(NameOf(W("[?size,2,2]")), W("Error"));
  EXPECT_EQ(NameOf(W("[?size,9,2]")), W("Error"));
}

// Fills the whole buffer, without a terminator.
class FillingProperties final : public IHostPropertyManager {
 public:
  u32 GetValue(WCHAR* buffer, u32 size, const WCHAR*, void*, const WCHAR*) override {
    std::fill(buffer, buffer + size, W('x'));
    return 1;
  }
  void ListProperties(IHostPropertyList*, u32) override {}
};

TEST_F(PropertyTextTest, ATextThatFillsTheWholeBufferIsCutAtItsLastCharacter) {
  FillingProperties filling;
  engine_.propertyManager = &filling;
  EXPECT_EQ(NameOf(W("[?p]")), WString(255, W('x')));
}

TEST_F(PropertyTextTest, ATextCountsForMoreThanADateAndANumberFormatMustBeginWithItsLetter) {
  engine_.propertyManager = &properties_;
  properties_.values[W("both")] = {W("7 text"), kNoon};
  EXPECT_EQ(NameOf(W("[?both,{yyyy}]")), W("7 text"));
  EXPECT_EQ(NameOf(W("[?both,{n3}]")), W("007"));
  EXPECT_EQ(NameOf(W("[?both,{xn3}]")), W("7 text"));
  EXPECT_EQ(NameOf(W("[?both,{ n3}]")), W("7 text"));
  EXPECT_EQ(NameOf(W("[?both,{n0}]")), W("7"));
}

// The text after the brace is parsed as any range: a single number after a comma is a start without a length,
// which has no effect on a property.
TEST_F(PropertyTextTest, ARangeAfterAFormatBeginsRightAfterItsBrace) {
  engine_.propertyManager = &properties_;
  properties_.values[W("d")] = {W(""), kNoon};
  EXPECT_EQ(NameOf(W("[?d,{yyyy}2]")), W("20"));
  EXPECT_EQ(NameOf(W("[?d,{yyyy},2]")), W("2003"));
  EXPECT_EQ(NameOf(W("[?d,{yyyy}-2]")), W("2003"));
  EXPECT_EQ(NameOf(W("[?d,{yyyy},2-3]")), W("2003"));
  EXPECT_EQ(NameOf(W("[?d,{yyyy},3,1]")), W("0"));
  EXPECT_EQ(NameOf(W("[?d,{yyyy},9,1]")), W(""));
}

}  // namespace
}  // namespace Velmora::SDK
