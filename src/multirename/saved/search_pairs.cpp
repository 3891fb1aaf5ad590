#include "multirename/saved/search_pairs.h"

#include "multirename/rules/trimmed.h"

namespace Velmora::SDK {

WString PairCell(WStringView value) {
  WString cell(value);
  if (!value.starts_with(W(' ')) && !value.ends_with(W(' '))) return cell;
  cell.insert(cell.begin(), W('"'));
  cell += W('"');
  return cell;
}

std::optional<std::pair<WString, WString>> PairRow(WStringView find, WStringView replace) {
  if (find.empty()) return std::nullopt;
  return std::pair(PairCell(find.substr(0, kMaxPairFieldChars)),
                   PairCell(replace.substr(0, kMaxPairFieldChars)));
}

SearchAndReplaceItems PairRows(const SearchAndReplaceItems& items) {
  SearchAndReplaceItems rows;
  rows.reserve(items.size());
  for (const auto& [find, replace] : items) rows.emplace_back(PairCell(find), PairCell(replace));
  return rows;
}

SearchAndReplaceItems CollectSearchItems(const SearchAndReplaceItems& rows, bool stripQuotes) {
  const auto collected = [stripQuotes](WStringView cell) {
    cell = cell.substr(0, kMaxPairCellChars);
    return WString(stripQuotes ? Trimmed(cell, W("\"")) : cell);
  };
  SearchAndReplaceItems items;
  items.reserve(rows.size());
  for (const auto& [find, replace] : rows) items.emplace_back(collected(find), collected(replace));
  return items;
}

WString PairDialogText(const SearchAndReplaceItems& items) {
  WString text;
  for (const auto& [find, replace] : items) {
    if (!text.empty()) text += W("\r\n");
    ((text += find) += W('|')) += replace;
  }
  return text;
}

SearchAndReplaceItems ParsePairDialog(WStringView text) {
  constexpr WStringView kPairTrim = W("\t\r\n\"");
  text = text.substr(0, kMaxPairDialogChars);
  SearchAndReplaceItems items;
  while (!text.empty()) {
    const WStringView line = text.substr(0, text.find(W('\n')));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const std::size_t bar = line.find(W('|'));
    const WStringView find = Trimmed(line.substr(0, bar), kPairTrim);
    const WStringView replace =
        bar == WStringView::npos ? WStringView() : Trimmed(line.substr(bar + 1), kPairTrim);
    if (!find.empty()) items.emplace_back(find, replace);
  }
  return items;
}

}  // namespace Velmora::SDK
