#include <algorithm>
#include <array>
#include <string_view>

#include "multirename/letter_case.h"
#include "multirename/multi_rename_engine.h"

namespace Velmora::SDK {

namespace {

// By the characters of ASCII, where all of the forbidden ones are.
constexpr std::array<bool, 128> kForbiddenCharacters = [] {
  std::array<bool, 128> forbidden{};
  for (const char c : std::string_view("*|\\/:\"<>?")) forbidden[static_cast<unsigned char>(c)] = true;
  return forbidden;
}();

bool HoldsForbidden(WStringView name) {
  return std::ranges::any_of(
      name, [](WCHAR c) { return c < kForbiddenCharacters.size() && kForbiddenCharacters[c]; });
}

}  // namespace

// Every row is compared with the first alone: rows further down that equal one another are left to the host,
// whose rename decides.
void CheckConflicts(MultiRenameEngine& engine) {
  for (MultiRenameItem* const item : engine.items) {
    item->state.store(HoldsForbidden(item->newName) ? StateInvalidName : StateReady,
                      std::memory_order_relaxed);
  }
  if (engine.items.empty()) return;
  MultiRenameItem& pivot = *engine.items.front();
  bool isDuplicate = false;
  for (std::size_t row = 1; row < engine.items.size(); ++row) {
    MultiRenameItem& item = *engine.items[row];
    if (!EqualButForCase(item.newName, pivot.newName)) continue;
    item.state = StateDuplicate;
    isDuplicate = true;
  }
  if (isDuplicate) pivot.state = StateDuplicate;
}

}  // namespace Velmora::SDK
