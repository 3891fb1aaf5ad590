// The window of the dialog that confirms a match, alone and in runs over files.
#include "findreplace/tool/confirm_replace_dlg.h"

#include <gmock/gmock.h>

#include <deque>

#include "findreplace/tool/find_and_replace_command.h"
#include "findreplace/tool/host_callback.h"
#include "frame/services/message_texts.h"
#include "support/fake_host.h"
#include "support/scratch_folder.h"
#include "window/dialog_controls.h"
#include "window/english_texts.h"
#include "window/layout_checks.h"
#include "window/modal_driver.h"
#include "window/screenshot.h"

using namespace Velmora::SDK;

namespace QXFindAndReplace {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using WQDR::TextFormat;

// The ids of the dialog's controls.
enum Control : int {
  kSwitch = 1042,
  kReplaceAll = 1046,
  kFindNext = 1047,
  kContext = 1049,
  kReplacement = 1050,
  kReplacementLabel = 1105,
  kRange = 1113,
  kPathLabel = 1115,
  kPath = 1116,
};

bool IsVisible(HWND dialog, int control) { return IsWindowVisible(GetDlgItem(dialog, control)) != FALSE; }

// Returns the start and end of the selection in an edit control.
std::pair<DWORD, DWORD> SelectionOf(HWND dialog, int control) {
  DWORD from = 99;
  DWORD to = 99;
  SendDlgItemMessageW(dialog, control, EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                      reinterpret_cast<LPARAM>(&to));
  return {from, to};
}

class ConfirmReplaceDlgWindow : public testing::Test {
 protected:
  ConfirmReplaceDlgWindow() {
    form_.path = W("Z:\\folder\\a & b.txt");
    form_.context = W("first\r\nan old text\r\nlast\r\n");
    form_.replacement = W("new");
    form_.range = {{1, 3}, {1, 6}};
    form_.highlight = {10, 13};
  }

  void Show(const Steps& steps) {
    RunModal(
        [this] {
          ShowConfirmReplaceDlg(host_, form_);
          return INT_PTR{0};
        },
        steps);
  }

  // Returns the result of the dialog after these steps.
  ConfirmResult Answer(const Steps& steps) {
    form_.result = ConfirmResult::ReplaceToo;
    Show(steps);
    return form_.result;
  }

  OwnerWindow owner_{800, 600};
  FakeHost host_;
  ConfirmReplaceForm form_;
};

// Texts.

TEST_F(ConfirmReplaceDlgWindow, EveryTextComesFromTheHostByItsId) {
  const std::pair<int, const WCHAR*> expected[] = {
      {kTitle, W("T02260064")},      {kPathLabel, W("T02290064")},        {kRange, W("T02270064")},
      {kSwitch, W("T02300064")},     {kReplacementLabel, W("T02280064")}, {IDOK, W("T022B0064")},
      {kReplaceAll, W("T022C0064")}, {kFindNext, W("T022D0064")},         {IDCANCEL, W("M0:00030067")},
  };
  Show([&](HWND dialog) {
    for (const auto& [control, text] : expected) EXPECT_EQ(TextOf(dialog, control), text) << control;
  });
}

TEST_F(ConfirmReplaceDlgWindow, WhereTheHostHasNoTextsItsOwnOnesShow) {
  host_.recorder.Refuse("GetLanguageString");
  host_.recorder.Refuse("GetModuleLanguageString");
  const std::pair<int, const WCHAR*> expected[] = {
      {kTitle, W("Dialog")},
      {kPathLabel, W("File : ")},
      {kRange, W("Found match")},
      {kSwitch, W("Switch UTF8/RAW")},
      {kReplacementLabel, W("Replace with")},
      {IDOK, W("Replace")},
      {kReplaceAll, W("Replace All")},
      {kFindNext, W("Find Next")},
      {IDCANCEL, W("Cancel")},
  };
  Show([&](HWND dialog) {
    for (const auto& [control, text] : expected) EXPECT_EQ(TextOf(dialog, control), text) << control;
  });
}

TEST_F(ConfirmReplaceDlgWindow, ShowsFileRangeContextAndReplacement) {
  host_.texts[kTextConfirmRange] = W("%d/%d to %d/%d%% %s");
  form_.range = {{0, 3}, {4, 17}};
  form_.replacement = W("new\r\nlines");
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kPath), W("Z:\\folder\\a & b.txt"));
    EXPECT_EQ(TextOf(dialog, kRange), W("0/3 to 4/17% %s"));
    EXPECT_EQ(TextOf(dialog, kContext), W("first\r\nan old text\r\nlast\r\n"));
    EXPECT_EQ(TextOf(dialog, kReplacement), W("new\r\nlines"));
  });
}

