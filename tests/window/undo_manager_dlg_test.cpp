// The window of the undo manager.
#include <gmock/gmock.h>

#include "multirename/form/undo_manager_form.h"
#include "window/dialog_template.h"
#include "window/layout_checks.h"
#include "window/list_rows.h"
#include "window/rename_dialog_window.h"
#include "window/screenshot.h"

// windows.h must be included first.
#include <commctrl.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using Velmora::SDK::MultiRenameUndo;
using Velmora::SDK::MultiRenameUndoStore;
using Velmora::SDK::UndoManagerForm;

// The resource ids of the dialog and its controls.
constexpr int kDialog = 106;
enum Control : int {
  kDelete = 1046,
  kDeleteAll = 1047,
  kDate = 1049,
  kFiles = 1052,
  kSessions = 1053,
  kCount = 1054,
  kDateLabel = 1055,
  kSessionsLabel = 1056,
  kFilesLabel = 1057,
};

class UndoManagerDlgWindow : public RenameDialogWindow {
 protected:
  UndoManagerDlgWindow() {
    host_.configFolder = scratch_.Path() + W("\\");
    store_.emplace(&host_);
  }

  // Stores a session of a day in March 2026 with that many entries.
  MultiRenameUndo* Keep(WORD day, int entries = 1, bool restored = false) {
    auto session = std::make_unique<MultiRenameUndo>();
    session->date = {2026, 3, 0, day, 12, 30, 0, 0};
    session->haveRestored = restored;
    for (int entry = 0; entry < entries; ++entry) {
      const WString number = FromUtf8(std::to_string(day) + "-" + std::to_string(entry));
      session->entries.push_back({W("C:\\f") + number, W("new") + number, W("old") + number});
    }
    store_->Save(*session);
    store_->sessions.push_back(std::move(session));
    return store_->sessions.back().get();
  }

  INT_PTR Show(const std::vector<Steps>& steps, const MultiRenameUndo* loaded = nullptr) {
    form_.emplace(host_, *store_, loaded);
    return ShowDialog(kDialog, *form_, steps);
  }
  INT_PTR Show(const Steps& steps) { return Show(std::vector<Steps>{steps}); }

  static std::vector<WString> Column(HWND dialog, int list, std::size_t column) {
    std::vector<WString> cells;
    for (const std::vector<WString>& row : TableRowsOf(dialog, list)) cells.push_back(row[column]);
    return cells;
  }

  std::vector<WString> UndoFiles() const { return scratch_.Names(W("Undo")); }

  const ScratchFolder scratch_;
  std::optional<MultiRenameUndoStore> store_;
  std::optional<UndoManagerForm> form_;
};

// Returns steps that press a button of a message box.
Steps PressInBox(int button) {
  return [button](HWND box) { ClickButton(box, button); };
}

// Contents.

TEST_F(UndoManagerDlgWindow, EveryTextComesFromTheHostByItsId) {
  Show([](HWND dialog) {
    const std::map<int, WString> texts = {{kTitle, W("T01F40064")},     {kSessionsLabel, W("T01F50064")},
                                          {kDateLabel, W("T01F60064")}, {kFilesLabel, W("T01F70064")},
                                          {kDelete, W("T01F80064")},    {kDeleteAll, W("T01F90064")},
                                          {IDOK, W("T01FA0064")},       {IDCANCEL, W("T01FB0064")}};
    for (const auto& [control, text] : texts) EXPECT_EQ(TextOf(dialog, control), text) << control;
    EXPECT_THAT(ColumnsOf(dialog, kSessions),
                ElementsAre(Pair(W("T01FE0064"), 150), Pair(W("T01FF0064"), 100), Pair(W("T02000064"), 200)));
    EXPECT_THAT(ColumnsOf(dialog, kFiles),
                ElementsAre(Pair(W("T02030064"), 250), Pair(W("T02040064"), 250), Pair(W("T02050064"), 200)));
  });
}

TEST_F(UndoManagerDlgWindow, ListsSelectOneFullRow) {
  Show([](HWND dialog) {
    for (const int list : {kSessions, kFiles}) {
      EXPECT_TRUE(SendDlgItemMessageW(dialog, list, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) &
                  LVS_EX_FULLROWSELECT);
      EXPECT_TRUE(GetWindowLongW(GetDlgItem(dialog, list), GWL_STYLE) & LVS_SINGLESEL);
    }
  });
}

