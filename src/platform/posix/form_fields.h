// The usual kinds of fields of a dialog's form, for whoever answers dialogs. Each refers to a member of the
// form, which must live as long as the field.
#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <utility>

#include "platform/posix/user_interface.h"

namespace Platform {

inline FormField TextField(const char* name, WString& member) {
  return {name, [&member] { return member; },
          [&member](const WString& text) {
            member = text;
            return true;
          }};
}

// A text of at most so many characters.
inline FormField LimitedField(const char* name, WString& member, std::size_t characters) {
  FormField field = TextField(name, member);
  field.set = [characters, set = field.set](const WString& text) {
    return text.size() <= characters && set(text);
  };
  field.takes = "at most " + std::to_string(characters) + (characters == 1 ? " character" : " characters");
  return field;
}

// A number of at most so many digits; the field may be empty.
inline FormField NumberField(const char* name, WString& member, std::size_t digits) {
  FormField field = TextField(name, member);
  field.set = [digits, set = field.set](const WString& text) {
    const bool isNumber =
        std::ranges::all_of(text, [](WCHAR unit) { return unit >= W('0') && unit <= W('9'); });
    return isNumber && text.size() <= digits && set(text);
  };
  field.takes = "a number from 0 to " + std::string(digits, '9');
  return field;
}

// A text of which the first characters are kept, so many at most.
inline FormField CutField(const char* name, WString& member, std::size_t characters) {
  FormField field = LimitedField(name, member, characters);
  field.set = [characters, set = field.set](const WString& text) { return set(text.substr(0, characters)); };
  return field;
}

// A text that is shown and cannot be changed.
inline FormField ShownField(const char* name, std::function<WString()> get) {
  return {name, std::move(get), [](const WString&) { return false; }, {}, [] { return false; }};
}

// A check box: 1 and 0.
inline FormField FlagField(const char* name, bool& member) {
  return {name,
          [&member] { return WString(member ? W("1") : W("0")); },
          [&member](const WString& text) {
            if (text != W("0") && text != W("1")) return false;
            member = text == W("1");
            return true;
          },
          {W("0"), W("1")}};
}

// A choice by its word. What has no word is shown as an empty text.
struct ChoiceWord {
  int choice;
  const WCHAR* word;
};
inline FormField ChoiceField(const char* name, int& member, std::span<const ChoiceWord> words) {
  const auto get = [&member, words] {
    for (const ChoiceWord& row : words) {
      if (row.choice == member) return WString(row.word);
    }
    return WString();
  };
  const auto set = [&member, words](const WString& text) {
    for (const ChoiceWord& row : words) {
      if (text != row.word) continue;
      member = row.choice;
      return true;
    }
    return false;
  };
  std::vector<WString> all;
  for (const ChoiceWord& row : words) all.emplace_back(row.word);
  return {name, get, set, std::move(all)};
}

// A field that takes values while it is enabled, as its control in the window would.
template <typename Form>
struct RuledField {
  FormField field;
  bool (*isEnabled)(const Form& form);
};
template <typename Form>
bool Always(const Form&) {
  return true;
}
template <typename Form>
bool Never(const Form&) {
  return false;
}

// The fields of a form, each followed by what the dialog does when it has changed: `follow(form, before)`.
template <typename Form>
std::vector<FormField> FollowedFields(Form& form, std::span<const RuledField<Form>> rows,
                                      void (*follow)(Form& form, const Form& before)) {
  std::vector<FormField> fields;
  for (const RuledField<Form>& row : rows) {
    const auto set = [&form, follow, isEnabled = row.isEnabled,
                      setField = row.field.set](const WString& text) {
      if (!isEnabled(form)) return false;
      const Form before = form;
      if (!setField(text)) return false;
      follow(form, before);
      return true;
    };
    fields.push_back({row.field.name, row.field.get, set, row.field.words,
                      [&form, isEnabled = row.isEnabled] { return isEnabled(form); }, row.field.takes});
  }
  return fields;
}

}  // namespace Platform
