// Replies to questions with the answers of the command line; without one, asks on the terminal; without a
// terminal, cancels.
//
// On the terminal the user types the name of a button, in any letter case, or a unique beginning of it.
//
// Every question is reported with its answer. An answer that does not fit its question is a mistake of the
// caller: it is reported on standard error, the question is cancelled, and the run ends as a bad call.
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
  std::function<bool(const WString&)> set;    // returns false if the field does not accept the value
  std::vector<WString> words = {};            // the accepted values; empty if they cannot be listed
  std::function<bool()> isEnabled = nullptr;  // if null, it always is
  std::string takes = {};                     // describes the accepted texts; empty for any text
};

// A value for a field, from `--form F=V`: for the next dialog or, if the field has the form DIALOG.F, for the
// next dialog of that class.
struct FormValue {
  std::string field;
  WString value;
};

class Questions {
 public:
  // Reads one line of user input as UTF-8; returns std::nullopt at the end of input. Null if there is no
  // terminal.
  using ReadLine = std::function<std::optional<std::string>()>;

  Questions(Reporter& reporter, Output& output, Answers answers, std::vector<FormValue> form,
            ReadLine readLine)
      : reporter_(reporter),
        output_(output),
        answers_(std::move(answers)),
        form_(std::move(form)),
        readLine_(std::move(readLine)) {}

  // Returns the number of the button, as MessageBoxW does.
  int AskBox(const WString& title, const WString& text, std::uint32_t style);

  // Returns one line of text; std::nullopt if the question was cancelled. `ok` selects the default.
  std::optional<WString> AskText(const WString& title, const WString& prompt, const WString& defaultText,
                                 const WString& hint);

  // Returns the index of a row; std::nullopt if the question was cancelled. `ok` selects the row `selected`.
  std::optional<std::size_t> AskChoice(const WString& title, const WString& prompt,
                                       const std::vector<WString>& rows, std::ptrdiff_t selected);

  // Sets the fields from the form's values and returns whether OK ended the dialog. While `isOkEnabled`
  // returns false, OK cannot end it: as an answer it does not fit, and a user at the terminal is asked again.
  bool AskDialog(const std::string& dialog, const WString& title, const WString& text,
                 const std::vector<DialogField>& fields, const std::function<bool()>& isOkEnabled = {});

  // Removes and returns the next answer of the command line, for a real box. The caller reports the question.
  std::optional<Answer> TakeAnswer();
  bool HasTerminal() const { return readLine_ != nullptr; }

  // Reports that a question was cancelled because there is neither an answer nor a terminal, and how to
  // answer it.
  void NoteUnanswerable(const WString& title, const std::string& answers);

  // Reports a mistake of the caller and makes the run end as a bad call.
  void Refuse(const std::string& what);
  bool HasRefused() const { return refused_; }

  std::size_t AnswersLeft() const { return answers_.size(); }
  std::size_t FormValuesLeft() const { return form_.size(); }
  // Returns the fields of --form that no dialog has used, as they were given: "D.find, D.replace".
  std::string FormFieldsLeft() const;
  // Refuses those of them whose dialog was not shown and looks like a mistyped name of one that was.
  void RefuseMistypedDialogs();

 private:
  // The reason why a field was not set, and the parts of the message about it.
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
  std::set<std::string> dialogs_;  // the dialogs that were shown
  ReadLine readLine_;
  bool refused_ = false;
};

// Returns the fields of a form with their values: "find=, replace=, part=1".
std::string FieldList(const std::vector<DialogField>& fields);

}  // namespace QxHost
