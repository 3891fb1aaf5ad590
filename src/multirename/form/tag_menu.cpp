#include "multirename/form/tag_menu.h"

#include "frame/services/language_text.h"
#include "multirename/form/rename_texts.h"

namespace Velmora::SDK {

namespace {

struct TagMenuRow {
  int number;  // 0: a separator
  const WCHAR* tag;
  TextId text;
};

constexpr TagMenuRow kTagMenuSeparator = {0, nullptr, 0};

constexpr TagMenuRow kTagMenu[] = {
    {1, W("[N]"), kRenameTextTagName},
    {2, W("[E]"), kRenameTextTagExtension},
    {3, W("[C]"), kRenameTextTagCounter},
    {11, W("[F]"), kRenameTextTagFolder},
    kTagMenuSeparator,
    {4, W("[Y]"), kRenameTextTagYear},
    {5, W("[M]"), kRenameTextTagMonth},
    {6, W("[D]"), kRenameTextTagDay},
    kTagMenuSeparator,
    {7, W("[h]"), kRenameTextTagHour},
    {8, W("[m]"), kRenameTextTagMinute},
    {9, W("[s]"), kRenameTextTagSecond},
    kTagMenuSeparator,
    {kPropertyTagLine, nullptr, kRenameTextTagProperty},
};

}  // namespace

MenuLines TagMenuLines(IHostApp& host) {
  MenuLines lines;
  for (const TagMenuRow& row : kTagMenu)
    lines.push_back({row.number, row.number == 0 ? WString() : LanguageText(host, row.text)});
  return lines;
}

const WCHAR* TagOfLine(int number) {
  for (const TagMenuRow& row : kTagMenu) {
    if (row.number == number && number != 0) return row.tag;
  }
  return nullptr;
}

}  // namespace Velmora::SDK
