// Binds the controls of a dialog to the members of its form by tables with one row for each control.
#pragma once

#include <span>
#include <type_traits>
#include <variant>

#include "ui/controls.h"

namespace Ui {

// One member of a form and the control that shows it. The type of the member determines how: a WString is the
// text of an edit control or of the edit field of a combo box, a bool the state of a check box, an int the
// item data of the selected row of a combo box.
template <typename Form>
struct Field {
  int control;
  std::variant<WString Form::*, bool Form::*, int Form::*> member;
};

// The condition under which a control is enabled.
template <typename Form>
struct EnableRule {
  int control;
  bool (*enabled)(const Form& form);
};

inline void LoadValue(HWND control, const WString& value) { SetText(control, value); }
inline void LoadValue(HWND control, bool value) {
  SendMessageW(control, BM_SETCHECK, value ? BST_CHECKED : BST_UNCHECKED, 0);
}
inline void LoadValue(HWND control, int value) { SelectData(control, value); }

inline void ReadValue(HWND control, WString& value) { value = GetText(control); }
inline void ReadValue(HWND control, bool& value) {
  value = SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
}
inline void ReadValue(HWND control, int& value) { value = SelectedData(control); }

// Sets the controls from the members. Fill the lists of combo boxes first.
template <typename Form>
void LoadFields(HWND dialog, std::type_identity_t<std::span<const Field<Form>>> fields, const Form& form) {
  for (const Field<Form>& field : fields) {
    const HWND control = GetDlgItem(dialog, field.control);
    std::visit([&](auto member) { LoadValue(control, form.*member); }, field.member);
  }
}

// Sets the members from the controls.
template <typename Form>
void ReadFields(HWND dialog, std::type_identity_t<std::span<const Field<Form>>> fields, Form& form) {
  for (const Field<Form>& field : fields) {
    const HWND control = GetDlgItem(dialog, field.control);
    std::visit([&](auto member) { ReadValue(control, form.*member); }, field.member);
  }
}

template <typename Form>
void ApplyRules(HWND dialog, std::type_identity_t<std::span<const EnableRule<Form>>> rules,
                const Form& form) {
  for (const EnableRule<Form>& rule : rules) EnableControl(dialog, rule.control, rule.enabled(form));
}

}  // namespace Ui
