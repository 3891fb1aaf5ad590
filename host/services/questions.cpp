#include "host/services/questions.h"

#include <algorithm>
#include <utility>

#include "host/output/nearest_name.h"
#include "host/system/paths.h"
#include "platform/ascii_case.h"
#include "platform/windows_api.h"

namespace QxHost {
namespace {

std::string Heading(const WString& title, const WString& text) {
  std::string heading = ToUtf8(title);
  if (!text.empty()) heading += heading.empty() ? ToUtf8(text) : "\n" + ToUtf8(text);
  return heading + "\n";
}

// Returns the button whose name begins with the typed text, if it is the only one. So an empty line presses
// the button of a box with one button.
std::optional<BoxButton> ButtonOfLine(std::span<const BoxButton> buttons, std::string_view line) {
  const std::string lowered = AsciiLower(line);
  std::optional<BoxButton> found;
  for (const BoxButton& button : buttons) {
    const std::string_view beginning = std::string_view(button.name).substr(0, line.size());
    if (beginning != lowered) continue;
    if (found) return std::nullopt;
    found = button;
  }
  return found;
}

// The most mistakes in a mistyped name of a dialog. The host knows only the names of dialogs that were shown,
// and the names of two dialogs may be more similar than a name and its mistyped form.
constexpr std::size_t kMaxMistakesInDialog = 2;

// Appends a proposal, which begins with a full stop. Removes a full stop at the end of the text, where the
// value of a field may have one.
std::string WithProposal(std::string text, const std::string& proposal) {
  if (text.ends_with('.') && !proposal.empty()) text.pop_back();
  return text + proposal;
}

bool MayEndWithOk(const std::function<bool()>& isOkEnabled) { return !isOkEnabled || isOkEnabled(); }

}  // namespace

std::string FieldList(const std::vector<DialogField>& fields) {
  std::string list;
  for (const DialogField& field : fields) {
    if (!list.empty()) list += ", ";
    list += field.name + "=" + ToUtf8(field.get());
  }
  return list;
}

void Questions::Refuse(const std::string& what) {
  refused_ = true;
  output_.Problem(what);
}

void Questions::NoteUnanswerable(const WString& title, const std::string& answers) {
  output_.Problem("note: question cancelled: there is no terminal; give --answer for \"" + ToUtf8(title) +
                  "\": " + answers);
}

std::optional<Answer> Questions::TakeAnswer() {
  if (answers_.empty()) return std::nullopt;
  Answer answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

std::optional<std::string> Questions::ReadAnswer(const std::string& prompt) {
  output_.Prompt(prompt);
  std::optional<std::string> line = readLine_();
  if (!line) output_.Prompt("\n");  // so that further output begins on a new line
  return line;
}

int Questions::AskBox(const WString& title, const WString& text, std::uint32_t style) {
  const std::span<const BoxButton> buttons = ButtonsOfStyle(style);
  BoxButton pressed = HarmlessButton(buttons);
  if (const std::optional<Answer> answer = TakeAnswer()) {
    if (const std::optional<BoxButton> button = ButtonOfAnswer(buttons, *answer)) {
      pressed = *button;
    } else if (answer->kind != Answer::kCancel) {
      Refuse("\"" + ToUtf8(title) + "\" cannot be answered with " + AnswerText(*answer) +
             "; it has the buttons " + ButtonNames(buttons));
    }
  } else if (HasTerminal()) {
    std::string prompt = Heading(title, text) + "(" + ButtonNames(buttons) + ") ";
    while (const std::optional<std::string> line = ReadAnswer(prompt)) {
      if (const std::optional<BoxButton> named = ButtonOfLine(buttons, *line)) {
        pressed = *named;
        break;
      }
      prompt = "Please type one of: " + ButtonNames(buttons) + " ";
    }
  } else if (buttons.size() > 1) {
    NoteUnanswerable(title, ButtonNames(buttons));
  }
  reporter_.Question({QuestionEvent::kBox, title, text, style, pressed.name, {}, {}});
  return pressed.number;
}

std::optional<WString> Questions::AskText(const WString& title, const WString& prompt,
                                          const WString& defaultText, const WString& hint) {
  std::optional<WString> result;
  if (const std::optional<Answer> answer = TakeAnswer()) {
    if (answer->kind == Answer::kText) {
      result = answer->text;
    } else if (answer->kind == Answer::kOk) {
      result = defaultText;
    } else if (answer->kind != Answer::kCancel) {
      Refuse("\"" + ToUtf8(title) + "\" asks for a text and cannot be answered with " + AnswerText(*answer) +
             "; it takes text=TEXT, ok or cancel");
    }
  } else if (HasTerminal()) {
    std::string line = Heading(title, prompt);
    if (!hint.empty()) line += ToUtf8(hint) + "\n";
    line += defaultText.empty() ? "(an empty line cancels) " : "[" + ToUtf8(defaultText) + "] ";
    const std::optional<std::string> typed = ReadAnswer(line + "> ");
    // An empty line accepts the default; without a default it cancels.
    const bool takesLine = typed && !(typed->empty() && defaultText.empty());
    if (takesLine) result = typed->empty() ? defaultText : PathFromUtf8(*typed);
  } else {
    NoteUnanswerable(title,
                     defaultText.empty() ? "text=TEXT" : "text=TEXT, or ok for " + ToUtf8(defaultText));
  }
  const Answer given = result ? Answer{Answer::kText, *result} : Answer{Answer::kCancel, {}};
  reporter_.Question({QuestionEvent::kText, title, prompt, 0, AnswerText(given), defaultText, hint});
  return result;
}

std::optional<std::size_t> Questions::AskChoice(const WString& title, const WString& prompt,
                                                const std::vector<WString>& rows, std::ptrdiff_t selected) {
  const auto indexOf = [&rows](const WString& text) -> std::optional<std::size_t> {
    const auto found = std::find(rows.begin(), rows.end(), text);
    if (found == rows.end()) return std::nullopt;
    return static_cast<std::size_t>(found - rows.begin());
  };
  std::optional<std::size_t> preselected;
  if (selected >= 0 && static_cast<std::size_t>(selected) < rows.size()) {
    preselected = static_cast<std::size_t>(selected);
  }
  std::string rowList;
  for (const WString& row : rows) rowList += "\n  " + ToUtf8(row);

  std::optional<std::size_t> result;
  if (const std::optional<Answer> answer = TakeAnswer()) {
    if (answer->kind == Answer::kChoice) result = indexOf(answer->text);
    if (answer->kind == Answer::kOk) result = preselected;
    if (!result && answer->kind != Answer::kCancel) {
      Refuse("\"" + ToUtf8(title) + "\" asks for a choice and cannot be answered with " +
             AnswerText(*answer) + "; it takes ok, cancel, or choice= and one of the rows" + rowList);
    }
  } else if (HasTerminal()) {
    std::string line = Heading(title, prompt) + rowList.substr(rowList.empty() ? 0 : 1) + "\n";
    if (preselected) line += "[" + ToUtf8(rows[*preselected]) + "] ";
    line += "> ";
    while (const std::optional<std::string> typed = ReadAnswer(line)) {
      result = typed->empty() ? preselected : indexOf(FromUtf8(*typed));
      if (result) break;
      line = "Please type one of the rows: ";
    }
  } else {
    NoteUnanswerable(title, "choice= and one of the rows" + rowList);
  }
  const Answer given = result ? Answer{Answer::kChoice, rows[*result]} : Answer{Answer::kCancel, {}};
  reporter_.Question({QuestionEvent::kChoice, title, prompt, 0, AnswerText(given), {}, {}});
  return result;
}

Questions::FieldMistake Questions::MistakeOfValue(const DialogField& field, const std::string& value) {
  FieldMistake mistake{"the field " + field.name + " cannot be " + value, {}, {}};
  if (field.isEnabled && !field.isEnabled()) {
    mistake.reason = ": it is disabled";
    return mistake;
  }
  std::vector<std::string> words;
  for (const WString& word : field.words) words.push_back(ToUtf8(word));
  for (const std::string& word : words)
    mistake.reason += (mistake.reason.empty() ? ": it takes " : ", ") + word;
  if (!field.takes.empty()) mistake.reason = ": it takes " + field.takes;
  const std::vector<std::string_view> views(words.begin(), words.end());
  mistake.proposal = DidYouMean(value, views);
  return mistake;
}

std::optional<Questions::FieldMistake> Questions::SetField(const std::vector<DialogField>& fields,
                                                           const std::string& name, const WString& value) {
  const auto field = std::ranges::find(fields, name, &DialogField::name);
  if (field == fields.end()) {
    std::vector<std::string_view> names;
    for (const DialogField& candidate : fields) names.push_back(candidate.name);
    return FieldMistake{"there is no field " + name, {}, DidYouMean(name, names)};
  }
  if (!field->set(value)) return MistakeOfValue(*field, ToUtf8(value));
  const WString kept = field->get();
  if (!field->takes.empty() && kept != value) {
    output_.Problem("note: the field " + name + " is " + ToUtf8(kept) + " and not " + ToUtf8(value) +
                    ": it takes " + field->takes);
  }
  return std::nullopt;
}

// Removes and returns the values for this dialog. If a field is given again with the dialog's name, its
// values from there on are for the next dialog of that name.
std::vector<FormValue> Questions::TakeFormValues(const std::string& dialog) {
  std::vector<FormValue> taken;
  std::set<std::string> named;
  bool isNextOne = false;
  for (FormValue& row : std::exchange(form_, {})) {
    const std::size_t dot = row.field.find('.');
    if (dot == std::string::npos) {
      taken.push_back(std::move(row));
      continue;
    }
    const std::string field = row.field.substr(dot + 1);
    const bool isOfName = row.field.substr(0, dot) == dialog;
    if (isOfName && !named.insert(field).second) isNextOne = true;
    if (isOfName && !isNextOne) {
      taken.push_back({field, std::move(row.value)});
    } else {
      form_.push_back(std::move(row));
    }
  }
  return taken;
}

std::string Questions::FormFieldsLeft() const {
  std::string list;
  for (const FormValue& row : form_) list += (list.empty() ? "" : ", ") + row.field;
  return list;
}

void Questions::RefuseMistypedDialogs() {
  const std::vector<std::string_view> names(dialogs_.begin(), dialogs_.end());
  for (const FormValue& row : form_) {
    const std::size_t dot = row.field.find('.');
    if (dot == std::string::npos) continue;
    const std::string dialog = row.field.substr(0, dot);
    const std::string_view nearest = NearestName(dialog, names, kMaxMistakesInDialog);
    if (nearest.empty() || nearest == dialog) continue;
    Refuse("--form " + row.field + ": no dialog " + dialog + " came. Did you mean " + std::string(nearest) +
           row.field.substr(dot) + "?");
  }
}

bool Questions::FillForm(const std::string& dialog, const std::vector<DialogField>& fields) {
  for (const FormValue& row : TakeFormValues(dialog)) {
    const std::optional<FieldMistake> mistake = SetField(fields, row.field, row.value);
    if (!mistake) continue;
    Refuse(WithProposal(mistake->text + " in the dialog " + dialog + mistake->reason + "; its fields are " +
                            FieldList(fields),
                        mistake->proposal));
    return false;
  }
  return true;
}

bool Questions::EditDialog(const WString& title, const WString& text, const std::vector<DialogField>& fields,
                           const std::function<bool()>& isOkEnabled) {
  std::string prompt = Heading(title, text);
  for (;;) {
    for (const DialogField& field : fields) prompt += "  " + field.name + "=" + ToUtf8(field.get()) + "\n";
    const std::optional<std::string> line = ReadAnswer(prompt + "(FIELD=VALUE, ok, cancel) ");
    if (!line) return false;
    if (const std::optional<BoxButton> button = ButtonOfLine(ButtonsOfStyle(MB_OKCANCEL), *line)) {
      if (button->number != IDOK) return false;
      if (MayEndWithOk(isOkEnabled)) return true;
      prompt = "OK is disabled\n";
      continue;
    }
    prompt.clear();
    const std::size_t equals = line->find('=');
    if (equals == std::string::npos) {
      prompt = "a value is given as FIELD=VALUE\n";
      continue;
    }
    const std::optional<FieldMistake> mistake =
        SetField(fields, line->substr(0, equals), PathFromUtf8(line->substr(equals + 1)));
    if (mistake) prompt = mistake->text + mistake->reason + mistake->proposal + "\n";
  }
}

bool Questions::AskDialog(const std::string& dialog, const WString& title, const WString& text,
                          const std::vector<DialogField>& fields, const std::function<bool()>& isOkEnabled) {
  dialogs_.insert(dialog);
  bool accepted = false;
  const bool filled = FillForm(dialog, fields);
  if (const std::optional<Answer> answer = TakeAnswer()) {
    accepted = answer->kind == Answer::kOk;
    if (!accepted && answer->kind != Answer::kCancel) {
      Refuse("the dialog " + dialog + " cannot be answered with " + AnswerText(*answer) +
             "; it takes ok or cancel");
    }
    if (accepted && filled && !MayEndWithOk(isOkEnabled)) {
      accepted = false;
      Refuse("the dialog " + dialog + " cannot be answered with ok, which is disabled; its fields are " +
             FieldList(fields));
    }
  } else if (filled && HasTerminal()) {
    accepted = EditDialog(title, text, fields, isOkEnabled);
  } else if (filled) {
    NoteUnanswerable(title, "ok, with --form FIELD=VALUE for what is to be changed");
  }
  accepted = accepted && filled;
  reporter_.Question({QuestionEvent::kDialog, title, text, 0, accepted ? "ok" : "cancel", {}, {}});
  return accepted;
}

}  // namespace QxHost