TEST_F(ConfirmReplaceDlgWindow, LongContextIsShownWhole) {
  form_.context = WString(200000, W('x')) + W("old");
  form_.highlight = {200000, 200003};
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kContext).size(), 200003u);
    EXPECT_EQ(SelectionOf(dialog, kContext), std::pair(200000ul, 200003ul));
  });
}

// The match.

TEST_F(ConfirmReplaceDlgWindow, MatchIsSelectedAndShowsThoughTheFocusIsElsewhere) {
  Show([](HWND dialog) {
    EXPECT_EQ(SelectionOf(dialog, kContext), std::pair(10ul, 13ul));
    EXPECT_TRUE(GetWindowLongW(GetDlgItem(dialog, kContext), GWL_STYLE) & ES_NOHIDESEL);
    EXPECT_EQ(FocusedControl(dialog), IDOK);
  });
}

TEST_F(ConfirmReplaceDlgWindow, MatchFarDownIsScrolledIntoView) {
  form_.context.clear();
  for (int line = 0; line < 100; ++line) form_.context += W("a line\r\n");
  form_.highlight = {8 * 90 + 2, 8 * 90 + 6};
  Show([](HWND dialog) {
    const LRESULT first = SendDlgItemMessageW(dialog, kContext, EM_GETFIRSTVISIBLELINE, 0, 0);
    EXPECT_GT(first, 70);
    EXPECT_LE(first, 90);
  });
}

TEST_F(ConfirmReplaceDlgWindow, MatchFarToTheRightIsScrolledIntoView) {
  form_.context = WString(500, W('x')) + W("old");
  form_.highlight = {500, 503};
  Show([](HWND dialog) {
    const LRESULT place = SendDlgItemMessageW(dialog, kContext, EM_POSFROMCHAR, 502, 0);
    RECT room = {};
    SendDlgItemMessageW(dialog, kContext, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
    EXPECT_GE(static_cast<short>(LOWORD(place)), room.left);
    EXPECT_LT(static_cast<short>(LOWORD(place)), room.right);
  });
}

TEST_F(ConfirmReplaceDlgWindow, MatchStaysSelectedWhenTheTabKeyReachesTheContext) {
  Show([](HWND dialog) {
    for (int step = 0; step < 20 && FocusedControl(dialog) != kContext; ++step) PressKey(dialog, VK_TAB);
    EXPECT_EQ(FocusedControl(dialog), kContext);
    EXPECT_EQ(SelectionOf(dialog, kContext), std::pair(10ul, 13ul));
  });
}

TEST_F(ConfirmReplaceDlgWindow, LinesOfALfFileStayLinesAndTheMatchIsTheSame) {
  form_.context = W("first\nan old text\nlast\n");
  form_.highlight = {9, 12};
  form_.replacement = W("new\nlines");
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kContext), W("first\r\nan old text\r\nlast\r\n"));
    EXPECT_EQ(SendDlgItemMessageW(dialog, kContext, EM_GETLINECOUNT, 0, 0), 4);
    EXPECT_EQ(SelectionOf(dialog, kContext), std::pair(10ul, 13ul));
    EXPECT_EQ(TextOf(dialog, kReplacement), W("new\r\nlines"));
  });
}

TEST_F(ConfirmReplaceDlgWindow, MatchOverTheLinesOfALfFileIsSelectedWithItsLineEnds) {
  form_.context = W("a\nfrom\nto\nb\n");
  form_.highlight = {2, 9};
  Show([](HWND dialog) {
    const auto [from, to] = SelectionOf(dialog, kContext);
    EXPECT_EQ(TextOf(dialog, kContext).substr(from, to - from), W("from\r\nto"));
  });
}

