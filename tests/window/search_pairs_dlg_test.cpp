// The window of the dialog of search pairs, whose field accepts dropped files and function keys.
#include <gmock/gmock.h>

#include <cstring>

#include "multirename/form/find_replace_dialog_form.h"
#include "ui/module_instance.h"
#include "window/dialog_template.h"
#include "window/layout_checks.h"
#include "window/rename_dialog_window.h"
#include "window/screenshot.h"

// windows.h must be included first.
#include <shellapi.h>
#include <shlobj.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using Velmora::SDK::FindReplaceDialogForm;
using Velmora::SDK::SearchAndReplaceItems;

// The resource ids of the dialog and its controls.
constexpr int kDialog = 112;
enum Control : int { kLabel = 1109, kField = 1110, kHelp = 1111 };
// The rule panel's "..." button.
constexpr int kPairButton = 1117;

class SearchPairsDlgWindow : public RenameDialogWindow {
 protected:
  SearchPairsDlgWindow() { host_.configFolder = W("C:\\config\\"); }

  INT_PTR Show(SearchAndReplaceItems pairs, const Steps& steps) {
    form_.emplace(host_, std::move(pairs));
    return ShowDialog(kDialog, *form_, {steps});
  }
  INT_PTR Show(const Steps& steps) { return Show({}, steps); }

  // Adds a list with this number to the file.
  void Keep(int number, const WString& find, const WString& replace) {
    if (!root_) root_ = &host_.files.Make(W("C:\\config\\FindReplace.xml"));
    root_->Add(W("FindReplace"))
        .With(W("id"), FromUtf8(std::to_string(number)))
        .Add(W("item"))
        .With(W("find"), find)
        .With(W("replace"), replace);
  }

  std::vector<std::string> TakeNotes() {
    std::vector<std::string> notes = host_.recorder.CallsOf({"ShowTimedNote"});
    host_.recorder.ClearCalls();
    return notes;
  }

  MemoryXmlNode* root_ = nullptr;
  std::optional<FindReplaceDialogForm> form_;
};

// Holds Shift down for the windows of this thread during its lifetime.
class ShiftHeld {
 public:
  ShiftHeld() {
    GetKeyboardState(before_);
    BYTE held[256] = {};
    std::memcpy(held, before_, sizeof(held));
    held[VK_SHIFT] = 0x80;
    SetKeyboardState(held);
  }
  ShiftHeld(const ShiftHeld&) = delete;
  ShiftHeld& operator=(const ShiftHeld&) = delete;
  ~ShiftHeld() { SetKeyboardState(before_); }

 private:
  BYTE before_[256] = {};
};

// The system reports F10 without other keys as a key of the menu.
void PressFunctionKey(HWND dialog, int number) {
  const auto key = static_cast<WPARAM>(VK_F1 + number - 1);
  const bool isMenuKey = number == 10;
  PostMessageW(GetFocus(), isMenuKey ? WM_SYSKEYDOWN : WM_KEYDOWN, key, 1);
  PostMessageW(GetFocus(), isMenuKey ? WM_SYSKEYUP : WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  Pump(dialog);
}

// Makes the record that the shell posts when files are dropped: their paths and the position, in client
// coordinates or, for the non-client area (`isOutside`), in screen coordinates.
HDROP MakeDrop(const std::vector<WString>& paths, POINT place, bool isOutside = false) {
  WString list;
  for (const WString& path : paths) (list += path) += WCHAR();
  list += WCHAR();
  const std::size_t bytes = list.size() * sizeof(WCHAR);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DROPFILES) + bytes);
  auto* const record = static_cast<DROPFILES*>(GlobalLock(memory));
  record->pFiles = sizeof(DROPFILES);
  record->pt = place;
  record->fNC = isOutside;
  record->fWide = TRUE;
  std::memcpy(record + 1, list.data(), bytes);
  GlobalUnlock(memory);
  return static_cast<HDROP>(memory);
}

void Drop(HWND dialog, HDROP drop) {
  PostMessageW(GetDlgItem(dialog, kField), WM_DROPFILES, reinterpret_cast<WPARAM>(drop), 0);
  Pump(dialog);
}

