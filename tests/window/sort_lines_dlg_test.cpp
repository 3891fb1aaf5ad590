// The window of the Sort Lines dialog, as its user meets it.
#include "linesorter/sort_lines_dlg.h"

#include <commctrl.h>
#include <gmock/gmock.h>

#include "support/fake_host.h"
#include "ui/controls.h"
#include "window/english_texts.h"
#include "window/layout_checks.h"
#include "window/modal_driver.h"
#include "window/screenshot.h"

namespace {

using namespace WQLineSorter;
using testing::ElementsAre;

// The numbers that the dialog's controls are known by.
enum Control : int {
  kHeading = 1001,
  kCount,
  kSaveAsLabel,
  kSaveAs,
  kNameLabel,
  kName,
  kTopLabel,
  kTop,
  kTopHint,
  kBottomLabel,
  kBottom,
  kBottomHint,
  kPositionLabel,
  kPosition,
  kSkipSpace,
  kByGroup,
  kByLine,
  kBySubstring,
  kByItem,
  kLengthLabel,
  kLength,
  kEndCharacterLabel,
  kEndCharacter,
  kEndAtSpace,
  kSeparatorLabel,
  kSeparator,
  kItemLabel,
  kItem,
  kMethodGroup,
  kMethod,
  kDateFormat,
  kDatePresets,
  kLanguageAware,
  kIgnoreCase,
  kNatural,
  kReverse,
  kDuplicates,
  kBlank,
  kRuler,
  kSample,
};

// Rows of the two lists.
constexpr int kNewFileRow = 0;
constexpr int kKeepBackupRow = 1;
constexpr int kDeleteBackupRow = 2;
constexpr int kNumberRow = 1;
constexpr int kDateRow = 2;

WString TextOf(HWND dialog, int control) {
  return Ui::GetText(control ? GetDlgItem(dialog, control) : dialog);
}

bool IsEnabled(HWND dialog, int control) { return IsWindowEnabled(GetDlgItem(dialog, control)) != FALSE; }

bool IsChecked(HWND dialog, int control) {
  return IsDlgButtonChecked(dialog, control) == static_cast<UINT>(BST_CHECKED);
}

void Focus(HWND dialog, int control) {
  SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, control)), TRUE);
  Pump(dialog);
}

// Types a text in place of what stands in the field.
void Enter(HWND dialog, int control, const WString& text) {
  Focus(dialog, control);
  SendDlgItemMessageW(dialog, control, EM_SETSEL, 0, -1);
  if (text.empty()) return PressKey(dialog, VK_DELETE);
  TypeText(dialog, text);
}

std::vector<int> RowDataOf(HWND dialog, int control) {
  const HWND combo = GetDlgItem(dialog, control);
  std::vector<int> data;
  const LRESULT count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
  for (LRESULT row = 0; row < count; ++row) {
    data.push_back(static_cast<int>(SendMessageW(combo, CB_GETITEMDATA, static_cast<WPARAM>(row), 0)));
  }
  return data;
}

std::vector<WString> RowsOf(HWND dialog, int control) {
  const HWND combo = GetDlgItem(dialog, control);
  std::vector<WString> rows;
  const LRESULT count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
  for (LRESULT row = 0; row < count; ++row) {
    WCHAR text[512] = {};
    SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
    rows.emplace_back(text);
  }
  return rows;
}

WString CueOf(HWND dialog, int edit) {
  WCHAR text[512] = {};
  SendDlgItemMessageW(dialog, edit, EM_GETCUEBANNER, reinterpret_cast<WPARAM>(text), 512);
  return text;
}

std::vector<bool> SubstringState(HWND dialog) {
  return {IsEnabled(dialog, kLength), IsEnabled(dialog, kEndCharacter), IsEnabled(dialog, kEndAtSpace)};
}
std::vector<bool> ItemState(HWND dialog) { return {IsEnabled(dialog, kSeparator), IsEnabled(dialog, kItem)}; }

// Watches the menus that open on this thread: what the last one holds, and where it stands.
class OpenedMenu {
 public:
  OpenedMenu() : hook_(SetWindowsHookExW(WH_CALLWNDPROC, OnHook, nullptr, GetCurrentThreadId())) {
    current_ = this;
  }
  OpenedMenu(const OpenedMenu&) = delete;
  OpenedMenu& operator=(const OpenedMenu&) = delete;
  ~OpenedMenu() {
    UnhookWindowsHookEx(hook_);
    current_ = nullptr;
  }

  int opened = 0;
  std::vector<WString> texts;
  RECT area = {};

 private:
  void Read(HMENU menu) {
    ++opened;
    texts.clear();
    const int count = GetMenuItemCount(menu);
    for (int item = 0; item < count; ++item) {
      WCHAR text[256] = {};
      GetMenuStringW(menu, static_cast<UINT>(item), text, 256, MF_BYPOSITION);
      texts.emplace_back(text);
    }
  }

