// Reference for MultiRename's names and states: takes rows and a set of rules, and computes what each row
// becomes.
#pragma once

#include <cwctype>
#include <optional>

#include "multirename/plain_replace.h"
#include "multirename/plain_template.h"
#include "platform/windows_api.h"

namespace PlainRules {

// The host's value of one property of a file.
struct Property {
  WString name;
  WString text;  // at most 255 characters
  std::uint64_t date = 0;
  std::int32_t count = 1;  // greater than 0 if there is a value
  bool fails = false;      // the host throws
};

struct Row {
  WString oldName;
  WString path;       // unique among the rows
  WString folderTag;  // at most 4095 characters
  bool isFolder = false;
  bool isSkipped = false;
  bool hidesPath = false;  // the host throws when the path is requested
  std::vector<Property> properties;

  WString newName;
  std::uint32_t state = 0;  // 0 is ready, 1 duplicate, 2 invalid name
};

struct Rules {
  WString filenameTemplate;
  WString extensionTemplate;
  WString startAt;
  WString stepBy;
  WString digits;
  std::uint32_t caseRule = 0;
  std::uint32_t searchFlags = 0;
  Pairs pairs;
};

// --- the case rules

inline void LowerAll(WString& text) {
  for (WCHAR& c : text) c = static_cast<WCHAR>(std::towlower(static_cast<std::wint_t>(c)));
}
inline void UpperAll(WString& text) {
  for (WCHAR& c : text) c = static_cast<WCHAR>(std::towupper(static_cast<std::wint_t>(c)));
}
inline WString Uppered(WString text) {
  UpperAll(text);
  return text;
}

inline void CapitalizeWords(WString& text) {
  LowerAll(text);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool begins = i == 0 || text[i - 1] == W(' ') || text[i - 1] == W('.') || text[i - 1] == W('_');
    if (begins) text[i] = Uppered(text.substr(i, 1))[0];
  }
}

inline void ChangeCase(std::uint32_t rule, WString& name, WString& extension) {
  if ((rule & 1) != 0) {
    LowerAll(name);
    LowerAll(extension);
  } else if ((rule & 2) != 0) {
    UpperAll(name);
    UpperAll(extension);
  } else if ((rule & 4) != 0) {
    LowerAll(name);
  } else if ((rule & 8) != 0) {
    UpperAll(name);
  } else if ((rule & 16) != 0) {
    LowerAll(extension);
  } else if ((rule & 32) != 0) {
    UpperAll(extension);
  } else if ((rule & 64) != 0) {
    CapitalizeWords(name);
  } else if ((rule & 128) != 0) {
    LowerAll(name);
    name = Uppered(name.substr(0, 1)) + name.substr(std::min<std::size_t>(1, name.size()));
  }
}

// --- properties

constexpr LCID kUsersLocale = 0x400;

inline WString LocaleText(DWORD item) {
  WCHAR text[128];
  const int count = GetLocaleInfoW(kUsersLocale, item, text, 128);
  return count > 0 ? WString(text) : WString();
}

// Formats a date by the two formats "date|time" and joins the results.
inline WString DateText(std::uint64_t date, const WString& format) {
  const std::size_t bar = std::min(format.find(W('|')), format.size());
  WString dateFormat = format.substr(0, bar);
  WString timeFormat = bar < format.size() ? format.substr(bar + 1) : WString();
  if (dateFormat.empty() && timeFormat.empty()) {
    dateFormat = LocaleText(31);
    timeFormat = LocaleText(4099);
  }
  const FILETIME fileTime{static_cast<DWORD>(date), static_cast<DWORD>(date >> 32)};
  SYSTEMTIME time;
  if (!FileTimeToSystemTime(&fileTime, &time)) return {};
  WString text;
  WCHAR part[1024];
  if (!dateFormat.empty() && GetDateFormatW(kUsersLocale, 0, &time, dateFormat.c_str(), part, 1024) > 0)
    text += part;
  if (!timeFormat.empty() && GetTimeFormatW(kUsersLocale, 0, &time, timeFormat.c_str(), part, 1024) > 0)
    text += part;
  return text;
}

inline WString PropertyValue(const Row& row, const Tag& tag) {
  if (row.hidesPath) return W("Error");
  for (const Property& property : row.properties) {
    if (property.name != tag.text) continue;
    if (property.fails) return W("Error");
    if (property.count <= 0) return {};
    WString text = property.text;
    if (text.empty() && property.date > 0) {
      text = DateText(property.date, tag.format);
    } else if (!text.empty() && !tag.format.empty() && (tag.format[0] == W('n') || tag.format[0] == W('N'))) {
      text = Padded(Decimal(text), Decimal(tag.format.substr(1)));
    }
    return tag.start > 0 && tag.length > 0 ? RangeOf(text, tag) : text;
  }
  return {};
}