// Contents.

TEST_F(SearchPairsDlgWindow, EveryTextComesFromTheHostByItsId) {
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kTitle), W("T000A0063"));
    EXPECT_EQ(TextOf(dialog, kLabel), W("T01A40064"));
    EXPECT_EQ(TextOf(dialog, kHelp), W("T01A50064\r\nT01A60064\r\nT01A80064\r\nT01A90064"));
    EXPECT_EQ(TextOf(dialog, IDOK), W("M0:00080067"));
    EXPECT_EQ(TextOf(dialog, IDCANCEL), W("M0:00030067"));
  });
}

TEST_F(SearchPairsDlgWindow, ShowsThePairsAndNoKeyDeletesThemAll) {
  Show({{W("a"), W("b")}, {W("\" c\""), W("")}}, [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kField), W("a|b\r\n\" c\"|"));
    EXPECT_EQ(FocusedControl(dialog), kField);
    DWORD from = 1;
    DWORD to = 2;
    SendDlgItemMessageW(dialog, kField, EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                        reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, to);
  });
}

// Editing.

TEST_F(SearchPairsDlgWindow, EnterMakesALineAndOkTakesTheLinesAsPairs) {
  EXPECT_EQ(Show([](HWND dialog) {
              TypeText(dialog, W("a|b|c"));
              PressKey(dialog, VK_RETURN);
              TypeText(dialog, W("|nothing"));
              PressKey(dialog, VK_RETURN);
              TypeText(dialog, W("\" d \"| e"));
              EXPECT_EQ(TextOf(dialog, kField), W("a|b|c\r\n|nothing\r\n\" d \"| e"));
              ClickButton(dialog, IDOK);
            }),
            1);
  EXPECT_THAT(form_->Pairs(), ElementsAre(Pair(W("a"), W("b|c")), Pair(W(" d "), W(" e"))));
}

TEST_F(SearchPairsDlgWindow, CancelEscapeAndTheCloseButtonChangeNothing) {
  const Steps ends[] = {
      [](HWND dialog) { ClickButton(dialog, IDCANCEL); },
      [](HWND dialog) { PressKey(dialog, VK_ESCAPE); },
      [](HWND dialog) { PressCloseButton(dialog); },
  };
  for (const Steps& end : ends) {
    EXPECT_EQ(Show({{W("a"), W("b")}},
                   [&](HWND dialog) {
                     TypeText(dialog, W("x"));
                     end(dialog);
                   }),
              2);
    EXPECT_THAT(form_->Pairs(), ElementsAre(Pair(W("a"), W("b"))));
  }
}

TEST_F(SearchPairsDlgWindow, OrdinaryKeysStayTheFields) {
  Show({{W("abc"), W("")}}, [](HWND dialog) {
    PressKey(dialog, VK_END);
    TypeText(dialog, W("d"));
    PressKey(dialog, VK_HOME);
    PressKey(dialog, VK_DELETE);
    EXPECT_EQ(TextOf(dialog, kField), W("bc|d"));
    SendDlgItemMessageW(dialog, kField, EM_UNDO, 0, 0);
    EXPECT_EQ(TextOf(dialog, kField), W("abc|d"));
  });
}

// Function keys.

TEST_F(SearchPairsDlgWindow, F1ToF24LoadTheirListsWithANotice) {
  for (int number = 1; number <= 24; ++number) Keep(number, FromUtf8("f" + std::to_string(number)), W("r"));
  Show([this](HWND dialog) {
    host_.recorder.ClearCalls();
    for (int number = 1; number <= 24; ++number) {
      const std::string shown = std::to_string(number);
      PressFunctionKey(dialog, number);
      EXPECT_EQ(TextOf(dialog, kField), FromUtf8("f" + shown + "|r"));
      EXPECT_THAT(TakeNotes(), ElementsAre("ShowTimedNote(\"T01AF0064" + shown + "\", 1500, 2)"));
      EXPECT_EQ(FocusedControl(dialog), kField);
    }
    EXPECT_EQ(host_.noteWindows.back(), dialog);
  });
  EXPECT_TRUE(host_.files.saved.empty());
}