TEST_F(UndoManagerDlgWindow, TheNewestSessionIsTheFirstAndNoneIsShown) {
  const MultiRenameUndo* const oldest = Keep(5, 2);
  const MultiRenameUndo* const newest = Keep(17, 12, true);
  const MultiRenameUndo* const middle = Keep(9);
  Show([=](HWND dialog) {
    EXPECT_THAT(TableRowsOf(dialog, kSessions),
                ElementsAre(ElementsAre(DateText(*newest), W("12"), W("T02080064")),
                            ElementsAre(DateText(*middle), W("1"), W("")),
                            ElementsAre(DateText(*oldest), W("2"), W(""))));
    EXPECT_THAT(SelectedTableRows(dialog, kSessions), IsEmpty());
    EXPECT_THAT(TableRowsOf(dialog, kFiles), IsEmpty());
    EXPECT_EQ(TextOf(dialog, kDate), W(""));
    EXPECT_EQ(TextOf(dialog, kCount), W(""));
  });
}

TEST_F(UndoManagerDlgWindow, AClickOnAnyColumnShowsTheSession) {
  const MultiRenameUndo* const session = Keep(5, 2);
  Keep(17);
  for (const int column : {0, 1, 2}) {
    Show([=](HWND dialog) {
      ClickCell(dialog, kSessions, 1, column);
      EXPECT_THAT(SelectedTableRows(dialog, kSessions), ElementsAre(1));
      EXPECT_THAT(TableRowsOf(dialog, kFiles),
                  ElementsAre(ElementsAre(W("old5-0"), W("new5-0"), W("C:\\f5-0")),
                              ElementsAre(W("old5-1"), W("new5-1"), W("C:\\f5-1"))));
      EXPECT_EQ(TextOf(dialog, kDate), DateText(*session));
      EXPECT_EQ(TextOf(dialog, kCount), W("T01FF0064 : 2"));
    });
    EXPECT_EQ(form_->Chosen(), session);
  }
}

TEST_F(UndoManagerDlgWindow, KeysMoveTheSelectionAndShowNoSession) {
  Keep(5, 2);
  MultiRenameUndo* const newest = Keep(17);
  Show([](HWND dialog) {
    ClickCell(dialog, kSessions, 0);
    PressKey(dialog, VK_DOWN);
    EXPECT_THAT(SelectedTableRows(dialog, kSessions), ElementsAre(1));
    EXPECT_THAT(Column(dialog, kFiles, 0), ElementsAre(W("old17-0")));
  });
  EXPECT_EQ(form_->Chosen(), newest);
}

TEST_F(UndoManagerDlgWindow, ADoubleClickIsSwallowed) {
  Keep(5);
  EXPECT_EQ(Show([](HWND dialog) {
              DoubleClickCell(dialog, kSessions, 0);
              EXPECT_THAT(TableRowsOf(dialog, kFiles), IsEmpty());
            }),
            kLeftOpen);
  EXPECT_EQ(form_->Chosen(), nullptr);
}

TEST_F(UndoManagerDlgWindow, AClickBelowTheRowsAndOnAFileChoosesNoSession) {
  Keep(5);
  MultiRenameUndo* const newest = Keep(17, 2);
  Show([](HWND dialog) {
    ClickBelowRows(dialog, kSessions);
    EXPECT_THAT(TableRowsOf(dialog, kFiles), IsEmpty());
    ClickCell(dialog, kSessions, 0);
    ClickCell(dialog, kFiles, 1);
    ClickBelowRows(dialog, kSessions);
    EXPECT_THAT(Column(dialog, kFiles, 0), ElementsAre(W("old17-0"), W("old17-1")));
  });
  EXPECT_EQ(form_->Chosen(), newest);
}

TEST_F(UndoManagerDlgWindow, TheSessionOfTheWindowIsSelectedAndShown) {
  Keep(17);
  MultiRenameUndo* const loaded = Keep(9, 2);
  Keep(5);
  Show({[](HWND dialog) {
         EXPECT_THAT(SelectedTableRows(dialog, kSessions), ElementsAre(1));
         EXPECT_EQ(FocusedTableRow(dialog, kSessions), 1);
         EXPECT_THAT(Column(dialog, kFiles, 1), ElementsAre(W("new9-0"), W("new9-1")));
       }},
       loaded);
  EXPECT_EQ(form_->Chosen(), loaded);
}

TEST_F(UndoManagerDlgWindow, TextsAreShownAsTheyAre) {
  MultiRenameUndo* const session = Keep(5);
  session->entries[0] = {W("C:\\a&b"), W("100%d & %s.txt"), W("a\tb")};
  Show([](HWND dialog) {
    ClickCell(dialog, kSessions, 0);
    EXPECT_THAT(TableRowsOf(dialog, kFiles),
                ElementsAre(ElementsAre(W("a\tb"), W("100%d & %s.txt"), W("C:\\a&b"))));
  });
}

