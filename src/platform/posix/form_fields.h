// Makes the usual kinds of FormField for the members of a dialog's form, for handlers that edit forms
// (platform/posix/user_interface.h). Each field refers to a member of the form, which must outlive it.
#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <utility>

#include "platform/posix/user_interface.h"

namespace Platform {

// Returns a field for any text.
inline FormField TextField(const char* name, WString& member) {
  return {name, [&member] { return member; },
          [&member](const WString& text) {
            member = text;
            return true;
          }};
}

// Returns a field for a text. It rejects one of more than `characters` characters.
inline FormField LimitedField(const char* name, WString& member, std::size_t characters) {
  FormField field = TextField(name, member);
  field.set = [characters, set = field.set](const WString& text) {
    return text.size() <= characters && set(text);
  };
  field.takes = "at most " + std::to_string(characters) + (characters == 1 ? " character" : " characters");
  return field;
}

// Returns a field for a decimal number. It accepts at most `digits` digits, and the empty text.
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

// Returns a field for a text. It truncates a longer one to its first `characters` characters.
inline FormField CutField(const char* name, WString& member, std::size_t characters) {
  FormField field = LimitedField(name, member, characters);
  field.set = [characters, set = field.set](const WString& text) { return set(text.substr(0, characters)); };
  return field;
}

// Returns a read-only field.
inline FormField ShownField(const char* name, std::function<WString()> get) {
  return {name, std::move(get), [](const WString&) { return false; }, {}, [] { return false; }};
}

// Returns a field for a check box, with the values 1 and 0.
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

// One value of a choice and the word that selects it. A value without a word is shown as the empty text.
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

// A field that accepts values only while it is enabled, as its control in the window does.
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

// Returns the fields of a form. After a field has changed, it calls `follow(form, before)`, which does what
// the dialog does on such a change; `before` is the form before the change.
template <typename Form>
std::vector<FormField> UpdatedFields(Form& form, std::span<const RuledField<Form>> rows,
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