TEST_F(SearchPairsDlgWindow, ShiftWithF1ToF24SavesTheLinesAsLists) {
  Show([this](HWND dialog) {
    host_.recorder.ClearCalls();
    const ShiftHeld shift;
    for (int number = 1; number <= 24; ++number) {
      const std::string shown = std::to_string(number);
      SendText(dialog, kField, FromUtf8("a" + shown + "|b"));
      PressFunctionKey(dialog, number);
      EXPECT_THAT(TakeNotes(), ElementsAre("ShowTimedNote(\"T01B00064" + shown + "\", 1500, 2)"));
      EXPECT_EQ(TextOf(dialog, kField), FromUtf8("a" + shown + "|b"));
    }
  });
  std::string saved = "<MultiRename>";
  for (int number = 1; number <= 24; ++number) {
    const std::string shown = std::to_string(number);
    saved += "<FindReplace id='" + shown + "'><item find='a" + shown + "' replace='b'/></FindReplace>";
  }
  EXPECT_EQ(host_.files.saved[W("C:\\config\\FindReplace.xml")], saved + "</MultiRename>");
}

TEST_F(SearchPairsDlgWindow, AKeyWithoutAListLeavesTheField) {
  Keep(3, W("x"), W("y"));
  Show({{W("a"), W("b")}}, [this](HWND dialog) {
    host_.recorder.ClearCalls();
    PressFunctionKey(dialog, 4);
    EXPECT_EQ(TextOf(dialog, kField), W("a|b"));
    EXPECT_THAT(TakeNotes(), IsEmpty());
  });
}

TEST_F(SearchPairsDlgWindow, WithAltAFunctionKeyIsTheSystems) {
  Keep(4, W("x"), W("y"));
  EXPECT_EQ(Show({{W("a"), W("b")}},
                 [this](HWND dialog) {
                   host_.recorder.ClearCalls();
                   constexpr LPARAM kAltIsDown = 1 << 29;
                   PostMessageW(GetFocus(), WM_SYSKEYDOWN, VK_F4, 1 | kAltIsDown);
                   Pump(dialog);
                   EXPECT_THAT(TakeNotes(), IsEmpty());
                 }),
            2);
}

TEST_F(SearchPairsDlgWindow, AFunctionKeyElsewhereLoadsNothing) {
  Keep(3, W("x"), W("y"));
  Show([this](HWND dialog) {
    host_.recorder.ClearCalls();
    Focus(dialog, IDOK);
    PressFunctionKey(dialog, 3);
    EXPECT_EQ(TextOf(dialog, kField), W(""));
    EXPECT_THAT(TakeNotes(), IsEmpty());
  });
}

// Dropped files.

