// Runs find and replace by the product and by the reference, and records the outcomes.
#pragma once

#include <cstring>
#include <ostream>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/data_reader.h"
#include "data/data_writer.h"
#include "findreplace/engine/modes.h"
#include "findreplace/engine/replace_pass.h"
#include "findreplace/engine/text_document_loader.h"
#include "findreplace/plain_engine.h"

template <typename CharT>
struct Trial {
  std::string bytes;
  std::size_t blockBytes = 32768;
  std::basic_string<CharT> find;
  std::basic_string<CharT> replace;
  std::uint32_t flags = 0;
  bool isPass = false;  // one pass with the whole find text, which is not empty, in place of a mode
  bool asks = false;
  std::vector<QXFindAndReplace::ConfirmResult> answers;  // then Skip for all others
};

template <typename CharT>
struct TrialOutcome {
  PlainEngine::Failure failure;  // code 0 for none
  std::string bytes;             // empty after a failure
  std::uint32_t changes = 0;
  std::vector<PlainEngine::Question<CharT>> questions;
  friend bool operator==(const TrialOutcome&, const TrialOutcome&) = default;
};

template <typename Text>
std::string Numbered(const Text& text) {
  std::string result = "\"";
  for (const auto character : text) {
    const auto unit = static_cast<unsigned>(character) & (sizeof(character) == 1 ? 0xFF : 0xFFFF);
    if (unit >= 0x20 && unit < 0x7F) {
      result += static_cast<char>(unit);
    } else {
      result += "<" + std::to_string(unit) + ">";
    }
  }
  return result + "\"";
}

template <typename CharT>
std::string Described(const Trial<CharT>& trial) {
  return Numbered(trial.bytes) + " in blocks of " + std::to_string(trial.blockBytes) + ", find " +
         Numbered(trial.find) + ", replace " + Numbered(trial.replace) + ", flags " +
         std::to_string(trial.flags);
}

template <typename CharT>
void PrintTo(const TrialOutcome<CharT>& outcome, std::ostream* out) {
  *out << outcome.failure.code << " " << outcome.failure.text << " " << Numbered(outcome.bytes) << " "
       << outcome.changes << " changes";
  for (const auto& question : outcome.questions) {
    *out << "\n  ask " << Numbered(question.context) << " range";
    for (const std::uint32_t number : question.range) *out << " " << number;
    *out << " highlight " << question.highlight[0] << " " << question.highlight[1] << " replacement "
         << Numbered(question.replacement) << " " << question.replacementLength;
  }
}

// Answers as the trial specifies and stores the questions in the outcome.
template <typename CharT>
class TrialCallback final : public QXFindAndReplace::IFindAndReplaceCallback {
  using Result = QXFindAndReplace::ConfirmResult;

 public:
  TrialCallback(const Trial<CharT>& trial, TrialOutcome<CharT>& outcome) : trial_(trial), outcome_(outcome) {}

  // The user sees a context up to its first zero.
  Result Answer(PlainEngine::Question<CharT> question) {
    const std::size_t number = outcome_.questions.size();
    question.context = question.context.c_str();
    outcome_.questions.push_back(std::move(question));
    return number < trial_.answers.size() ? trial_.answers[number] : Result::Skip;
  }

  void BeginFile(const WCHAR*) override {}
  void EndFile() override {}
  void ReportError(const WCHAR*, std::uint32_t) override {}
  void ReportError(const char*, std::uint32_t) override {}
  bool IsCancelled() override { return false; }
  Result ConfirmReplace(const WCHAR* context, WQDR::TextFormat, const QXFindAndReplace::TextRange& range,
                        const QXFindAndReplace::Highlight& highlight, const WCHAR* replacement,
                        std::uint32_t length) override {
    return Asked(context, range, highlight, replacement, length);
  }
  Result ConfirmReplace(const char* context, WQDR::TextFormat, const QXFindAndReplace::TextRange& range,
                        const QXFindAndReplace::Highlight& highlight, const char* replacement,
                        std::uint32_t length) override {
    return Asked(context, range, highlight, replacement, length);
  }