// Deleting.

TEST_F(UndoManagerDlgWindow, DeleteAsksAndTakesTheMarkedSessionAndItsFile) {
  Keep(5);
  Keep(9);
  Keep(17);
  Show({[this](HWND dialog) {
          ClickCell(dialog, kSessions, 1);
          ClickButton(dialog, kDelete);
          EXPECT_EQ(TableRowsOf(dialog, kSessions).size(), 2u);
          EXPECT_THAT(SelectedTableRows(dialog, kSessions), IsEmpty());
          EXPECT_THAT(TableRowsOf(dialog, kFiles), IsEmpty());
          EXPECT_EQ(TextOf(dialog, kDate), W(""));
          EXPECT_EQ(UndoFiles().size(), 2u);
          ClickCell(dialog, kSessions, 1);
          EXPECT_THAT(Column(dialog, kFiles, 0), ElementsAre(W("old5-0")));
        },
        [](HWND box) {
          EXPECT_EQ(TextOf(box, kTitle), W("T020D0064"));
          for (const int button : {IDYES, IDNO, IDCANCEL})
            EXPECT_NE(GetDlgItem(box, button), nullptr) << button;
          ClickButton(box, IDYES);
        }});
}

TEST_F(UndoManagerDlgWindow, DeleteTakesTheRowThatAKeyHasSelected) {
  Keep(5);
  MultiRenameUndo* const newest = Keep(17);
  Show({[](HWND dialog) {
          ClickCell(dialog, kSessions, 0);
          PressKey(dialog, VK_DOWN);
          ClickButton(dialog, kDelete);
          EXPECT_EQ(TableRowsOf(dialog, kSessions).size(), 1u);
        },
        PressInBox(IDYES)});
  ASSERT_EQ(store_->sessions.size(), 1u);
  EXPECT_EQ(store_->sessions[0].get(), newest);
}

TEST_F(UndoManagerDlgWindow, NoAndCancelDeleteNothing) {
  for (const int button : {IDNO, IDCANCEL}) {
    Keep(5);
    Show({[](HWND dialog) {
            ClickCell(dialog, kSessions, 0);
            ClickButton(dialog, kDelete);
            ClickButton(dialog, kDeleteAll);
            EXPECT_THAT(Column(dialog, kFiles, 0), ElementsAre(W("old5-0")));
          },
          PressInBox(button), PressInBox(button)});
    EXPECT_EQ(UndoFiles().size(), 1u);
    store_->sessions.clear();
  }
}

TEST_F(UndoManagerDlgWindow, DeleteWithoutAMarkedSessionOnlyFillsTheLists) {
  Keep(5);
  Show([this](HWND dialog) {
    ClickButton(dialog, kDelete);
    Keep(9);
    ClickButton(dialog, kDelete);
    EXPECT_EQ(TableRowsOf(dialog, kSessions).size(), 2u);
  });
}

TEST_F(UndoManagerDlgWindow, AFailedDeleteIsReported) {
  MultiRenameUndo* const session = Keep(5);
  session->fileName = W("no such file.dat");
  Show({[](HWND dialog) {
          ClickCell(dialog, kSessions, 0);
          ClickButton(dialog, kDelete);
          EXPECT_EQ(TableRowsOf(dialog, kSessions).size(), 1u);
        },
        PressInBox(IDYES),
        [](HWND box) {
          EXPECT_EQ(TextOf(box, kTitle), W("T020D0064"));
          PressKey(box, VK_ESCAPE);
        }});
  EXPECT_EQ(store_->sessions.size(), 1u);
}

TEST_F(UndoManagerDlgWindow, DeleteAllAsksAndEmptiesTheLists) {
  Keep(5);
  Keep(9, 3);
  Show({[this](HWND dialog) {
          ClickCell(dialog, kSessions, 0);
          ClickButton(dialog, kDeleteAll);
          EXPECT_THAT(TableRowsOf(dialog, kSessions), IsEmpty());
          EXPECT_THAT(TableRowsOf(dialog, kFiles), IsEmpty());
          EXPECT_EQ(TextOf(dialog, kCount), W(""));
          EXPECT_THAT(UndoFiles(), IsEmpty());
        },
        [](HWND box) {
          EXPECT_EQ(TextOf(box, kTitle), W("T020F0064"));
          ClickButton(box, IDYES);
        }});
  EXPECT_EQ(form_->Chosen(), nullptr);
}