  static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && current_) {
      if (sent.message == WM_INITMENUPOPUP) current_->Read(reinterpret_cast<HMENU>(sent.wParam));
      WCHAR name[16] = {};
      GetClassNameW(sent.hwnd, name, 16);
      if (WStringView(name) == L"#32768" && IsWindowVisible(sent.hwnd)) {
        GetWindowRect(sent.hwnd, &current_->area);
      }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }

  static inline OpenedMenu* current_ = nullptr;
  HHOOK hook_;
};

// Presses the button of the date formats and these keys while the menu is open.
void PressKeysInDateMenu(HWND dialog, const std::vector<WORD>& keys) {
  const HWND button = GetDlgItem(dialog, kDatePresets);
  PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
  PostMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
  for (const WORD key : keys) {
    PostMessageW(dialog, WM_KEYDOWN, key, 1);
    PostMessageW(dialog, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  }
  Pump(dialog);
}

class SortLinesDlgWindow : public testing::Test {
 protected:
  SortLinesDlgWindow() { Start(0x100011); }

  // One file `a.txt` and these stored bits.
  void Start(std::uint32_t bits, const std::function<void(SortLinesOptions&)>& more = {}) {
    form_ = {};
    form_.fileCount = 1;
    form_.firstName = W("a.txt");
    form_.newFileSuffix = W("_s");
    form_.sample = W("one\r\ntwo");
    form_.options.options = bits;
    if (more) more(form_.options);
    StartForm(form_);
  }

  INT_PTR Show(const Steps& steps) {
    return RunModal([this] { return ShowSortLinesDlg(host_, form_); }, steps);
  }

  OwnerWindow owner_{800, 600};
  FakeHost host_;
  SortLinesForm form_;
};

// Texts and what stands in the fields.

TEST_F(SortLinesDlgWindow, EveryTextComesFromTheHostByItsId) {
  const std::pair<int, const WCHAR*> expected[] = {
      {0, W("T01900064")},
      {IDOK, W("T01910064")},
      {IDCANCEL, W("T01920064")},
      {kHeading, W("T01930064")},
      {kSaveAsLabel, W("T01950064")},
      {kNameLabel, W("T01960064")},
      {kTopLabel, W("T01970064")},
      {kTopHint, W("T01980064")},
      {kBottomLabel, W("T01990064")},
      {kBottomHint, W("T019A0064")},
      {kPositionLabel, W("T019B0064")},
      {kSkipSpace, W("T019C0064")},
      {kByGroup, W("T019D0064")},
      {kByLine, W("T019E0064")},
      {kBySubstring, W("T019F0064")},
      {kByItem, W("T01A00064")},
      {kLengthLabel, W("T01A10064")},
      {kEndCharacterLabel, W("T01A20064")},
      {kEndAtSpace, W("T01A30064")},
      {kSeparatorLabel, W("T01A40064")},
      {kItemLabel, W("T01A50064")},
      {kMethodGroup, W("T01A60064")},
      {kDatePresets, W("T01A70064")},
      {kLanguageAware, W("T01A80064")},
      {kIgnoreCase, W("T01A90064")},
      {kNatural, W("T01AA0064")},
      {kReverse, W("T01AB0064")},
      {kDuplicates, W("T01AC0064")},
      {kBlank, W("T01AD0064")},
  };
  Show([&](HWND dialog) {
    for (const auto& [control, text] : expected) EXPECT_EQ(TextOf(dialog, control), text) << control;
    EXPECT_THAT(RowsOf(dialog, kSaveAs), ElementsAre(W("T01AE0064"), W("T01AF0064"), W("T01B00064")));
    EXPECT_THAT(RowsOf(dialog, kMethod), ElementsAre(W("T01B10064"), W("T01B20064"), W("T01B30064")));
  });
}

TEST_F(SortLinesDlgWindow, TellsHowManyFilesThereAre) {
  host_.texts[0x01940064] = W("sorts %d of 100%%");
  form_.fileCount = 12;
  Show([](HWND dialog) { EXPECT_EQ(TextOf(dialog, kCount), W("sorts 12 of 100%")); });
}

TEST_F(SortLinesDlgWindow, WithoutTextsOfTheHostItIsStillThere) {
  host_.recorder.Refuse("GetLanguageString");
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, 0), W(""));
    EXPECT_EQ(TextOf(dialog, kCount), W(""));
    EXPECT_EQ(TextOf(dialog, kName), W("a_s.txt"));
    EXPECT_THAT(RowsOf(dialog, kMethod), ElementsAre(W(""), W(""), W("")));
  });
}

TEST_F(SortLinesDlgWindow, RowsOfTheListsHoldTheOptionsBits) {
  Show([](HWND dialog) {
    EXPECT_THAT(RowDataOf(dialog, kSaveAs), ElementsAre(0x1000000, 0x2000000, 0x4000000));
    EXPECT_THAT(RowDataOf(dialog, kMethod), ElementsAre(0x10, 0x100, 0x200));
  });
}

