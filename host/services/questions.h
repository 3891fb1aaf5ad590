// Asking: by the answers of the command line, else on the terminal, else as cancelled.
//
// A person may type a button's name in any case, or a beginning of it that no other button has.
//
// Every question is reported with its answer. An answer that does not fit its question is the caller's
// mistake: it is told on standard error, the question counts as cancelled, and the run ends as a bad call.
#pragma once

#include <functional>
#include <optional>
#include <set>
#include <vector>

#include "host/output/reporter.h"
#include "host/services/answers.h"
#include "host/services/box_buttons.h"

namespace QxHost {

// A field of a dialog's form; see platform/posix/user_interface.h.
struct DialogField {
  std::string name;
  std::function<WString()> get;
  std::function<bool(const WString&)> set;    // false: no value of this field
  std::vector<WString> words = {};            // the values that it takes; empty if they are no list
  std::function<bool()> isEnabled = nullptr;  // null: it always is
  std::string takes = {};                     // what it takes if that is neither a list nor any text
};

// A value for a field, as `--form F=V` gives it: for the next dialog, or, with a field of the form DIALOG.F,
// for the next dialog of that class.
struct FormValue {
  std::string field;
  WString value;
};

class Questions {
 public:
  // Reads one line of a person, as UTF-8; nothing at the end of input. Null where there is no terminal.
  using ReadLine = std::function<std::optional<std::string>()>;

  Questions(Reporter& reporter, Output& output, Answers answers, std::vector<FormValue> form,
            ReadLine readLine)
      : reporter_(reporter),
        output_(output),
        answers_(std::move(answers)),
        form_(std::move(form)),
        readLine_(std::move(readLine)) {}

  // Answers the number of the button, as MessageBoxW.
  int AskBox(const WString& title, const WString& text, std::uint32_t style);

  // One line of text; nothing if it was cancelled. `ok` takes the default.
  std::optional<WString> AskText(const WString& title, const WString& prompt, const WString& defaultText,
                                 const WString& hint);

  // The index of a row; nothing if it was cancelled. `ok` takes the row `selected`.
  std::optional<std::size_t> AskChoice(const WString& title, const WString& prompt,
                                       const std::vector<WString>& rows, std::ptrdiff_t selected);

  // Fills the fields from the form's values, and returns whether OK ended the dialog. While `isOkEnabled`
  // returns false OK cannot end it: as an answer it does not fit, and a person is asked again.
  bool AskDialog(const std::string& dialog, const WString& title, const WString& text,
                 const std::vector<DialogField>& fields, const std::function<bool()>& isOkEnabled = {});

  // The next answer of the command line, for a real box; the caller reports the question.
  std::optional<Answer> TakeAnswer();
  bool HasTerminal() const { return readLine_ != nullptr; }

  // Tells that a question was cancelled because there is neither an answer nor a person, and how to answer
  // it.
  void NoteNobodyToAsk(const WString& title, const std::string& answers);

  // Tells the caller's mistake and makes the run a bad call.
  void Refuse(const std::string& what);
  bool HasRefused() const { return refused_; }

  std::size_t AnswersLeft() const { return answers_.size(); }
  std::size_t FormValuesLeft() const { return form_.size(); }
  // The fields of --form that no dialog has taken, as they were given: "D.find, D.replace".
  std::string FormFieldsLeft() const;
  // Refuses those of them that name a dialog which did not come, but nearly one that did.
  void RefuseMistypedDialogs();

 private:
  // Why a field has not got its value, and the end of a message about it.
  struct FieldMistake {
    std::string text;
    std::string reason;
    std::string proposal;
  };

  std::optional<std::string> ReadAnswer(const std::string& prompt);
  std::vector<FormValue> TakeFormValues(const std::string& dialog);
  bool FillForm(const std::string& dialog, const std::vector<DialogField>& fields);
  static FieldMistake MistakeOfValue(const DialogField& field, const std::string& value);
  std::optional<FieldMistake> SetField(const std::vector<DialogField>& fields, const std::string& name,
                                       const WString& value);
  bool EditDialog(const WString& title, const WString& text, const std::vector<DialogField>& fields,
                  const std::function<bool()>& isOkEnabled);

  Reporter& reporter_;
  Output& output_;
  Answers answers_;
  std::vector<FormValue> form_;
  std::set<std::string> dialogs_;  // those that came
  ReadLine readLine_;
  bool refused_ = false;
};

// The list of fields that a form has, with their values: "find=, replace=, part=1".
std::string FieldList(const std::vector<DialogField>& fields);

}  // namespace QxHost