// Closing the dialog.

TEST_F(UndoManagerDlgWindow, LoadEndsWithTheChosenSession) {
  MultiRenameUndo* const session = Keep(5);
  Keep(9);
  EXPECT_EQ(Show([](HWND dialog) {
              ClickCell(dialog, kSessions, 1);
              ClickButton(dialog, IDOK);
            }),
            1);
  EXPECT_EQ(form_->Chosen(), session);
  EXPECT_EQ(Show([](HWND dialog) {
              ClickCell(dialog, kSessions, 1);
              PressKey(dialog, VK_RETURN);
            }),
            1);
  EXPECT_EQ(form_->Chosen(), session);
}

TEST_F(UndoManagerDlgWindow, LoadWithoutAClickEndsWithNoSession) {
  Keep(5);
  EXPECT_EQ(Show([](HWND dialog) {
              Focus(dialog, kSessions);
              PressKey(dialog, VK_DOWN);
              ClickButton(dialog, IDOK);
            }),
            1);
  EXPECT_EQ(form_->Chosen(), nullptr);
}

TEST_F(UndoManagerDlgWindow, CloseEscapeAndTheCloseButtonEndWithTwo) {
  EXPECT_EQ(Show([](HWND dialog) { ClickButton(dialog, IDCANCEL); }), 2);
  EXPECT_EQ(Show([](HWND dialog) { PressKey(dialog, VK_ESCAPE); }), 2);
  EXPECT_EQ(Show([](HWND dialog) { PressCloseButton(dialog); }), 2);
}

// Keys.

TEST_F(UndoManagerDlgWindow, TabWalksAsOneReads) {
  Keep(5);
  Show([](HWND dialog) {
    EXPECT_THAT(WalkByTab(dialog),
                ElementsAre(kSessions, kDelete, kDeleteAll, kDate, kFiles, IDOK, IDCANCEL));
  });
}

TEST_F(UndoManagerDlgWindow, EnglishAccessKeysLeadToTheListsAndPressTheButtons) {
  SpeakRenameEnglish(host_);
  Keep(5);
  EXPECT_EQ(
      Show({[](HWND dialog) {
              const std::pair<WCHAR, int> keys[] = {{W('f'), kFiles}, {W('n'), kDate}, {W('r'), kSessions}};
              for (const auto& [key, control] : keys) {
                PressAltKey(dialog, key);
                EXPECT_EQ(FocusedControl(dialog), control) << static_cast<char>(key);
              }
              ClickCell(dialog, kSessions, 0);
              PressAltKey(dialog, W('d'));
              PressAltKey(dialog, W('a'));
              PressAltKey(dialog, W('l'));
            },
            [](HWND box) {
              EXPECT_EQ(TextOf(box, kTitle), W("Delete"));
              ClickButton(box, IDNO);
            },
            [](HWND box) {
              EXPECT_EQ(TextOf(box, kTitle), W("Delete All"));
              ClickButton(box, IDNO);
            }}),
      1);
  EXPECT_EQ(Show([](HWND dialog) { PressAltKey(dialog, W('c')); }), 2);
}

// Position and layout.

TEST_F(UndoManagerDlgWindow, IsCenteredOnTheFrameAndDisablesIt) {
  Show([this](HWND dialog) {
    ExpectOwnedBy(dialog, owner_.Get());
    ExpectCenteredOver(dialog, owner_.Get());
  });
  EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
}

// Checks that the list has space for its columns and a scroll bar.
void ExpectColumnsFit(HWND dialog, int list) {
  int width = 0;
  for (const auto& [heading, columnWidth] : ColumnsOf(dialog, list)) width += columnWidth;
  const RECT area = AreaOf(dialog, list);
  EXPECT_LE(width + GetSystemMetrics(SM_CXVSCROLL) + 2 * GetSystemMetrics(SM_CXEDGE), area.right - area.left)
      << list;
}