TEST_F(ConfirmReplaceDlgWindow, LinesOfALfFileStayLinesInBothViews) {
  form_.format = TextFormat::Utf8;
  form_.context = W("\u00C3\u00BC\nx\n");
  form_.highlight = {3, 4};
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kContext), W("\u00C3\u00BC\r\nx\r\n"));
    EXPECT_EQ(SelectionOf(dialog, kContext), std::pair(4ul, 5ul));
    ClickButton(dialog, kSwitch);
    EXPECT_EQ(TextOf(dialog, kContext), W("\u00FC\r\nx\r\n"));
    ClickButton(dialog, kSwitch);
    EXPECT_EQ(TextOf(dialog, kContext), W("\u00C3\u00BC\r\nx\r\n"));
  });
}

TEST_F(ConfirmReplaceDlgWindow, MatchOfNoPlaceSelectsNothing) {
  form_.highlight = {0, 0};
  Show([](HWND dialog) { EXPECT_EQ(SelectionOf(dialog, kContext), std::pair(0ul, 0ul)); });
}

// Read-only fields.

TEST_F(ConfirmReplaceDlgWindow, TextsCannotBeChanged) {
  Show([](HWND dialog) {
    for (const int control : {kContext, kReplacement}) {
      EXPECT_TRUE(GetWindowLongW(GetDlgItem(dialog, control), GWL_STYLE) & ES_READONLY) << control;
      const WString before = TextOf(dialog, control);
      Focus(dialog, control);
      TypeText(dialog, W("x"));
      EXPECT_EQ(TextOf(dialog, control), before) << control;
    }
  });
}

TEST_F(ConfirmReplaceDlgWindow, ReadOnlyFieldsAreDrawnAsOrdinaryOnes) {
  HGDIOBJ brush = nullptr;
  Show([&](HWND dialog) {
    const auto brushOf = [&](int control, COLORREF& text, COLORREF& back) {
      const HDC dc = GetDC(GetDlgItem(dialog, control));
      SetTextColor(dc, RGB(1, 2, 3));
      const LRESULT result = SendMessageW(dialog, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                                          reinterpret_cast<LPARAM>(GetDlgItem(dialog, control)));
      text = GetTextColor(dc);
      back = GetBkColor(dc);
      ReleaseDC(GetDlgItem(dialog, control), dc);
      return reinterpret_cast<HGDIOBJ>(result);
    };
    COLORREF text = 0;
    COLORREF back = 0;
    for (const int control : {kContext, kReplacement}) {
      brush = brushOf(control, text, back);
      LOGBRUSH logical = {};
      ASSERT_EQ(GetObjectW(brush, sizeof(logical), &logical), static_cast<int>(sizeof(logical))) << control;
      EXPECT_EQ(logical.lbColor, GetSysColor(COLOR_WINDOW)) << control;
      EXPECT_EQ(text, GetSysColor(COLOR_WINDOWTEXT)) << control;
      EXPECT_EQ(back, GetSysColor(COLOR_WINDOW)) << control;
    }
    for (const int control : {kPath, kRange, kReplacementLabel}) {
      EXPECT_NE(brushOf(control, text, back), brush) << control;
      EXPECT_EQ(back, GetSysColor(COLOR_3DFACE)) << control;
    }
  });
  EXPECT_EQ(GetObjectType(brush), 0u) << "the brush outlived the dialog";
}

// The two views of a UTF-8 file.

TEST_F(ConfirmReplaceDlgWindow, OnlyForUtf8ThereIsTheSwitch) {
  for (const TextFormat format : {TextFormat::Ansi, TextFormat::Utf16, TextFormat::Binary}) {
    form_.format = format;
    Show([](HWND dialog) { EXPECT_FALSE(IsVisible(dialog, kSwitch)); });
  }
  form_.format = TextFormat::Utf8;
  Show([](HWND dialog) { EXPECT_TRUE(IsVisible(dialog, kSwitch)); });
}