TEST_F(SortLinesDlgWindow, ShowsTheDefaultOptions) {
  Show([](HWND dialog) {
    EXPECT_EQ(Ui::SelectedData(GetDlgItem(dialog, kSaveAs)), 0x1000000);
    EXPECT_EQ(Ui::SelectedData(GetDlgItem(dialog, kMethod)), 0x10);
    EXPECT_EQ(TextOf(dialog, kName), W("a_s.txt"));
    EXPECT_EQ(TextOf(dialog, kTop), W("0"));
    EXPECT_EQ(TextOf(dialog, kBottom), W("0"));
    EXPECT_EQ(TextOf(dialog, kPosition), W("1"));
    EXPECT_EQ(TextOf(dialog, kItem), W("0"));
    for (const int empty : {kLength, kEndCharacter, kSeparator, kDateFormat}) {
      EXPECT_EQ(TextOf(dialog, empty), W("")) << empty;
    }
    EXPECT_TRUE(IsChecked(dialog, kByLine));
    EXPECT_TRUE(IsChecked(dialog, kSkipSpace));
    for (const int clear : {kBySubstring, kByItem, kEndAtSpace, kLanguageAware, kIgnoreCase, kNatural,
                            kReverse, kDuplicates, kBlank}) {
      EXPECT_FALSE(IsChecked(dialog, clear)) << clear;
    }
  });
}

TEST_F(SortLinesDlgWindow, ShowsOptionsThatAreSet) {
  Start(0x406BA04, [](SortLinesOptions& options) {
    options.keepLinesTop = 3;
    options.keepLinesBottom = 4;
    options.lineOffset = 9;
    options.lineItem = 2;
    options.matchChar = u';';
    std::copy_n("%d.%m", 6, options.dateFormat);
  });
  Show([](HWND dialog) {
    EXPECT_EQ(Ui::SelectedData(GetDlgItem(dialog, kSaveAs)), 0x4000000);
    EXPECT_EQ(Ui::SelectedData(GetDlgItem(dialog, kMethod)), 0x200);
    EXPECT_EQ(TextOf(dialog, kName), W("a.txt"));
    EXPECT_EQ(TextOf(dialog, kTop), W("3"));
    EXPECT_EQ(TextOf(dialog, kBottom), W("4"));
    EXPECT_EQ(TextOf(dialog, kPosition), W("10"));
    EXPECT_EQ(TextOf(dialog, kSeparator), W(";"));
    EXPECT_EQ(TextOf(dialog, kItem), W("2"));
    EXPECT_EQ(TextOf(dialog, kDateFormat), W("%d.%m"));
    for (const int set : {kByItem, kLanguageAware, kIgnoreCase, kNatural, kReverse, kDuplicates, kBlank}) {
      EXPECT_TRUE(IsChecked(dialog, set)) << set;
    }
    EXPECT_FALSE(IsChecked(dialog, kSkipSpace));
  });
}

TEST_F(SortLinesDlgWindow, ShowsTheFieldsOfASubstring) {
  Start(0x400012, [](SortLinesOptions& options) {
    options.matchChar = u';';
    options.subStringLen = 5;
  });
  Show([](HWND dialog) {
    EXPECT_TRUE(IsChecked(dialog, kBySubstring));
    EXPECT_EQ(TextOf(dialog, kEndCharacter), W(";"));
    EXPECT_EQ(TextOf(dialog, kLength), W("5"));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
  });
}

TEST_F(SortLinesDlgWindow, SampleAndRulerAreReadOnlyAndInTheirFonts) {
  HFONT fonts[2] = {};
  Show([&](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kSample), W("one\r\ntwo"));
    const int controls[] = {kRuler, kSample};
    for (int index = 0; index < 2; ++index) {
      const HWND control = GetDlgItem(dialog, controls[index]);
      EXPECT_TRUE(GetWindowLongW(control, GWL_STYLE) & ES_READONLY);
      fonts[index] = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
      LOGFONTW font = {};
      ASSERT_EQ(GetObjectW(fonts[index], sizeof(font), &font), static_cast<int>(sizeof(font)));
      EXPECT_EQ(WString(font.lfFaceName), W("Courier New"));
      EXPECT_EQ(font.lfHeight, -12);  // 9 points of 96 pixels an inch
      EXPECT_EQ(font.lfWeight, 400);
      EXPECT_EQ(font.lfCharSet, DEFAULT_CHARSET);
      EXPECT_EQ(font.lfQuality, CLEARTYPE_QUALITY);
    }
  });
  EXPECT_NE(fonts[0], fonts[1]);
  for (const HFONT font : fonts) EXPECT_EQ(GetObjectType(font), 0u) << "a font outlived the dialog";
}

// The font may be another one where the system has not got it, but its characters are equally wide.
TEST_F(SortLinesDlgWindow, RulerStandsCharacterForCharacterAboveTheSample) {
  form_.sample = WString(90, W('W'));
  Show([](HWND dialog) {
    for (const WPARAM at : {0, 10, 45, 89}) {
      const LRESULT ruler = SendDlgItemMessageW(dialog, kRuler, EM_POSFROMCHAR, at, 0);
      const LRESULT sample = SendDlgItemMessageW(dialog, kSample, EM_POSFROMCHAR, at, 0);
      EXPECT_EQ(LOWORD(ruler), LOWORD(sample)) << at;
    }
    EXPECT_EQ(AreaOf(dialog, kRuler).left, AreaOf(dialog, kSample).left);
    EXPECT_EQ(AreaOf(dialog, kRuler).right, AreaOf(dialog, kSample).right);
  });
}