// --- one pass over the rows

class Pass {
 public:
  Pass(const Rules& rules, const SYSTEMTIME& now)
      : rules_(rules),
        now_(now),
        filenameTags_(TagsOf(rules.filenameTemplate.substr(0, 1024))),
        extensionTags_(TagsOf(rules.extensionTemplate.substr(0, 1024))),
        counter_(Decimal(rules.startAt)),
        step_(Decimal(rules.stepBy)),
        digits_(static_cast<std::uint32_t>(Decimal(rules.digits))) {}

  SearchedLength searched;

  void Compute(Row& row) {
    if (row.isSkipped) return;
    const WString oldName = row.oldName.substr(row.oldName.rfind(W('\\')) + 1);
    const std::size_t dot = row.isFolder ? WString::npos : oldName.rfind(W('.'));
    const WString oldBase = oldName.substr(0, dot);
    const WString oldExtension = dot == WString::npos ? WString() : oldName.substr(dot + 1);

    WString name = ValueOf(filenameTags_, row, oldBase, oldExtension);
    WString extension = row.isFolder ? WString() : ValueOf(extensionTags_, row, oldBase, oldExtension);
    ChangeCase(rules_.caseRule, name, extension);
    if ((rules_.searchFlags & 0x3000000) != 0)
      name = Replaced(name, rules_.pairs, rules_.searchFlags, searched);
    if ((rules_.searchFlags & 0x5000000) != 0 && !extension.empty()) {
      extension = Replaced(extension, rules_.pairs, rules_.searchFlags, searched);
    }
    if (!extension.empty()) name += W(".") + extension;
    if (name.size() > kMaxPlainNameChars) name.resize(kMaxPlainNameChars);
    row.newName.clear();
    for (std::size_t i = 0; i < name.size(); ++i) {
      if (name.compare(i, 2, W("\r\n")) == 0) {
        ++i;
      } else {
        row.newName += name[i];
      }
    }
  }

 private:
  WString ValueOf(std::vector<Tag>& tags, const Row& row, const WString& base, const WString& extension) {
    WString text;
    for (Tag& tag : tags) text += ValueOf(tag, row, base, extension);
    return text.substr(0, kMaxPlainNameChars);
  }

  WString ValueOf(Tag& tag, const Row& row, const WString& base, const WString& extension) {
    switch (tag.letter) {
      case W('N'):
        return RangeOf(base, tag);
      case W('E'):
        return RangeOf(extension, tag);
      case W('F'):
        return tag.start == 0 ? row.folderTag : RangeOf(row.folderTag, tag).substr(0, 1023);
      case W('C'):
        return CounterValue(tag);
      case W('Y'):
        return tag.length == 2 && now_.wYear > 1000 ? Padded(now_.wYear, 0).substr(2) : Padded(now_.wYear, 0);
      case W('M'):
        return Padded(now_.wMonth, tag.length);
      case W('D'):
        return Padded(now_.wDay, tag.length);
      case W('h'):
        return Padded(now_.wHour, tag.length);
      case W('m'):
        return Padded(now_.wMinute, tag.length);
      case W('s'):
        return Padded(now_.wSecond, tag.length);
      case W('?'):
        return PropertyValue(row, tag);
      default:
        return tag.text;
    }
  }

  WString CounterValue(Tag& tag) {
    const bool isOwn = tag.start != 0 || tag.end != 0 || tag.length != 0;
    std::int32_t& next = isOwn ? tag.start : counter_;
    const WString text = Padded(next, isOwn ? std::int64_t{tag.length} : std::int64_t{digits_});
    next = Wrapped(std::int64_t{next} + (isOwn ? tag.end : step_));
    return text;
  }

  Rules rules_;
  SYSTEMTIME now_;
  std::vector<Tag> filenameTags_;
  std::vector<Tag> extensionTags_;
  std::int32_t counter_;
  std::int32_t step_;
  std::uint32_t digits_;
};

// --- conflicts

inline bool EqualInLower(const WString& lhs, const WString& rhs) {
  return lhs.size() == rhs.size() && MatchesAt(lhs, 0, rhs, false);
}

inline void MarkConflicts(const std::vector<Row*>& rows) {
  for (Row* row : rows) {
    row->state = row->newName.find_first_of(W("*|\\/:\"<>?")) == WString::npos ? 0 : 2;
  }
  for (std::size_t i = 1; i < rows.size(); ++i) {
    if (!EqualInLower(rows[i]->newName, rows[0]->newName)) continue;
    rows[i]->state = 1;
    rows[0]->state = 1;
  }
}

}  // namespace PlainRules