TEST_F(ConfirmReplaceDlgWindow, SwitchShowsTheBytesAsUtf8AndBack) {
  form_.format = TextFormat::Utf8;
  form_.context = W("Gr\u00C3\u00BC\u00C3\u0178e \u00C3\u0081");
  form_.replacement = W("\u00E2\u201A\u00AC");
  Show([](HWND dialog) {
    for (int round = 0; round < 2; ++round) {
      EXPECT_EQ(TextOf(dialog, kContext), W("Gr\u00C3\u00BC\u00C3\u0178e \u00C3\u0081"));
      EXPECT_EQ(TextOf(dialog, kReplacement), W("\u00E2\u201A\u00AC"));
      ClickButton(dialog, kSwitch);
      EXPECT_EQ(TextOf(dialog, kContext), W("Gr\u00FC\u00DFe \u00C1"));
      EXPECT_EQ(TextOf(dialog, kReplacement), W("\u20AC"));
      ClickButton(dialog, kSwitch);
    }
  });
}

TEST_F(ConfirmReplaceDlgWindow, SwitchDoesNotSelectTheMatchAgainByDesign) {
  form_.format = TextFormat::Utf8;
  Show([](HWND dialog) {
    SendDlgItemMessageW(dialog, kContext, EM_SETSEL, 1, 2);
    const SentMessages selections(EM_SETSEL);
    ClickButton(dialog, kSwitch);
    ClickButton(dialog, kSwitch);
    EXPECT_THAT(selections.Controls(), testing::Not(testing::Contains(kContext)));
    EXPECT_NE(SelectionOf(dialog, kContext), std::pair(10ul, 13ul));
  });
}

TEST_F(ConfirmReplaceDlgWindow, RangeIsShownAgainOnlyInTheRawView) {
  form_.format = TextFormat::Utf8;
  Show([this](HWND dialog) {
    host_.texts[kTextConfirmRange] = W("anew %d");
    ClickButton(dialog, kSwitch);
    EXPECT_EQ(TextOf(dialog, kRange), W("T02270064"));
    ClickButton(dialog, kSwitch);
    EXPECT_EQ(TextOf(dialog, kRange), W("anew 1"));
  });
}

TEST_F(ConfirmReplaceDlgWindow, SwitchGivesNoAnswer) {
  form_.format = TextFormat::Utf8;
  EXPECT_EQ(Answer([](HWND dialog) {
              ClickButton(dialog, kSwitch);
              EXPECT_TRUE(IsWindow(dialog));
              ClickButton(dialog, kFindNext);
            }),
            ConfirmResult::Skip);
}

// The result of each button.

TEST_F(ConfirmReplaceDlgWindow, EachButtonGivesItsAnswer) {
  EXPECT_EQ(static_cast<int>(Answer([](HWND dialog) { ClickButton(dialog, IDOK); })), 0);
  EXPECT_EQ(static_cast<int>(Answer([](HWND dialog) { ClickButton(dialog, kReplaceAll); })), 1);
  EXPECT_EQ(static_cast<int>(Answer([](HWND dialog) { ClickButton(dialog, kFindNext); })), 3);
  EXPECT_EQ(static_cast<int>(Answer([](HWND dialog) { ClickButton(dialog, IDCANCEL); })), 5);
}

TEST_F(ConfirmReplaceDlgWindow, CloseBoxAndEscapeAreCancel) {
  EXPECT_EQ(Answer([](HWND dialog) { PressCloseButton(dialog); }), ConfirmResult::Cancel);
  EXPECT_EQ(Answer([](HWND dialog) { PressKey(dialog, VK_ESCAPE); }), ConfirmResult::Cancel);
  EXPECT_EQ(Answer([](HWND dialog) {
              Focus(dialog, kContext);
              PressKey(dialog, VK_ESCAPE);
            }),
            ConfirmResult::Cancel);
}

TEST_F(ConfirmReplaceDlgWindow, EnterPressesTheButtonThatHasTheFocus) {
  EXPECT_EQ(Answer([](HWND dialog) { PressKey(dialog, VK_RETURN); }), ConfirmResult::Replace);
  EXPECT_EQ(Answer([](HWND dialog) {
              PressKey(dialog, VK_TAB);
              PressKey(dialog, VK_TAB);
              PressKey(dialog, VK_RETURN);
            }),
            ConfirmResult::Skip);
}