TEST_F(SortLinesDlgWindow, SampleShowsABlankForEachZeroCharacter) {
  form_.sample = WString(W("a\0b\0\0c"), 6);
  Show([](HWND dialog) { EXPECT_EQ(TextOf(dialog, kSample), W("a b  c")); });
}

TEST_F(SortLinesDlgWindow, SampleHasRoomForNinetyCharacters) {
  Show([](HWND dialog) {
    constexpr LONG kCharacterWidth = 7;  // of the font at 96 pixels an inch
    RECT room = {};
    SendDlgItemMessageW(dialog, kSample, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
    EXPECT_GE(room.right - room.left, 90 * kCharacterWidth);
  });
}

// Rules.

TEST_F(SortLinesDlgWindow, EntireLineHasNeitherSubstringNorItem) {
  Show([](HWND dialog) {
    EXPECT_THAT(SubstringState(dialog), ElementsAre(false, false, false));
    EXPECT_THAT(ItemState(dialog), ElementsAre(false, false));
    ClickButton(dialog, kByItem);
    ClickButton(dialog, kByLine);
    EXPECT_THAT(SubstringState(dialog), ElementsAre(false, false, false));
    EXPECT_THAT(ItemState(dialog), ElementsAre(false, false));
  });
}

TEST_F(SortLinesDlgWindow, LineItemHasItsFieldsAlone) {
  Show([](HWND dialog) {
    ClickButton(dialog, kByItem);
    EXPECT_TRUE(IsChecked(dialog, kByItem));
    EXPECT_FALSE(IsChecked(dialog, kByLine));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(false, false, false));
    EXPECT_THAT(ItemState(dialog), ElementsAre(true, true));
  });
}

TEST_F(SortLinesDlgWindow, FromItemToSubstringSeparatorAndItemStayEnabledAsIsMeant) {
  Show([](HWND dialog) {
    ClickButton(dialog, kBySubstring);
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
    EXPECT_THAT(ItemState(dialog), ElementsAre(false, false));
    ClickButton(dialog, kByItem);
    ClickButton(dialog, kBySubstring);
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
    EXPECT_THAT(ItemState(dialog), ElementsAre(true, true));
  });
}

TEST_F(SortLinesDlgWindow, SubstringFieldsExcludeOneAnother) {
  Show([](HWND dialog) {
    ClickButton(dialog, kBySubstring);
    Enter(dialog, kLength, W("4"));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, false, false));
    Enter(dialog, kLength, W(""));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
    Enter(dialog, kEndCharacter, W(";"));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(false, true, false));
    Enter(dialog, kEndCharacter, W(""));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
    ClickButton(dialog, kEndAtSpace);
    EXPECT_THAT(SubstringState(dialog), ElementsAre(false, false, true));
    ClickButton(dialog, kEndAtSpace);
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
  });
}

TEST_F(SortLinesDlgWindow, WithLengthAndEndCharacterFilledNothingChangesAsIsMeant) {
  Start(0x400012, [](SortLinesOptions& options) { options.matchChar = u';'; });
  Show([](HWND dialog) {
    Enter(dialog, kLength, W("12"));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
    ClickButton(dialog, kEndAtSpace);
    ClickButton(dialog, kEndAtSpace);
    EXPECT_THAT(SubstringState(dialog), ElementsAre(false, false, true));
  });
}

TEST_F(SortLinesDlgWindow, SecondEndCharacterTypedInFrontTakesThePlaceOfTheFirst) {
  Show([](HWND dialog) {
    ClickButton(dialog, kBySubstring);
    Focus(dialog, kEndCharacter);
    TypeText(dialog, W("ab"));
    EXPECT_EQ(TextOf(dialog, kEndCharacter), W("a"));
    DWORD from = 9;
    DWORD to = 9;
    SendDlgItemMessageW(dialog, kEndCharacter, EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                        reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, 0u);
    EXPECT_EQ(to, 0u);
    TypeText(dialog, W("c"));
    EXPECT_EQ(TextOf(dialog, kEndCharacter), W("c"));
  });
}

TEST_F(SortLinesDlgWindow, DateFieldsAndTheirHintAreForDatesOnly) {
  Show([](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, kDateFormat));
    EXPECT_FALSE(IsEnabled(dialog, kDatePresets));
    EXPECT_EQ(CueOf(dialog, kDateFormat), W(""));
    ChooseRow(dialog, kMethod, kDateRow);
    EXPECT_TRUE(IsEnabled(dialog, kDateFormat));
    EXPECT_TRUE(IsEnabled(dialog, kDatePresets));
    EXPECT_EQ(CueOf(dialog, kDateFormat), W("T01B40064"));
    ChooseRow(dialog, kMethod, kNumberRow);
    EXPECT_FALSE(IsEnabled(dialog, kDateFormat));
    EXPECT_FALSE(IsEnabled(dialog, kDatePresets));
    EXPECT_EQ(CueOf(dialog, kDateFormat), W(""));
  });
}

