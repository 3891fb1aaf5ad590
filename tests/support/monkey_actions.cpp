#include "support/monkey_actions.h"

#include "multirename/form/frame_form.h"
#include "multirename/form/panel_controls.h"

namespace {

using namespace Velmora::SDK;

struct DeedRow {
  MonkeyDeed deed;
  const char* name;
  std::uint32_t weight;
};
constexpr DeedRow kDeeds[] = {
    {MonkeyDeed::kType, "type", 300},        {MonkeyDeed::kPress, "press", 180},
    {MonkeyDeed::kChoose, "choose", 120},    {MonkeyDeed::kDoubleClick, "double click", 10},
    {MonkeyDeed::kSelectRows, "select", 80}, {MonkeyDeed::kMoveRows, "move", 100},
    {MonkeyDeed::kRun, "run", 120},          {MonkeyDeed::kUndo, "undo", 60},
    {MonkeyDeed::kEscape, "escape", 8},      {MonkeyDeed::kContextMenu, "menu", 10},
    {MonkeyDeed::kNewSelection, "new", 12},  {MonkeyDeed::kClose, "close", 6},
    {MonkeyDeed::kShutDown, "shut down", 4},
};

constexpr int kFields[] = {kNameTemplate, kNameTemplate, kNameTemplate, kExtensionTemplate, kStartAt,
                           kStepBy,       kDigits,       kPairFind,     kPairReplace};
constexpr int kButtons[] = {kNameTags,    kExtensionTags, kPairAdd,           kPairDialog,
                            kRegexBox,    kReplaceAllBox, kDeleteProfile,     kCaseSensitiveBox,
                            kSaveUndoBox, kResetButton,   kUndoManagerButton, kLivePreviewBox};
constexpr int kBoxes[] = {kCaseBox, kPartsBox, kProfileBox, kNameTemplate, kExtensionTemplate};

constexpr const WCHAR* kTexts[] = {W("[N]"),
                                   W("[N]"),
                                   W("[E]"),
                                   W("[N]_[C]"),
                                   W("x[C]"),
                                   W("[C]"),
                                   W("[N1]x"),
                                   W("[N2,3]"),
                                   W("[F]-[C]"),
                                   W("[?size]"),
                                   W("[C1,2,4]"),
                                   W("[Y]-[M]-[D]"),
                                   W("["),
                                   W("[]"),
                                   W("a*b"),
                                   W("same"),
                                   W(""),
                                   W(" "),
                                   W("."),
                                   W(".."),
                                   W("%s%n&\r\n"),
                                   W("(a|b)"),
                                   W("("),
                                   W("a"),
                                   W("1"),
                                   W("007"),
                                   W("-5"),
                                   W("99999999999"),
                                   W("\u00E9\u4E2D"),
                                   W("$1$&"),
                                   W("txt"),
                                   W("[N][C][E][h][m][s]")};

constexpr const char* kLines[] = {"ok", "yes", "no", "cancel", "one", "two", "50 % & more", ""};

template <typename T, std::size_t size>
T OneOf(ActionGenerator& generator, const T (&values)[size]) {
  return values[generator.Below(size)];
}

const DeedRow& RowAt(std::uint32_t place) {
  for (const DeedRow& row : kDeeds) {
    if (place < row.weight) return row;
    place -= row.weight;
  }
  return kDeeds[0];
}

std::uint32_t WeightOfAll() {
  std::uint32_t weight = 0;
  for (const DeedRow& row : kDeeds) weight += row.weight;
  return weight;
}

const char* NameOf(MonkeyDeed deed) {
  for (const DeedRow& row : kDeeds) {
    if (row.deed == deed) return row.name;
  }
  return "";
}

}  // namespace

std::string MonkeyAction::Shown() const {
  return std::string(NameOf(deed)) + " " + std::to_string(control) + " \"" + ToUtf8(text) + "\" " +
         std::to_string(number) + " " + std::to_string(count) + (isAwaited ? "" : " at once");
}

std::uint32_t ActionGenerator::Below(std::uint32_t limit) {
  return limit == 0 ? 0 : static_cast<std::uint32_t>(engine_() % limit);
}

WString ActionGenerator::Text() { return OneOf(*this, kTexts); }

std::optional<std::string> ActionGenerator::Line() {
  if (Chance(20)) return std::nullopt;
  return OneOf(*this, kLines);
}

MonkeyAction ActionGenerator::Next() {
  MonkeyAction action{RowAt(Below(WeightOfAll())).deed, 0, {}, 0, 0, true};
  switch (action.deed) {
    case MonkeyDeed::kType:
      action.control = OneOf(*this, kFields);
      action.text = Text();
      action.isAwaited = !Chance(40);
      break;
    case MonkeyDeed::kPress:
      action.control = OneOf(*this, kButtons);
      break;
    case MonkeyDeed::kChoose:
      action.control = OneOf(*this, kBoxes);
      action.number = Below(64);
      break;
    case MonkeyDeed::kDoubleClick:
      action.control = kPairList;
      break;
    case MonkeyDeed::kSelectRows:
      action.number = Below(64);
      action.count = Below(8);
      break;
    case MonkeyDeed::kMoveRows:
      action.control = kFrameMoves[Below(std::size(kFrameMoves))].command;
      break;
    case MonkeyDeed::kRun:
      action.control = kStartButton;
      action.isAwaited = !Chance(20);
      break;
    case MonkeyDeed::kUndo:
      action.control = kUndoButton;
      action.isAwaited = !Chance(20);
      break;
    default:
      action.isAwaited = Chance(50);
      break;
  }
  return action;
}
