// Runs of find and replace over files of a scratch folder, and what they report to and request from the host.
#pragma once

#include <gmock/gmock.h>

#include <deque>

#include "findreplace/tool/find_and_replace_run.h"
#include "frame/services/message_texts.h"
#include "support/box_answers.h"
#include "support/fake_host.h"
#include "support/scratch_folder.h"

namespace QXFindAndReplace {

using namespace Velmora::SDK;

// Title and text of the question, and its style: buttons Yes, No and Cancel, and a question mark.
inline constexpr char kQuestion[] = "MessageBox(\"T023A0064\", \"T023F0064\", 0x00000023)";

inline constexpr TextId kChangesFormat = kTextFindChanges;
inline constexpr TextId kChangesInFormat = kTextFindChangesIn;

inline std::string Summary(const std::string& text) {
  return "MessageBox(\"T023A0064\", \"" + text + "\", 0x00000040)";
}

// A run over files of a scratch folder that replaces "two" by "2".
struct ListRun {
  ListRun() {
    host.texts[kChangesFormat] = W("%s changes");
    host.texts[kChangesInFormat] = W("%s changes in %s files");
    host.boxAnswers = {IDOK};
  }

  // Creates a file and adds it to the list.
  FakeFileItem* Add(WStringView name, std::string_view bytes) {
    scratch.Write(name, bytes);
    return AddMissing(name);
  }
  FakeFileItem* AddMissing(WStringView name) {
    FakeFileItem* const item = host.AddFileIn(scratch.Path() + W("\\"), WString(name));
    items.push_back(item);
    return item;
  }

  FindAndReplaceOptions Options(std::uint32_t flags) const {
    FindAndReplaceOptions options;
    options.flags = flags | ((flags & 0xF) == 0 ? std::uint32_t{ModeOne} : 0);
    options.find = find;
    options.replace = W("2");
    return options;
  }

  void Run(std::uint32_t flags, const WString& pattern, bool ownsFiles = true) {
    auto* const list = static_cast<FakeFileList*>(host.CreateFileList());
    for (FakeFileItem* item : items) list->Append(item);
    host.recorder.ClearCalls();
    const ConfirmReplaceDialog confirm = [this](IHostApp&, ConfirmReplaceForm& form) {
      paths.push_back(Short(ToUtf8(form.path)));
      form.result = confirmations.empty() ? ConfirmResult::Replace : confirmations.front();
      if (!confirmations.empty()) confirmations.pop_front();
    };
    {
      const BoxAnswers answers{IDOK, IDOK, IDOK};
      FindAndReplaceRun(host, list, Options(flags), pattern, ownsFiles, confirm).Run();
      EXPECT_EQ(answers.Boxes().size(), errorBoxes);
      EXPECT_THAT(answers.UnexpectedBoxes(), testing::IsEmpty());
    }
    listIsOpen = host.recorder.IsTaken(list->Name());
    if (listIsOpen) list->Release();
    ExpectAllReleased(host);
  }

  // Returns the log lines as "level: text", from both log operations, with the folder replaced by "~".
  std::vector<std::string> Log() const {
    std::vector<std::string> lines;
    for (const std::string& call : host.recorder.CallsOf({"LogMessage(", "LogText("})) {
      const std::size_t level = call.find(", ") + 2;
      const std::size_t text = call.find(", \"", level) + 3;
      EXPECT_NE(call.find("(0, "), std::string::npos) << call;
      const std::string number = call.substr(level, text - 3 - level);
      lines.push_back(number + ": " + Short(call.substr(text, call.size() - text - 2)));
    }
    return lines;
  }

  // Returns the message boxes of the host, as recorded.
  std::vector<std::string> Boxes() const { return host.recorder.CallsOf({"MessageBox("}); }

  // Returns the names in the list that was handed back with this mode, or nothing if there was none.
  std::vector<std::string> Result(u32 mode) const {
    std::vector<std::string> names;
    int lists = 0;
    for (const ResultList& list : host.resultLists) {
      if (list.mode != mode) continue;
      ++lists;
      for (const WString& path : list.paths) names.push_back(Short(ToUtf8(path)));
    }
    EXPECT_LE(lists, 1) << mode;
    return names;
  }

  // Returns the steps of the run in order, in words.
  std::vector<std::string> Steps() const {
    std::vector<std::string> steps;
    for (const std::string& call : host.recorder.Calls()) {
      if (call.starts_with("Log")) {
        steps.push_back(call.find("changes made") != std::string::npos ? "log done"
                        : call.starts_with("LogText")                  ? "log error"
                        : call.find("cancelled") != std::string::npos  ? "log cancelled"
                                                                       : "log not done");
      }
      if (call.starts_with("MessageBox(")) steps.push_back(call == kQuestion ? "question" : "summary");
      if (call.starts_with("FileListRequest(21120, ")) {
        steps.push_back(call.ends_with(", 0, 0)")   ? "hand back done"
                        : call.ends_with(", 1, 0)") ? "hand back failed"
                                                    : call);
      }
      if (call.ends_with(".Release()"))
        steps.push_back(call.starts_with("list1.") ? "release files" : "release result");
    }
    return steps;
  }

  ScratchFolder scratch;
  FakeHost host;
  std::vector<FakeFileItem*> items;
  WString find = W("two");
  std::deque<ConfirmResult> confirmations;  // Replace if none is left
  std::vector<std::string> paths;           // the files of the questions about matches
  std::size_t errorBoxes = 0;               // the number of the module's own boxes that must open
  bool listIsOpen = false;                  // whether the list of files is in use after the run

 private:
  std::string Short(std::string text) const {
    const std::string folder = ToUtf8(scratch.Path());
    for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at + 1)) {
      text.replace(at, folder.size(), "~");
    }
    return text;
  }
};

// Returns an error as it is logged, with the line breaks of its text.
inline std::string ErrorLine(const std::string& text, int code) {
  return "30: [Find and Replace] Error\r\n==========================\r\n" + text +
         "\r\n( ErrorCode : " + std::to_string(code) + " )";
}

inline constexpr std::uint32_t kNew = SaveAsNew | ReplaceAll;
inline constexpr std::uint32_t kBackup = KeepBackup | ReplaceAll;

}  // namespace QXFindAndReplace