TEST_F(UndoManagerDlgWindow, EnglishTextsFitAndControlsDoNotOverlap) {
  SpeakRenameEnglish(host_);
  for (const int day : {2, 5, 9, 11, 17, 20, 24}) Keep(static_cast<WORD>(day), day, day % 3 == 2);
  MultiRenameUndo* const shown = Keep(27);
  shown->entries.clear();
  for (const WCHAR* name : {W("beach"), W("boat"), W("dinner"), W("harbour"), W("museum"), W("sunset")}) {
    shown->entries.push_back({W("C:\\Pictures\\Holiday 2026\\"), WString(W("2026-03-27_")) + name + W(".jpg"),
                              WString(W("IMG_")) + name + W(".JPG")});
  }
  Show([](HWND dialog) {
    ClickCell(dialog, kSessions, 0);
    ExpectLayoutHolds(dialog);
    ExpectEachLabelHasAnAccessKey(dialog, {});
    ExpectColumnsFit(dialog, kSessions);
    ExpectColumnsFit(dialog, kFiles);
    EXPECT_TRUE(SaveScreenshot(dialog, W("undo_manager_dialog")));
  });
}

TEST_F(UndoManagerDlgWindow, TextsOfTwiceTheLengthAndLongSentencesFitToo) {
  SpeakRenameAtLength(host_);
  Keep(5, 12, true);
  Show([](HWND dialog) {
    ClickCell(dialog, kSessions, 0);
    ExpectNoTextCutOff(dialog);
    EXPECT_TRUE(SaveScreenshot(dialog, W("undo_manager_dialog_long_texts")));
  });
}

TEST_F(UndoManagerDlgWindow, OnAMonitorOfAnotherScaleTheColumnsGrowAsTheUserHasLeftThem) {
  Show([](HWND dialog) {
    SendDlgItemMessageW(dialog, kFiles, LVM_SETCOLUMNWIDTH, 1, 120);
    RECT place = {};
    GetWindowRect(dialog, &place);
    const auto widths = [&](int scale) {
      SendMessageW(dialog, WM_DPICHANGED, MAKEWPARAM(scale, scale), reinterpret_cast<LPARAM>(&place));
      std::vector<int> pixels;
      for (const int list : {kSessions, kFiles})
        for (const auto& [heading, width] : ColumnsOf(dialog, list)) pixels.push_back(width);
      return pixels;
    };
    EXPECT_THAT(widths(144), ElementsAre(225, 150, 300, 375, 180, 300));
    EXPECT_THAT(widths(192), ElementsAre(300, 200, 400, 500, 240, 400));
    EXPECT_THAT(widths(96), ElementsAre(150, 100, 200, 250, 120, 200));
  });
}

TEST_F(UndoManagerDlgWindow, ControlsShareTheEdgesAndMarginsAreEven) {
  Show([](HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    RECT margin = {7, 7, 7, 7};
    RECT gap = {0, 0, 3, 3};
    MapDialogRect(dialog, &margin);
    MapDialogRect(dialog, &gap);
    for (const int left : {kSessionsLabel, kSessions, kDateLabel, kFilesLabel, kFiles})
      EXPECT_EQ(AreaOf(dialog, left).left, margin.left) << left;
    for (const int right : std::initializer_list<int>{kDelete, kDeleteAll, kFiles, IDCANCEL})
      EXPECT_NEAR(client.right - AreaOf(dialog, right).right, margin.left, 1) << right;
    const LONG between = AreaOf(dialog, kDate).left - AreaOf(dialog, kDateLabel).right;
    EXPECT_TRUE(between > 0 && between <= gap.right);
    EXPECT_EQ(AreaOf(dialog, kDelete).top, AreaOf(dialog, kSessions).top);
    EXPECT_EQ(AreaOf(dialog, kDelete).left, AreaOf(dialog, kDeleteAll).left);
    EXPECT_EQ(AreaOf(dialog, IDOK).top, AreaOf(dialog, IDCANCEL).top);
    EXPECT_NEAR(client.bottom - AreaOf(dialog, IDCANCEL).bottom, margin.top, 1);
  });
}

TEST(UndoManagerDlgTemplate, ControlsDoNotOverlapAtEachScale) {
  for (const int percent : {100, 150, 200}) {
    const DialogInScale dialog(kDialog, percent);
    ASSERT_NE(dialog.Get(), nullptr);
    ExpectControlsInsideClientArea(dialog.Get());
    ExpectNoControlsOverlap(dialog.Get());
    ExpectNoTextCutOff(dialog.Get());
    // The columns grow with the scale.
    const RECT files = AreaOf(dialog.Get(), kFiles);
    EXPECT_GE(files.right - files.left, 700 * percent / 100 + GetSystemMetrics(SM_CXVSCROLL)) << percent;
    const RECT sessions = AreaOf(dialog.Get(), kSessions);
    EXPECT_GE(sessions.right - sessions.left, 450 * percent / 100 + GetSystemMetrics(SM_CXVSCROLL))
        << percent;
  }
}

}  // namespace
