// Computes the values of tags.

#include "frame/host/host_files.h"
#include "multirename/engine/multi_rename_engine.h"
#include "multirename/rules/padded_number.h"
#include "multirename/rules/wrapping.h"

namespace Velmora::SDK {

namespace {

// A part of a text from the host has at most this many characters, including a terminator (C-610).
constexpr std::size_t kPartSize = 1024;

WStringView PartOf(WStringView value, const RenameTag& range) {
  return SubstringOf(value, range).substr(0, kPartSize - 1);
}

void AppendFolder(MultiRenameEngine& engine, const RenameTag& tag, WString& text) {
  if (!engine.currentItem || !engine.currentItem->hostItem) return;
  constexpr u32 kSize = 4096;
  WCHAR buffer[kSize];
  buffer[0] = WCHAR();
  engine.currentItem->hostItem->GetTagText(buffer, kSize);
  buffer[kSize - 1] = WCHAR();
  text += tag.start == 0 ? WStringView(buffer) : PartOf(buffer, tag);
}

// If the length is 2, drops the first two digits of the year; any other length has no effect (C-605).
void AppendYear(WString& text, u32 year, s32 length) {
  const std::size_t begin = text.size();
  AppendPadded(text, static_cast<s32>(year), 0);
  if (length == 2 && year > 1000) text.erase(begin, 2);
}

// A counter with parameters has its own count; all others share the engine's (C-607).
void AppendCounter(MultiRenameEngine& engine, RenameTag& tag, WString& text) {
  if (tag.start != 0 || tag.end != 0 || tag.length != 0) {
    AppendPadded(text, tag.start, tag.length);
    tag.start = WrappingSum(tag.start, tag.end);
  } else {
    AppendPadded(text, static_cast<s32>(engine.counterNext), engine.counterDigits);
    engine.counterNext += engine.counterStep;
  }
}

}  // namespace

void AppendTagValue(MultiRenameEngine& engine, RenameTag& tag, WString& text) {
  switch (tag.kind) {
    case TagText:
      text += tag.text;
      break;
    case TagName:
      text += SubstringOf(engine.currentBase, tag);
      break;
    case TagExtension:
      text += SubstringOf(engine.currentExtension, tag);
      break;
    case TagFolder:
      AppendFolder(engine, tag, text);
      break;
    case TagCounter:
      AppendCounter(engine, tag, text);
      break;
    case TagYear:
      AppendYear(text, engine.now.wYear, tag.length);
      break;
    case TagMonth:
      AppendPadded(text, engine.now.wMonth, tag.length);
      break;
    case TagDay:
      AppendPadded(text, engine.now.wDay, tag.length);
      break;
    case TagHour:
      AppendPadded(text, engine.now.wHour, tag.length);
      break;
    case TagMinute:
      AppendPadded(text, engine.now.wMinute, tag.length);
      break;
    case TagSecond:
      AppendPadded(text, engine.now.wSecond, tag.length);
      break;
    case TagProperty: {
      const std::optional<WString> value = PropertyText(engine, tag);
      if (!value)
        text += W("Error");
      else
        text += tag.start > 0 && tag.length > 0 ? PartOf(*value, tag) : WStringView(*value);
      break;
    }
    default:
      break;
  }
}

}  // namespace Velmora::SDK
