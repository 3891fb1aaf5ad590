#include "host/services/command_names.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string>
#include <vector>

#include "frame/host/command_numbers.h"
#include "host/output/failures.h"
#include "host/output/nearest_name.h"
#include "platform/ascii_case.h"

using namespace Velmora::SDK;

namespace QxHost {
namespace {

// clang-format off
constexpr CommandName kCommandNames[] = {
  {kCommandUpperCase, "upper-case"},
  {kCommandUpperCaseBase, "upper-case-base"},
  {kCommandUpperCaseExtension, "upper-case-extension"},
  {kCommandLowerCase, "lower-case"},
  {kCommandLowerCaseBase, "lower-case-base"},
  {kCommandLowerCaseExtension, "lower-case-extension"},
  {kCommandTitleCase, "title-case"},
  {kCommandUnderscoresToBlanks, "underscores-to-blanks"},
  {kCommandDotsToBlanks, "dots-to-blanks"},
  {kCommandHyphensToBlanks, "hyphens-to-blanks"},
  {kCommandBlanksToUnderscores, "blanks-to-underscores"},
  {kCommandBlanksToDots, "blanks-to-dots"},
  {kCommandBlanksToHyphens, "blanks-to-hyphens"},
  {kCommandUnderscoresToDots, "underscores-to-dots"},
  {kCommandDotsToUnderscores, "dots-to-underscores"},
  {kCommandTidyName, "tidy-name"},
  {kCommandReplaceXWithY, "replace-x-with-y"},
  {kCommandRenameSameBaseName, "rename-same-base-name"},
  {kCommandSetExtension, "set-extension"},
  {kCommandLineEndsToLf, "line-ends-to-lf"},
  {kCommandLineEndsToCrLf, "line-ends-to-crlf"},
  {kCommandLineEndsToCr, "line-ends-to-cr"},
  {kCommandTabsToBlanks, "tabs-to-blanks"},
  {kCommandFormatXml, "format-xml"},
  {kCommandCompactXml, "compact-xml"},
  {kCommandSortLines, "sort-lines"},
  {kCommandFindAndReplace, "find-and-replace"},
  {kCommandEncodeBase64, "encode-base64"},
  {kCommandDecodeBase64, "decode-base64"},
  {kCommandTakeOwnership, "take-ownership"},
  {kCommandResetAccess, "reset-access"},
  {kCommandAddAccess, "add-access"},
  {kCommandCreateLink, "create-link"},

  // The window of MultiRename.
  {kCommandMultiRename, "multi-rename"},

  // The control panel: kCommandFirstControlPanel plus the row id of the item.
  {6101, "control-action-center"},
  {6102, "control-administrative-tools"},
  {6104, "control-backup-and-restore"},
  {6106, "control-bitlocker-drive-encryption"},
  {6161, "control-file-history"},
  {6123, "control-indexing-options"},
  {6131, "control-notification-area-icons"},
  {6132, "control-offline-files"},
  {6136, "control-performance-information-and-tools"},
  {6141, "control-recovery"},
  {6148, "control-system"},
  {6154, "control-windows-cardspace"},
  {6155, "control-windows-defender"},
  {6156, "control-windows-firewall"},
  {6157, "control-windows-mobility-center"},
  {6159, "control-windows-update"},
  {6122, "control-homegroup"},
  {6125, "control-internet-options"},
  {6130, "control-network-and-sharing-center"},
  {6143, "control-remoteapp-and-desktop-connections"},
  {6103, "control-autoplay"},
  {6113, "control-device-manager"},
  {6114, "control-devices-and-printers"},
  {6119, "control-game-controllers"},
  {6124, "control-infrared"},
  {6126, "control-iscsi-initiator"},
  {6127, "control-keyboard"},
  {6128, "control-location-and-other-sensors"},
  {6160, "control-location-settings"},
  {6129, "control-mouse"},
  {6134, "control-pen-and-touch"},
  {6138, "control-phone-and-modem"},
  {6139, "control-power-options"},
  {6144, "control-scanners-and-cameras"},
  {6145, "control-sound"},
  {6149, "control-tablet-pc-settings"},
  {6158, "control-windows-sideshow"},
  {6111, "control-default-programs"},
  {6120, "control-get-programs"},
  {6140, "control-programs-and-features"},
  {6108, "control-credential-manager"},
  {6133, "control-parental-controls"},
  {6135, "control-people-near-me"},
  {6153, "control-user-accounts"},
  {6107, "control-color-management"},
  {6115, "control-display"},
  {6117, "control-folder-options"},
  {6118, "control-fonts"},
  {6137, "control-personalization"},
  {6109, "control-date-and-time"},
  {6162, "control-language"},
  {6142, "control-region-and-language"},
  {6116, "control-ease-of-access-center"},
  {6146, "control-speech-recognition"},
  {6151, "control-text-to-speech"},
  {6105, "control-biometric-devices"},
  {6110, "control-default-locations"},
  {6112, "control-desktop-gadgets"},
  {6121, "control-getting-started"},
  {6147, "control-sync-center"},
  {6150, "control-taskbar-and-start-menu"},
  {6152, "control-troubleshooting"},
};
// clang-format on

std::optional<std::int32_t> DecimalNumber(std::string_view text) {
  std::int32_t number = 0;
  const char* const textEnd = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), textEnd, number);
  if (error != std::errc() || end != textEnd) return std::nullopt;
  return number;
}