TEST_F(SortLinesDlgWindow, StartedWithDatesTheHintIsThere) {
  Start(0x201);
  Show([](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, kDateFormat));
    EXPECT_EQ(CueOf(dialog, kDateFormat), W("T01B40064"));
  });
}

TEST_F(SortLinesDlgWindow, NaturalOrderIsForLanguageAwareAndIgnoreCaseForTheOther) {
  Show([](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, kIgnoreCase));
    EXPECT_FALSE(IsEnabled(dialog, kNatural));
    ClickButton(dialog, kLanguageAware);
    EXPECT_FALSE(IsEnabled(dialog, kIgnoreCase));
    EXPECT_TRUE(IsEnabled(dialog, kNatural));
    ClickButton(dialog, kLanguageAware);
    EXPECT_TRUE(IsEnabled(dialog, kIgnoreCase));
    EXPECT_FALSE(IsEnabled(dialog, kNatural));
  });
}

TEST_F(SortLinesDlgWindow, DuplicatesBoxIsAlwaysDisabled) {
  Start(0x20011);
  Show([](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, kDuplicates));
    EXPECT_TRUE(IsChecked(dialog, kDuplicates));
    ClickButton(dialog, kReverse);
    EXPECT_FALSE(IsEnabled(dialog, kDuplicates));
    EXPECT_TRUE(IsChecked(dialog, kDuplicates));
  });
}

TEST_F(SortLinesDlgWindow, WayToSaveSuggestsTheName) {
  Show([](HWND dialog) {
    Enter(dialog, kName, W("mine.txt"));
    ChooseRow(dialog, kSaveAs, kKeepBackupRow);
    EXPECT_EQ(TextOf(dialog, kName), W("a.txt"));
    EXPECT_FALSE(IsEnabled(dialog, kName));
    ChooseRow(dialog, kSaveAs, kDeleteBackupRow);
    EXPECT_EQ(TextOf(dialog, kName), W("a.txt"));
    EXPECT_FALSE(IsEnabled(dialog, kName));
    ChooseRow(dialog, kSaveAs, kNewFileRow);
    EXPECT_EQ(TextOf(dialog, kName), W("a_s.txt"));
    EXPECT_TRUE(IsEnabled(dialog, kName));
  });
}

TEST_F(SortLinesDlgWindow, RulerFollowsPositionLengthAndKey) {
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kRuler).size(), 90u);
    EXPECT_EQ(TextOf(dialog, kRuler).substr(0, 12), W("*---+----1--"));
    Enter(dialog, kPosition, W("3"));
    EXPECT_EQ(TextOf(dialog, kRuler).substr(0, 12), W("--*-+----1--"));
    ClickButton(dialog, kBySubstring);
    Enter(dialog, kLength, W("4"));
    EXPECT_EQ(TextOf(dialog, kRuler).substr(0, 12), W("--****---1--"));
    ClickButton(dialog, kByItem);
    EXPECT_EQ(TextOf(dialog, kRuler).substr(0, 12), W("--*-+----1--"));
    Enter(dialog, kPosition, W(""));
    EXPECT_EQ(TextOf(dialog, kRuler).substr(0, 12), W("----+----1--"));
    Enter(dialog, kPosition, W("91"));
    EXPECT_EQ(TextOf(dialog, kRuler).find(W('*')), WString::npos);
  });
}

// The list of date formats.

TEST_F(SortLinesDlgWindow, DateFormatsOpenAsAMenuAtTheMouse) {
  Start(0x201);
  Show([](HWND dialog) {
    OpenedMenu menu;
    RECT area = {};
    GetWindowRect(GetDlgItem(dialog, kDatePresets), &area);
    SetCursorPos(area.left + 5, area.top + 6);
    PressKeysInDateMenu(dialog, {VK_DOWN, VK_DOWN, VK_RETURN});
    EXPECT_EQ(menu.opened, 1);
    EXPECT_THAT(menu.texts, ElementsAre(W("2014-11-21"), W("2014-11-21 13:44:48"), W("23/11/14"),
                                        W("23/11/2014"), W("23/11/2014 1:44:48 pm"), W("23 Nov 2014"),
                                        W("Nov 11 13:44:48 2014"), W("11 Nov 2014 13:44:48")));
    EXPECT_EQ(menu.area.left, area.left + 5);
    EXPECT_EQ(menu.area.top, area.top + 6);
    EXPECT_EQ(TextOf(dialog, kDateFormat), W("%Y-%m-%d %H:%M:%S"));
  });
  EXPECT_EQ(form_.dateFormat, W("%Y-%m-%d %H:%M:%S"));
}

TEST_F(SortLinesDlgWindow, LastDateFormatCanBeChosenToo) {
  Start(0x201);
  Show([](HWND dialog) {
    Enter(dialog, kDateFormat, W("old"));
    PressKeysInDateMenu(dialog, {VK_UP, VK_RETURN});
    EXPECT_EQ(TextOf(dialog, kDateFormat), W("%d %b %Y %H:%M:%S"));
  });
}