TEST_F(SearchPairsDlgWindow, TheFieldAloneTakesFiles) {
  Show([](HWND dialog) {
    EXPECT_TRUE(GetWindowLongW(GetDlgItem(dialog, kField), GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
    EXPECT_FALSE(GetWindowLongW(dialog, GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
  });
}

TEST_F(SearchPairsDlgWindow, TheFirstFileOfADropReplacesTheLines) {
  host_.fileText = W("m|n\r\no");
  Show({{W("a"), W("b")}}, [](HWND dialog) {
    const HDROP drop = MakeDrop({W("C:\\lists\\first.txt"), W("C:\\lists\\second.txt")}, {0, 0});
    Drop(dialog, drop);
    EXPECT_EQ(TextOf(dialog, kField), W("m|n\r\no"));
    EXPECT_EQ(GlobalSize(drop), 0u) << "the record of the drop was not released";
  });
  EXPECT_THAT(host_.readFiles, ElementsAre(Pair(W("C:\\lists\\first.txt"), 8192u)));
}

TEST_F(SearchPairsDlgWindow, ADropOutsideTheClientRectangleIsLeftToOthers) {
  host_.fileText = W("m|n");
  Show({{W("a"), W("b")}}, [this](HWND dialog) {
    RECT client = {};
    GetClientRect(GetDlgItem(dialog, kField), &client);
    const auto drop = [&](POINT place, bool isOutside = false) {
      const HDROP record = MakeDrop({W("C:\\a.txt")}, place, isOutside);
      Drop(dialog, record);
      EXPECT_NE(GlobalSize(record), 0u) << "the record was another's to release";
      GlobalFree(record);
    };
    drop({client.right, 5});
    drop({5, client.bottom});
    drop({-1, 5});
    drop({5, -1});
    // In the non-client area, such as the scroll bar.
    drop({5, 5}, true);
    EXPECT_EQ(TextOf(dialog, kField), W("a|b"));
    EXPECT_THAT(host_.readFiles, IsEmpty());
    Drop(dialog, MakeDrop({W("C:\\a.txt")}, {client.right - 1, client.bottom - 1}));
    EXPECT_EQ(TextOf(dialog, kField), W("m|n"));
  });
}

TEST_F(SearchPairsDlgWindow, PathsAreCutAtTwoHundredAndSixtyCharacters) {
  host_.fileText = W("m|n");
  const WString path = W("C:\\") + WString(300, W('p'));
  Show([&](HWND dialog) {
    Drop(dialog, MakeDrop({path}, {0, 0}));
    Drop(dialog, MakeDrop({path.substr(0, 260)}, {0, 0}));
    Drop(dialog, MakeDrop({path.substr(0, 259)}, {0, 0}));
  });
  EXPECT_THAT(host_.readFiles, ElementsAre(Pair(path.substr(0, 260), 8192u), Pair(path.substr(0, 260), 8192u),
                                           Pair(path.substr(0, 259), 8192u)));
}

TEST_F(SearchPairsDlgWindow, ADropWithoutAFileAndAFileThatCannotBeReadChangeNothing) {
  Show({{W("a"), W("b")}}, [this](HWND dialog) {
    Drop(dialog, MakeDrop({}, {0, 0}));
    EXPECT_THAT(host_.readFiles, IsEmpty());
    Drop(dialog, MakeDrop({W("C:\\gone.txt")}, {0, 0}));
    EXPECT_THAT(host_.readFiles, ElementsAre(Pair(W("C:\\gone.txt"), 8192u)));
    EXPECT_EQ(TextOf(dialog, kField), W("a|b"));
  });
}

// Keys.

TEST_F(SearchPairsDlgWindow, TabWalksFromTheFieldToTheButtons) {
  Show([](HWND dialog) { EXPECT_THAT(WalkByTab(dialog), ElementsAre(kField, IDOK, IDCANCEL)); });
}

TEST_F(SearchPairsDlgWindow, EnglishAccessKeysLeadToTheFieldAndPressTheButtons) {
  SpeakRenameEnglish(host_);
  EXPECT_EQ(Show([](HWND dialog) {
              Focus(dialog, IDCANCEL);
              PressAltKey(dialog, W('t'));
              EXPECT_EQ(FocusedControl(dialog), kField);
              PressAltKey(dialog, W('o'));
            }),
            1);
  EXPECT_EQ(Show([](HWND dialog) { PressAltKey(dialog, W('c')); }), 2);
}

// Position and layout.

// Creates a child window at this position of its parent's client area.
HWND MakeChild(HWND parent, int number, RECT area) {
  return CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, area.left, area.top,
                         area.right - area.left, area.bottom - area.top, parent,
                         reinterpret_cast<HMENU>(static_cast<INT_PTR>(number)), Ui::ModuleInstance(),
                         nullptr);
}

POINT EndOfClientArea(HWND window) {
  RECT client = {};
  GetClientRect(window, &client);
  POINT end = {client.right, client.bottom};
  ClientToScreen(window, &end);
  return end;
}

TEST_F(SearchPairsDlgWindow, EndsAtThePanelsRightEdgeAtTheTopOfItsButton) {
  SetWindowPos(owner_.Get(), nullptr, 40, 60, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  const HWND panel = MakeChild(owner_.Get(), 1, {10, 150, 820, 380});
  const HWND button = MakeChild(panel, kPairButton, {500, 20, 530, 40});
  const Steps steps = [=](HWND dialog) {
    RECT own = {};
    RECT panelArea = {};
    RECT buttonArea = {};
    GetWindowRect(dialog, &own);
    GetWindowRect(panel, &panelArea);
    GetWindowRect(button, &buttonArea);
    EXPECT_EQ(EndOfClientArea(dialog).x, panelArea.right - 4);
    EXPECT_EQ(own.top, buttonArea.top);
  };
  Show(steps);
  // The result is the same if the panel is passed as the owner.
  form_.emplace(host_, SearchAndReplaceItems());
  RunModal([&] { return Velmora::SDK::RunRenameDialog(kDialog, *form_, panel); },
           [&](HWND dialog) {
             ExpectOwnedBy(dialog, owner_.Get());
             steps(dialog);
           });
}

TEST_F(SearchPairsDlgWindow, AtTheEdgeOfTheScreenItStaysVisible) {
  RECT work = {};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  SetWindowPos(owner_.Get(), nullptr, work.right - 500, work.bottom - 300, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  const HWND panel = MakeChild(owner_.Get(), 1, {10, 150, 820, 380});
  MakeChild(panel, kPairButton, {500, 20, 530, 40});
  Show([&](HWND dialog) {
    RECT own = {};
    GetWindowRect(dialog, &own);
    EXPECT_EQ(own.right, work.right);
    EXPECT_EQ(own.bottom, work.bottom);
  });
}

TEST_F(SearchPairsDlgWindow, WithoutThePanelItIsCenteredOnTheFrame) {
  Show([this](HWND dialog) {
    ExpectOwnedBy(dialog, owner_.Get());
    ExpectCenteredOver(dialog, owner_.Get());
  });
}

TEST_F(SearchPairsDlgWindow, EnglishTextsFitAndControlsDoNotOverlap) {
  SpeakRenameEnglish(host_);
  Show({{W("IMG_"), W("holiday ")}, {W("\" copy\""), W("")}, {W("colour"), W("color")}}, [](HWND dialog) {
    ExpectLayoutHolds(dialog);
    ExpectEachLabelHasAnAccessKey(dialog, {});
    EXPECT_TRUE(SaveScreenshot(dialog, W("search_pairs_dialog")));
  });
}

TEST_F(SearchPairsDlgWindow, TextsOfTwiceTheLengthAndLongSentencesFitToo) {
  SpeakRenameAtLength(host_);
  Show([](HWND dialog) {
    ExpectNoTextCutOff(dialog);
    EXPECT_TRUE(SaveScreenshot(dialog, W("search_pairs_dialog_long_texts")));
  });
}

TEST_F(SearchPairsDlgWindow, ControlsShareTheEdgesAndMarginsAreEven) {
  Show([](HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    RECT margin = {7, 7, 7, 7};
    MapDialogRect(dialog, &margin);
    for (const int control : {kLabel, kField, kHelp}) {
      EXPECT_EQ(AreaOf(dialog, control).left, margin.left) << control;
      EXPECT_EQ(AreaOf(dialog, control).right, AreaOf(dialog, IDCANCEL).right) << control;
    }
    EXPECT_EQ(AreaOf(dialog, IDOK).top, AreaOf(dialog, IDCANCEL).top);
    EXPECT_NEAR(client.right - AreaOf(dialog, IDCANCEL).right, margin.left, 1);
    EXPECT_NEAR(client.bottom - AreaOf(dialog, IDCANCEL).bottom, margin.top, 1);
  });
}

TEST(SearchPairsDlgTemplate, ControlsDoNotOverlapAtEachScale) {
  for (const int percent : {100, 150, 200}) {
    const DialogInScale dialog(kDialog, percent);
    ASSERT_NE(dialog.Get(), nullptr);
    EXPECT_EQ(TextOf(dialog.Get(), kTitle), W("Find / Replace"));
    ExpectControlsInsideClientArea(dialog.Get());
    ExpectNoControlsOverlap(dialog.Get());
    ExpectNoTextCutOff(dialog.Get());
  }
}

}  // namespace