TEST_F(ConfirmReplaceDlgWindow, AccessKeysPressTheButtons) {
  SpeakEnglish(host_);
  EXPECT_EQ(Answer([](HWND dialog) { PressAltKey(dialog, W('r')); }), ConfirmResult::Replace);
  EXPECT_EQ(Answer([](HWND dialog) { PressAltKey(dialog, W('a')); }), ConfirmResult::ReplaceAll);
  EXPECT_EQ(Answer([](HWND dialog) { PressAltKey(dialog, W('n')); }), ConfirmResult::Skip);
  EXPECT_EQ(Answer([](HWND dialog) { PressAltKey(dialog, W('c')); }), ConfirmResult::Cancel);
}

TEST_F(ConfirmReplaceDlgWindow, TabWalksTheButtonsFirst) {
  form_.format = TextFormat::Utf8;
  Show([](HWND dialog) {
    EXPECT_THAT(WalkByTab(dialog),
                ElementsAre(IDOK, kReplaceAll, kFindNext, IDCANCEL, kContext, kSwitch, kReplacement));
  });
}

TEST_F(ConfirmReplaceDlgWindow, DialogThatCannotBeMadeLeavesTheResult) {
  SetActiveWindow(nullptr);
  {
    const OwnerWindow gone(10, 10);
    host_.mainWindow = gone.Get();
  }
  SetActiveWindow(nullptr);
  for (const ConfirmResult before : {ConfirmResult::ReplaceToo, ConfirmResult::Skip}) {
    form_.result = before;
    ShowConfirmReplaceDlg(host_, form_);
    EXPECT_EQ(form_.result, before);
  }
}

// Appearance.

TEST_F(ConfirmReplaceDlgWindow, IsCenteredOnTheActiveWindow) {
  Show([this](HWND dialog) {
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner_.Get());
    ExpectCenteredOver(dialog, owner_.Get());
  });
}

TEST_F(ConfirmReplaceDlgWindow, EnglishTextsFitAndControlsDoNotOverlap) {
  SpeakEnglish(host_);
  form_.format = TextFormat::Utf8;
  form_.path = W("Z:\\home\\me\\notes\\shopping.txt");
  form_.context = W("- two apples\r\n- a grey hat\r\n- milk\r\n");
  form_.replacement = W("gray");
  form_.range = {{7, 4}, {7, 8}};
  form_.highlight = {18, 22};
  Show([](HWND dialog) {
    ExpectLayoutHolds(dialog);
    EXPECT_EQ(TextOf(dialog, kRange),
              W("Found match: line 7, column 4 to line 7, column 8 (counted from 0)"));
    EXPECT_TRUE(SaveScreenshot(dialog, W("confirm_replace_dialog")));
  });
}

TEST_F(ConfirmReplaceDlgWindow, TextsOfTwiceTheLengthLongSentencesAndLargeNumbersFitToo) {
  SpeakAtLength(host_);
  form_.format = TextFormat::Utf8;
  form_.range = {{4000000000, 4000000000}, {4000000000, 4000000000}};
  form_.path = W("Z:\\folder");
  Show([](HWND dialog) {
    ExpectNoTextCutOff(dialog);
    EXPECT_TRUE(SaveScreenshot(dialog, W("confirm_replace_dialog_long_texts")));
  });
}

// The message box of an error.

TEST_F(ConfirmReplaceDlgWindow, ErrorBoxIsOwnedByTheHostsMainWindow) {
  host_.mainWindow = owner_.Get();
  RunModal(
      [this] {
        FindAndReplaceCallback(host_, 0).ReportError("Text part not found", 87);
        return INT_PTR{0};
      },
      [this](HWND box) {
        ExpectOwnedBy(box, owner_.Get());
        EXPECT_EQ(TextOf(box, kTitle), W("Error"));
        PressKey(box, VK_RETURN);
      });
}

// Runs over files, with both dialogs.

class FindAndReplaceInWindows : public ConfirmReplaceDlgWindow {
 protected:
  void Select(const WString& name, std::string_view bytes) {
    folder_.Write(name, bytes);
    items_.emplace_back(host_.recorder, folder_.Path() + W("\\"), name, FILE_ATTRIBUTE_ARCHIVE);
    host_.selection.push_back(&items_.back());
  }