TEST_F(SortLinesDlgWindow, DateMenuThatIsLeftChangesNothing) {
  Start(0x201);
  EXPECT_EQ(Show([](HWND dialog) {
              OpenedMenu menu;
              Enter(dialog, kDateFormat, W("%Y"));
              PressKeysInDateMenu(dialog, {VK_DOWN, VK_ESCAPE});
              EXPECT_EQ(menu.opened, 1);
              EXPECT_EQ(TextOf(dialog, kDateFormat), W("%Y"));
              EXPECT_TRUE(IsWindowVisible(dialog));
              ClickButton(dialog, IDOK);
            }),
            IDOK);
}

// Its end.

TEST_F(SortLinesDlgWindow, OkButtonTakesAllFields) {
  EXPECT_EQ(Show([](HWND dialog) {
              Enter(dialog, kName, W("sorted.txt"));
              Enter(dialog, kTop, W("1"));
              Enter(dialog, kBottom, W("2"));
              Enter(dialog, kPosition, W("3"));
              ClickButton(dialog, kSkipSpace);
              ClickButton(dialog, kByItem);
              Enter(dialog, kSeparator, W(";"));
              Enter(dialog, kItem, W("5"));
              ChooseRow(dialog, kMethod, kDateRow);
              Enter(dialog, kDateFormat, W("%d"));
              ClickButton(dialog, kIgnoreCase);
              ClickButton(dialog, kReverse);
              ClickButton(dialog, kBlank);
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(form_.targetName, W("sorted.txt"));
  const SortLinesOptions options = ReadOptions(form_);
  EXPECT_EQ(options.options, 0x1043204u);
  EXPECT_EQ(options.keepLinesTop, 1u);
  EXPECT_EQ(options.keepLinesBottom, 2u);
  EXPECT_EQ(options.lineOffset, 2u);
  EXPECT_EQ(options.matchChar, u';');
  EXPECT_EQ(options.lineItem, 5u);
  EXPECT_STREQ(options.dateFormat, "%d");
}

TEST_F(SortLinesDlgWindow, EnterEndsItWithWhatWasTypedLast) {
  EXPECT_EQ(Show([](HWND dialog) {
              ClickButton(dialog, kBySubstring);
              Focus(dialog, kEndCharacter);
              // Without the dialog's own loop between the keys.
              SendDlgItemMessageW(dialog, kEndCharacter, WM_CHAR, W('x'), 1);
              SendDlgItemMessageW(dialog, kEndCharacter, WM_CHAR, W('y'), 1);
              SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED),
                           reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
            }),
            IDOK);
  EXPECT_EQ(form_.endCharacter, W("x"));
}

TEST_F(SortLinesDlgWindow, NaturalOrderCheckedThereIsNotStoredAsIsMeant) {
  Show([](HWND dialog) {
    ClickButton(dialog, kLanguageAware);
    ClickButton(dialog, kNatural);
    EXPECT_TRUE(IsChecked(dialog, kNatural));
    ClickButton(dialog, IDOK);
  });
  EXPECT_EQ(ReadOptions(form_).options, 0x1100811u);
}

TEST_F(SortLinesDlgWindow, CancelEscapeAndTheCloseButtonCancel) {
  EXPECT_EQ(Show([](HWND dialog) { ClickButton(dialog, IDCANCEL); }), IDCANCEL);
  EXPECT_EQ(Show([](HWND dialog) { PressKey(dialog, VK_ESCAPE); }), IDCANCEL);
  EXPECT_EQ(Show([](HWND dialog) {
              PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
              Pump(dialog);
            }),
            IDCANCEL);
}

TEST_F(SortLinesDlgWindow, ReturnPressesOk) {
  EXPECT_EQ(Show([](HWND dialog) {
              Enter(dialog, kTop, W("8"));
              PressKey(dialog, VK_RETURN);
            }),
            IDOK);
  EXPECT_EQ(form_.keepLinesTop, W("8"));
}

// Keys and layout.

TEST_F(SortLinesDlgWindow, TabWalksFieldsInTheirOrderAndComesBack) {
  Start(0x201);
  Show([](HWND dialog) {
    ClickButton(dialog, kByItem);
    Focus(dialog, kSaveAs);
    std::vector<int> walk;
    do {
      walk.push_back(FocusedControl(dialog));
      PressKey(dialog, VK_TAB);
    } while (FocusedControl(dialog) != kSaveAs && walk.size() < 40);
    EXPECT_THAT(walk, ElementsAre(kSaveAs, kName, kTop, kBottom, kPosition, kSkipSpace, kByItem, kSeparator,
                                  kItem, kMethod, kDateFormat, kDatePresets, kLanguageAware, kIgnoreCase,
                                  kReverse, kBlank, kSample, IDOK, IDCANCEL));
  });
}

TEST_F(SortLinesDlgWindow, ArrowKeysWalkTheKeysOfTheSort) {
  Show([](HWND dialog) {
    Focus(dialog, kByLine);
    PressKey(dialog, VK_DOWN);
    EXPECT_TRUE(IsChecked(dialog, kBySubstring));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
    PressKey(dialog, VK_DOWN);
    EXPECT_TRUE(IsChecked(dialog, kByItem));
    EXPECT_THAT(ItemState(dialog), ElementsAre(true, true));
    PressKey(dialog, VK_DOWN);
    EXPECT_TRUE(IsChecked(dialog, kByLine));
  });
}

TEST_F(SortLinesDlgWindow, FieldsTakeDigitsAndCharactersUpToTheirLimits) {
  Start(0x201);
  Show([](HWND dialog) {
    ClickButton(dialog, kBySubstring);
    for (const int number : {kTop, kBottom, kPosition, kLength, kItem}) {
      EXPECT_TRUE(GetWindowLongW(GetDlgItem(dialog, number), GWL_STYLE) & ES_NUMBER) << number;
    }
    Enter(dialog, kLength, W("12345678901"));
    EXPECT_EQ(TextOf(dialog, kLength), W("123456789"));
    Enter(dialog, kTop, W("12345678901"));
    EXPECT_EQ(TextOf(dialog, kTop), W("1234567890"));
    EXPECT_EQ(SendDlgItemMessageW(dialog, kDateFormat, EM_GETLIMITTEXT, 0, 0), 128);
    EXPECT_EQ(SendDlgItemMessageW(dialog, kName, EM_GETLIMITTEXT, 0, 0), 259);
  });
}

TEST_F(SortLinesDlgWindow, NumbersTakeTenDigits) {
  Show([](HWND dialog) {
    ClickButton(dialog, kByItem);
    for (const int number : {kTop, kBottom, kPosition, kItem}) {
      Enter(dialog, number, W("12345678901"));
      EXPECT_EQ(TextOf(dialog, number), W("1234567890")) << number;
    }
  });
}

// As a paste does where the system lets it.
void PutIn(HWND dialog, int control, const WString& text) {
  SendDlgItemMessageW(dialog, control, EM_SETSEL, 0, -1);
  SendDlgItemMessageW(dialog, control, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

TEST_F(SortLinesDlgWindow, OfATextThatIsPutIntoANumberTheDigitsStay) {
  Show([](HWND dialog) {
    ClickButton(dialog, kByItem);
    ClickButton(dialog, kBySubstring);
    for (const int number : {kTop, kBottom, kPosition, kItem, kLength}) {
      PutIn(dialog, number, W("-5x"));
      Pump(dialog);
      EXPECT_EQ(TextOf(dialog, number), W("5")) << number;
    }
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, false, false));
    PutIn(dialog, kLength, W("x"));
    Pump(dialog);
    EXPECT_EQ(TextOf(dialog, kLength), W(""));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
  });
}

TEST_F(SortLinesDlgWindow, PastedLengthIsRightEvenIfOkIsPressedAtOnce) {
  for (const auto& [pasted, length] : std::initializer_list<std::pair<const WCHAR*, const WCHAR*>>{
           {W("x"), W("")}, {W("-7"), W("7")}, {W("1 000"), W("1000")}}) {
    Start(0x12);
    EXPECT_EQ(Show([text = pasted](HWND dialog) {
                PutIn(dialog, kLength, text);
                SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED),
                             reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
              }),
              IDOK);
    EXPECT_EQ(form_.length, length);
    EXPECT_NO_THROW(ReadOptions(form_));
  }
}

TEST_F(SortLinesDlgWindow, TextThatAProgramSetsIsCutToTheDigitsThatTheLengthTakes) {
  Start(0x12);
  Show([](HWND dialog) {
    SendDlgItemMessageW(dialog, kLength, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(W("99999999999")));
    Pump(dialog);
    EXPECT_EQ(TextOf(dialog, kLength), W("999999999"));
  });
}

TEST_F(SortLinesDlgWindow, StoredLengthOfTenDigitsIsLeftByOkWithoutAFailure) {
  Start(0x12, [](SortLinesOptions& options) { options.subStringLen = 4294967295; });
  EXPECT_EQ(Show([](HWND dialog) {
              EXPECT_EQ(TextOf(dialog, kLength), W("999999999"));
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(ReadOptions(form_).subStringLen, 999999999u);
}

TEST_F(SortLinesDlgWindow, WithNoKeyMarkedTheTabKeyReachesTheFirst) {
  Start(0x10);
  Show([](HWND dialog) {
    EXPECT_TRUE(GetWindowLongW(GetDlgItem(dialog, kByLine), GWL_STYLE) & WS_TABSTOP);
    for (const int other : {kBySubstring, kByItem}) {
      EXPECT_FALSE(GetWindowLongW(GetDlgItem(dialog, other), GWL_STYLE) & WS_TABSTOP) << other;
    }
    Focus(dialog, kSkipSpace);
    PressKey(dialog, VK_TAB);
    EXPECT_EQ(FocusedControl(dialog), kByLine);
  });
}

TEST_F(SortLinesDlgWindow, KeyMarkedInTheGroupIsItsOnlyTabStop) {
  Start(0x14);
  Show([](HWND dialog) {
    EXPECT_TRUE(GetWindowLongW(GetDlgItem(dialog, kByItem), GWL_STYLE) & WS_TABSTOP);
    EXPECT_FALSE(GetWindowLongW(GetDlgItem(dialog, kByLine), GWL_STYLE) & WS_TABSTOP);
  });
}

TEST_F(SortLinesDlgWindow, FieldThatIsGreyedOutWhileItHasTheFocusPassesItOn) {
  Show([](HWND dialog) {
    ClickButton(dialog, kBySubstring);
    Focus(dialog, kLength);
    // As if both were filled at once.
    SendDlgItemMessageW(dialog, kEndCharacter, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(W(";")));
    Pump(dialog);
    EXPECT_FALSE(IsEnabled(dialog, kLength));
    EXPECT_NE(FocusedControl(dialog), kLength);
    EXPECT_NE(FocusedControl(dialog), 0);
  });
}

TEST_F(SortLinesDlgWindow, StandsInTheMiddleOfTheActiveWindow) {
  Show([this](HWND dialog) {
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner_.Get());
    ExpectCenteredOver(dialog, owner_.Get());
  });
}

TEST_F(SortLinesDlgWindow, WithoutAnActiveWindowItStandsOverTheHosts) {
  host_.mainWindow = owner_.Get();
  SetActiveWindow(nullptr);
  ASSERT_EQ(GetActiveWindow(), nullptr);
  Show([this](HWND dialog) {
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner_.Get());
    EXPECT_FALSE(IsWindowEnabled(owner_.Get()));
  });
}

TEST_F(SortLinesDlgWindow, ActiveWindowIsItsOwnerBeforeTheHosts) {
  const OwnerWindow active(300, 200);
  host_.mainWindow = owner_.Get();
  Show([&](HWND dialog) { EXPECT_EQ(GetWindow(dialog, GW_OWNER), active.Get()); });
}

TEST_F(SortLinesDlgWindow, EnglishTextsFitAndControlsStandApart) {
  host_.texts = EnglishTexts();
  form_.sample.clear();
  for (const WCHAR* line : {W("2014-11-21;apples;12.50"), W("2014-09-02;pears;3.20"), W("2013-01-30;plums;7"),
                            W("2015-06-11;cherries;18.75"), W("2014-03-08;grapes;4.10")}) {
    form_.sample += line;
    form_.sample += W("\r\n");
  }
  Show([](HWND dialog) {
    ExpectControlsInsideClientArea(dialog);
    ExpectNoControlsOverlap(dialog);
    ExpectNoTextCutOff(dialog);
    ExpectAccessKeysDiffer(dialog);
    EXPECT_EQ(TextOf(dialog, kCount), W("1 Files will be sorted"));
    ClickButton(dialog, kBySubstring);
    Enter(dialog, kLength, W("10"));
    ChooseRow(dialog, kMethod, kDateRow);
    PressKeysInDateMenu(dialog, {VK_DOWN, VK_RETURN});
    EXPECT_TRUE(SaveScreenshot(dialog, W("sort_lines_dialog")));
  });
}

TEST_F(SortLinesDlgWindow, TextsLongerByTwoFifthsFitToo) {
  host_.texts = LongTexts();
  Show([](HWND dialog) {
    ExpectNoTextCutOff(dialog);
    EXPECT_TRUE(SaveScreenshot(dialog, W("sort_lines_dialog_long_texts")));
  });
}

TEST_F(SortLinesDlgWindow, MarginsAreEvenAndColumnsAligned) {
  host_.texts = EnglishTexts();
  Show([](HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    RECT margin = {7, 7, 7, 7};
    MapDialogRect(dialog, &margin);
    for (const int left : {kHeading, kCount, kSaveAsLabel, kSaveAs, kTopLabel, kByGroup, kRuler, kSample}) {
      EXPECT_EQ(AreaOf(dialog, left).left, margin.left) << left;
    }
    for (const int right :
         std::initializer_list<int>{kHeading, kName, kMethodGroup, kRuler, kSample, IDCANCEL}) {
      EXPECT_NEAR(client.right - AreaOf(dialog, right).right, margin.left, 1) << right;
    }
    for (const int number : {kBottom, kPosition, kLength, kEndCharacter, kSeparator, kItem}) {
      EXPECT_EQ(AreaOf(dialog, number).left, AreaOf(dialog, kTop).left) << number;
      EXPECT_EQ(AreaOf(dialog, number).right, AreaOf(dialog, kTop).right) << number;
    }
    EXPECT_NEAR(client.bottom - AreaOf(dialog, IDCANCEL).bottom, margin.top, 1);
    EXPECT_EQ(AreaOf(dialog, kByGroup).bottom, AreaOf(dialog, kMethodGroup).bottom);
  });
}

TEST_F(SortLinesDlgWindow, CanBeShownAgain) {
  for (int round = 0; round < 3; ++round) {
    Start(0x100011);
    EXPECT_EQ(Show([](HWND dialog) {
                EXPECT_EQ(TextOf(dialog, kTop), W("0"));
                Enter(dialog, kTop, W("7"));
                PressKey(dialog, VK_RETURN);
              }),
              IDOK);
    EXPECT_EQ(form_.keepLinesTop, W("7"));
  }
}

}  // namespace