 private:
  template <typename AskedT>
  Result Asked(const AskedT* context, const QXFindAndReplace::TextRange& range,
               const QXFindAndReplace::Highlight& highlight, const AskedT* replacement,
               std::uint32_t length) {
    if constexpr (sizeof(AskedT) != sizeof(CharT)) {
      throw std::logic_error("asked in the other width");
    } else {
      using Text = std::basic_string<CharT>;
      return Answer(
          {Text(context),
           {range.start.line, range.start.column, range.end.line, range.end.column},
           {highlight.start, highlight.end},
           length == QXFindAndReplace::kZeroTerminated ? Text(replacement) : Text(replacement, length),
           length});
    }
  }

  const Trial<CharT>& trial_;
  TrialOutcome<CharT>& outcome_;
};

class BytesWriter final : public WQDR::DataWriter {
 public:
  void Write(const void* data, std::uint32_t size, std::uint32_t* written) override {
    bytes.append(static_cast<const char*>(data), size);
    if (written) *written = size;
  }
  std::string bytes;
};

template <typename CharT>
TrialOutcome<CharT> RunReference(const Trial<CharT>& trial) {
  using namespace QXFindAndReplace;
  TrialOutcome<CharT> outcome;
  TrialCallback<CharT> callback(trial, outcome);
  PlainEngine::Ask<CharT> ask;
  if (trial.asks)
    ask = [&](const PlainEngine::Question<CharT>& question) { return callback.Answer(question); };
  try {
    PlainEngine::Engine<CharT> engine(trial.bytes, trial.blockBytes);
    if (trial.isPass) {
      engine.RunPass(trial.find, trial.replace, (trial.flags & IgnoreCase) != 0,
                     (trial.flags & Wildcard) != 0);
    } else {
      engine.Apply(trial.flags, trial.find, trial.replace, ask);
    }
    outcome.changes = engine.changes;
    outcome.bytes = engine.Output();
  } catch (const PlainEngine::Failure& failure) {
    outcome.failure = failure;
  }
  return outcome;
}

template <typename CharT>
TrialOutcome<CharT> RunEngine(const Trial<CharT>& trial) {
  using namespace QXFindAndReplace;
  TrialOutcome<CharT> outcome;
  TrialCallback<CharT> callback(trial, outcome);
  try {
    WQDR::MemoryDataReader reader(trial.bytes.data(), trial.bytes.size());
    TextDocumentLoader loader;
    loader.blockSize = static_cast<std::uint32_t>(trial.blockBytes);
    const auto format = sizeof(CharT) == 1 ? WQDR::TextFormat::Ansi : WQDR::TextFormat::Utf16;
    const auto document = loader.Load<CharT>(reader, format);
    if (trial.isPass) {
      FindAndReplaceInLines<CharT>(
          *document, trial.find.c_str(), static_cast<std::uint32_t>(trial.find.size()), trial.replace.c_str(),
          static_cast<std::uint32_t>(trial.replace.size()), (trial.flags & IgnoreCase) != 0,
          (trial.flags & Wildcard) != 0 ? kMatchWildcard : kMatchPlain, trial.asks ? &callback : nullptr);
    } else {
      FindAndReplaceOptions options;
      options.flags = trial.flags;
      if (trial.asks) options.callback = &callback;
      ApplyToDocument<CharT>(*document, options, trial.find.c_str(), trial.replace.c_str());
    }
    BytesWriter writer;
    SetWriterEnding<CharT>(writer, document->GetEndingForOutput());
    document->WriteLines(writer);
    outcome.changes = document->changeCount;
    outcome.bytes = std::move(writer.bytes);
  } catch (const WQDR::WQDataReaderException& exception) {
    outcome.failure = {exception.errorCode, exception.what()};
  } catch (const std::out_of_range& exception) {
    outcome.failure = {14, exception.what()};
  } catch (const std::regex_error&) {
    outcome.failure = {14, "bad pattern"};
  } catch (const std::bad_alloc&) {
    outcome.failure = PlainEngine::kNoMemory;
  }
  return outcome;
}