  // Runs the command: fills and confirms the first dialog, and closes the following ones with these controls.
  void Run(const std::vector<int>& answers, const WString& find = W("old"), int modeRow = 0) {
    constexpr int kFindText = 1020;
    constexpr int kMode = 1102;
    constexpr int kReplaceText = 1050;
    std::vector<Steps> steps = {[find, modeRow](HWND dialog) {
      PasteText(dialog, kFindText, find);
      EnterText(dialog, kReplaceText, W("new"));
      ChooseRow(dialog, kMode, modeRow);
      ClickButton(dialog, IDOK);
    }};
    for (const int answer : answers) {
      steps.push_back([this, answer](HWND dialog) {
        paths_.push_back(TextOf(dialog, kPath));
        selected_.push_back(
            TextOf(dialog, kContext)
                .substr(SelectionOf(dialog, kContext).first,
                        SelectionOf(dialog, kContext).second - SelectionOf(dialog, kContext).first));
        ClickButton(dialog, answer);
      });
    }
    host_.boxAnswers = {IDOK};
    RunModal(
        [this] {
          FindAndReplaceCommand(host_);
          return INT_PTR{0};
        },
        steps);
    ExpectAllReleased(host_);
  }

  ScratchFolder folder_;
  std::deque<FakeFileItem> items_;
  std::vector<WString> paths_;     // the paths in the questions, in order
  std::vector<WString> selected_;  // the text shown as the match
};

TEST_F(FindAndReplaceInWindows, EachMatchIsAskedAboutAndShown) {
  Select(W("a.txt"), "old\nOld old\n");
  Run({IDOK, kFindNext, IDOK});
  EXPECT_THAT(selected_, ElementsAre(W("old"), W("Old"), W("old")));
  EXPECT_THAT(paths_, testing::Each(folder_.Path(W("a.txt"))));
  EXPECT_EQ(folder_.Read(W("a.txt")), "new\nOld new\n");
  EXPECT_EQ(folder_.Read(W("a.txt.bak")), "old\nOld old\n");
}

TEST_F(FindAndReplaceInWindows, BlockOfLinesOfALfFileIsShownAsLines) {
  constexpr int kMultilineRow = 3;
  Select(W("a.txt"), "one\nold\nlines\nfour\n");
  Run({IDOK}, W("old\r\nlines"), kMultilineRow);
  EXPECT_THAT(selected_, ElementsAre(W("old\r\nlines")));
  EXPECT_EQ(folder_.Read(W("a.txt")), "one\nnew\nlines\nfour\n");
}

TEST_F(FindAndReplaceInWindows, CancelInTheSecondOfThreeFilesLeavesItAndTheThirdAsTheyWere) {
  for (const WCHAR* const name : {W("a.txt"), W("b.txt"), W("c.txt")}) Select(name, "old old\n");
  Run({IDOK, IDOK, IDOK, IDCANCEL});
  EXPECT_EQ(folder_.Read(W("a.txt")), "new new\n");
  EXPECT_EQ(folder_.Read(W("b.txt")), "old old\n");
  EXPECT_EQ(folder_.Read(W("c.txt")), "old old\n");
  EXPECT_THAT(host_.recorder.CallsOf({"LogMessage", "MessageBox"}),
              ElementsAre(HasSubstr("2 changes made to file"), HasSubstr("Failed to Find/Replace text in"),
                          HasSubstr("Operation cancelled")));
}

TEST_F(FindAndReplaceInWindows, ReplaceAllAsksNoMoreInThisFileAndTheNext) {
  Select(W("a.txt"), "old old\n");
  Select(W("b.txt"), "old old\n");
  Run({kFindNext, kReplaceAll});
  EXPECT_EQ(folder_.Read(W("a.txt")), "old new\n");
  EXPECT_EQ(folder_.Read(W("b.txt")), "new new\n");
}

TEST_F(FindAndReplaceInWindows, CloseBoxInTheFirstFileCancelsTheRun) {
  Select(W("a.txt"), "old\n");
  Select(W("b.txt"), "old\n");
  Run({IDCANCEL});
  EXPECT_THAT(folder_.Names(), ElementsAre(W("a.txt"), W("b.txt")));
  EXPECT_EQ(folder_.Read(W("a.txt")), "old\n");
}

}  // namespace
}  // namespace QXFindAndReplace