std::vector<CommandName> CommandsThatBeginWith(std::string_view beginning) {
  std::vector<CommandName> found;
  if (beginning.empty()) return found;
  std::ranges::copy_if(kCommandNames, std::back_inserter(found),
                       [beginning](const CommandName& row) { return row.name.starts_with(beginning); });
  return found;
}

[[noreturn]] void RefuseManyNames(std::string_view text, const std::vector<CommandName>& candidates) {
  std::string names;
  for (const CommandName& row : candidates) {
    names += (names.empty() ? "" : ", ") + std::string(row.name);
  }
  throw BadCall("more than one command begins with \"" + std::string(text) + "\": " + names +
                ". Type more of its name");
}

constexpr std::size_t kShortestPart = 3;
constexpr std::size_t kMaxProposed = 5;

// Returns the nearest name or, if none is near, the names that contain the text if they are few.
std::string ProposalOf(std::string_view text, const std::vector<std::string_view>& names) {
  const std::string nearest = DidYouMean(text, names);
  if (!nearest.empty() || text.size() < kShortestPart) return nearest;
  const std::string part = AsciiLower(text);
  std::string list;
  std::size_t count = 0;
  for (const std::string_view name : names) {
    if (name.find(part) == std::string_view::npos) continue;
    list += (list.empty() ? "" : ", ") + std::string(name);
    ++count;
  }
  return count == 0 || count > kMaxProposed ? std::string() : ". Did you mean " + list + "?";
}

[[noreturn]] void RefuseUnknownName(std::string_view text) {
  std::vector<std::string_view> names;
  for (const CommandName& row : kCommandNames) names.push_back(row.name);
  throw BadCall("\"" + std::string(text) +
                "\" is not a command: give its number or its name, as `qxhost menu` shows them" +
                ProposalOf(text, names));
}

}  // namespace

std::span<const CommandName> CommandNames() { return kCommandNames; }

std::string_view NameOfCommand(std::int64_t number) {
  const auto* const row = std::ranges::find(kCommandNames, number, &CommandName::number);
  return row == std::end(kCommandNames) ? std::string_view() : row->name;
}

std::optional<std::int32_t> FindCommand(std::string_view text) {
  if (const std::optional<std::int32_t> number = DecimalNumber(text)) return number;
  const auto* const row = std::ranges::find(kCommandNames, AsciiLower(text), &CommandName::name);
  if (row == std::end(kCommandNames)) return std::nullopt;
  return row->number;
}

std::string ProposedCommand(std::string_view text) {
  if (const std::optional<std::int32_t> number = FindCommand(text)) {
    return NameOfCommand(*number).empty() ? std::string() : std::string(text);
  }
  const std::vector<CommandName> candidates = CommandsThatBeginWith(AsciiLower(text));
  if (candidates.size() == 1) return std::string(candidates.front().name);
  std::vector<std::string_view> names;
  for (const CommandName& row : kCommandNames) names.push_back(row.name);
  return candidates.empty() ? std::string(NearestName(text, names)) : std::string();
}

std::int32_t CommandOfText(std::string_view text) {
  if (const std::optional<std::int32_t> number = FindCommand(text)) return *number;
  const std::vector<CommandName> candidates = CommandsThatBeginWith(AsciiLower(text));
  if (candidates.empty()) RefuseUnknownName(text);
  if (candidates.size() > 1) RefuseManyNames(text, candidates);
  return candidates.front().number;
}

}  // namespace QxHost
