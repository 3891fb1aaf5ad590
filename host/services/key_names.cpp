#include "host/services/key_names.h"

namespace QxHost {
namespace {

struct Key {
  unsigned key;
  const WCHAR* name;
};

constexpr Key kKeys[] = {
    {0x08, W("Backspace")}, {0x09, W("Tab")},       {0x0D, W("Enter")}, {0x1B, W("Esc")},  {0x20, W("Space")},
    {0x21, W("Page Up")},   {0x22, W("Page Down")}, {0x23, W("End")},   {0x24, W("Home")}, {0x25, W("Left")},
    {0x26, W("Up")},        {0x27, W("Right")},     {0x28, W("Down")},  {0x2D, W("Ins")},  {0x2E, W("Del")},
};

constexpr unsigned kF1 = 0x70;
constexpr unsigned kF12 = 0x7B;

WString NameOfKey(unsigned key) {
  if ((key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z')) return WString(1, static_cast<WCHAR>(key));
  if (key >= kF1 && key <= kF12) return FromUtf8("F" + std::to_string(key - kF1 + 1));
  for (const Key& row : kKeys) {
    if (row.key == key) return row.name;
  }
  return {};
}

}  // namespace

WString KeyName(unsigned key, unsigned with) {
  const WString name = NameOfKey(key);
  return (with & kWithAlt) != 0 && !name.empty() ? W("Alt+") + name : name;
}

}  // namespace QxHost
