// A user who gives the answers of a test, and records the questions.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "findreplace/documents.h"
#include "findreplace/engine/find_and_replace_callback.h"

template <typename CharT>
class ScriptedCallback final : public QXFindAndReplace::IFindAndReplaceCallback {
  using Format = WQDR::TextFormat;
  using Result = QXFindAndReplace::ConfirmResult;

 public:
  struct Question {
    std::string context;
    Format format;
    RangeNumbers range;
    QXFindAndReplace::Highlight highlight;
    std::string replacement;
    std::uint32_t replacementLength;
    std::uint32_t changesBefore = 0;  // of the document, if one is set

    std::string Highlighted() const {
      return context.substr(highlight.start, highlight.end - highlight.start);
    }
  };

  // The answers in order, and the answer to all later questions.
  explicit ScriptedCallback(std::vector<Result> answers, Result afterwards = Result::Replace)
      : answers_(std::move(answers)), afterwards_(afterwards) {}

  std::vector<Question> questions;
  const QXFindAndReplace::TextDocumentT<CharT>* document = nullptr;

  std::vector<std::string> Contexts() const {
    std::vector<std::string> contexts;
    for (const Question& question : questions) contexts.push_back(question.context);
    return contexts;
  }
  std::vector<std::string> Matches() const {
    std::vector<std::string> matches;
    for (const Question& question : questions) matches.push_back(question.Highlighted());
    return matches;
  }
  std::vector<RangeNumbers> Ranges() const {
    std::vector<RangeNumbers> ranges;
    for (const Question& question : questions) ranges.push_back(question.range);
    return ranges;
  }

  Result ConfirmReplace(const char* context, Format format, const QXFindAndReplace::TextRange& range,
                        const QXFindAndReplace::Highlight& highlight, const char* replacement,
                        std::uint32_t replacementLength) override {
    return Answer(context, format, range, highlight, replacement, replacementLength);
  }
  Result ConfirmReplace(const WCHAR* context, Format format, const QXFindAndReplace::TextRange& range,
                        const QXFindAndReplace::Highlight& highlight, const WCHAR* replacement,
                        std::uint32_t replacementLength) override {
    return Answer(context, format, range, highlight, replacement, replacementLength);
  }

  // Only the run over a file makes these calls, not the engine.
  void BeginFile(const WCHAR*) override { ADD_FAILURE() << "BeginFile"; }
  void EndFile() override { ADD_FAILURE() << "EndFile"; }
  void ReportError(const WCHAR*, std::uint32_t) override { ADD_FAILURE() << "ReportError"; }
  void ReportError(const char*, std::uint32_t) override { ADD_FAILURE() << "ReportError"; }
  bool IsCancelled() override {
    ADD_FAILURE() << "IsCancelled";
    return false;
  }

 private:
  template <typename AskedT>
  Result Answer(const AskedT* context, Format format, const QXFindAndReplace::TextRange& range,
                const QXFindAndReplace::Highlight& highlight, const AskedT* replacement,
                std::uint32_t replacementLength) {
    EXPECT_EQ(sizeof(AskedT), sizeof(CharT)) << "asked in the other width";
    using View = std::basic_string_view<AskedT>;
    const View given = replacementLength == QXFindAndReplace::kZeroTerminated
                           ? View(replacement)
                           : View(replacement, replacementLength);
    questions.push_back({Narrow<AskedT>(View(context)), format, NumbersOf(range), highlight,
                         Narrow<AskedT>(given), replacementLength,
                         document != nullptr ? document->changeCount : 0});
    EXPECT_LT(questions.size(), 100000u) << "the questions have no end";
    if (questions.size() >= 100000) return Result::Cancel;
    return questions.size() <= answers_.size() ? answers_[questions.size() - 1] : afterwards_;
  }

  std::vector<Result> answers_;
  Result afterwards_;
};
