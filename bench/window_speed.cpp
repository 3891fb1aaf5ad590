// Measures MultiRename's real window with many generated rows and the reference host's list: the time to fill
// it, to type in it with Live Preview, and to scroll it, and the memory for each row.
//
// Each line of the output is a measure's name, the best of its runs, their median, and the unit.
#include "platform/windows_api.h"

// Needs windows.h first.
#include <commctrl.h>
#define PSAPI_VERSION 2
#include <psapi.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "host/services/host_app.h"
#include "host/system/system_places.h"
#include "host/system/whole_file.h"
#include "multirename/form/panel_controls.h"
#include "multirename/window/rename_window.h"

using namespace Velmora::SDK;

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRuns = 5;

// Posted to the thread to mark the position of the next key among the messages.
constexpr UINT kNextKey = WM_APP + 300;

double MillisecondsSince(Clock::time_point begin) {
  return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "window_speed: %s\n", what);
  std::exit(1);
}

void Print(const char* name, std::vector<double> times, const char* unit = "ms") {
  std::ranges::sort(times);
  std::printf("%s;%.2f;%.2f;%s\n", name, times.front(), times[times.size() / 2], unit);
  std::fflush(stdout);
}

// The private memory of this process.
double BytesInMemory() {
  PROCESS_MEMORY_COUNTERS counters{};
  counters.cb = sizeof counters;
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return static_cast<double>(counters.PagefileUsage);
}

SharedItems MakeRows(std::size_t count) {
  auto rows = std::make_shared<MultiRenameItems>();
  for (std::size_t row = 0; row < count; ++row) {
    MultiRenameItem& item = rows->emplace_back();
    char text[80];
    std::snprintf(text, sizeof text, "Z:\\home\\someone\\photos\\folder %05u",
                  static_cast<unsigned>(row / 100));
    item.folderPath = FromUtf8(text);
    std::snprintf(text, sizeof text, "folder %05u_some_file name %03u.TXT", static_cast<unsigned>(row / 100),
                  static_cast<unsigned>(row % 100));
    item.oldName = FromUtf8(text);
    // As the constructor with a host's item does.
    item.newName.reserve(item.oldName.size() + 7);
    item.newName = item.oldName;
  }
  return rows;
}

QxHost::LanguageTable ReadTexts() {
  std::string bytes;
  if (QxHost::ReadWholeFile(QxHost::ProgramFolder() + W("\\english.language"), bytes) != ERROR_SUCCESS)
    Fail("there is no language table in the folder of the program");
  std::vector<std::string> warnings;
  return QxHost::LanguageTable::Parse(bytes, warnings);
}

WString ConfigFolder() {
  WCHAR folder[MAX_PATH] = {};
  GetTempPathW(MAX_PATH, folder);
  const WString path = WString(folder) + W("window_speed-") + FromUtf8(std::to_string(GetCurrentProcessId()));
  CreateDirectoryW(path.c_str(), nullptr);
  return path;
}

// The reference host, without items and without output.
struct QuietHost {
  QxHost::Output output{[](std::string_view) { return true; }, [](std::string_view) { return true; }};
  std::unique_ptr<QxHost::Reporter> reporter = QxHost::MakeJsonReporter(output);
  QxHost::Questions questions{*reporter, output, {}, {}, nullptr};
  QxHost::SystemAnswers answers = [] {
    QxHost::SystemAnswers made;
    made.configFolder = ConfigFolder();
    return made;
  }();
  QxHost::Shared shared{output, *reporter, ReadTexts(), answers, questions, false};
  QxHost::HostApp app{shared, 2, "MultiRename"};
};

class MeasuredWindow final : public RenameWindowOwner, private MessageFilter {
 public:
  MeasuredWindow() {
    if (!engine_.worker.Start()) Fail("there is no worker");
    window_ = OpenRenameWindow(*this, loop_);
    if (!window_) Fail("there is no window");
    host_.app.SetEventSink(
        [this](std::intptr_t source, s32 code) { window_->Form().OnHostEvent(source, code); });
    window_->Show();
    list_ = FindWindowExW(GetParent(window_->Panel()), nullptr, WC_LISTVIEWW, nullptr);
    edit_ = FindWindowExW(GetDlgItem(window_->Panel(), kNameTemplate), nullptr, L"Edit", nullptr);
    if (!list_ || !edit_) Fail("the window has no list or no field");
    SetWindowSubclass(list_, OnListMessage, 1, reinterpret_cast<DWORD_PTR>(this));
    // The caret is at the end of the template, and nothing is selected.
    SendMessageW(edit_, EM_SETSEL, 0xFFFF, 0xFFFF);
    loop_.AddFilter(*this);
    RunUntilPreviewed();
  }
  MeasuredWindow(const MeasuredWindow&) = delete;
  MeasuredWindow& operator=(const MeasuredWindow&) = delete;
  ~MeasuredWindow() {
    loop_.RemoveFilter(*this);
    engine_.worker.StopCurrent();
    RemoveWindowSubclass(list_, OnListMessage, 1);
    host_.app.SetEventSink(nullptr);
    window_.reset();
  }

  void MeasureAll(std::size_t rowCount);

 private:
  // When the effects of a key occur, in milliseconds after it.
  struct KeyTimes {
    double nextKeyTaken = 0;  // the loop reaches the next key
    double previewed = 0;     // the worker's message that all names are computed is processed
    double painted = 0;       // the list shows the names
  };

  RenameContext& Context() override { return context_; }
  void OnWindowClosed() override {}

  bool FilterMessage(MSG& message) override {
    if (message.message == MRM_UPDATE_PREVIEW) {
      isPreviewed_ = false;
      PostThreadMessageW(GetCurrentThreadId(), kNextKey, 0, 0);
    } else if (message.message == kNextKey && !message.hwnd) {
      times_.nextKeyTaken = MillisecondsSince(begin_);
      if (atNextKey_) std::exchange(atNextKey_, nullptr)();
      return true;
    } else if (message.message == MRM_ROWS_CHANGED && !engine_.worker.WasPreviewCut()) {
      times_.previewed = MillisecondsSince(begin_);
      isPreviewed_ = true;
    }
    return false;
  }

  static LRESULT CALLBACK OnListMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                        DWORD_PTR data) {
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    auto& self = *reinterpret_cast<MeasuredWindow*>(data);
    if (message == WM_PAINT && self.isPreviewed_) {
      GdiFlush();
      self.times_.painted = MillisecondsSince(self.begin_);
      self.isPreviewed_ = false;
      PostQuitMessage(0);
    }
    return result;
  }

  void RunUntilPreviewed() {
    isPreviewed_ = false;
    loop_.Run();
  }

  void TakeMessages() {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }

  void PostKey(WCHAR key) {
    begin_ = Clock::now();
    PostMessageW(edit_, WM_CHAR, key, 1);
  }

  KeyTimes TypeKey(WCHAR key) {
    PostKey(key);
    RunUntilPreviewed();
    return times_;
  }

  // Types a key during the first half of the preview that the key before it has started.
  KeyTimes TypeKeyIntoPreview(WCHAR first, WCHAR second, double previewLength) {
    atNextKey_ = [this, second, previewLength] {
      Sleep(static_cast<DWORD>(previewLength / 4));
      PostKey(second);
    };
    PostKey(first);
    RunUntilPreviewed();
    return times_;
  }

  WString FirstName() const {
    WCHAR text[256] = {};
    LVITEMW cell = {};
    cell.iSubItem = 1;
    cell.pszText = text;
    cell.cchTextMax = 256;
    SendMessageW(list_, LVM_GETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&cell));
    return text;
  }

  void CheckFirstName(const WString& wanted) const {
    if (FirstName() != wanted) Fail(("the list shows " + ToUtf8(FirstName())).c_str());
  }

  void MeasureFilling(const SharedItems& rows);
  void MeasureKeys(std::size_t rowCount);
  void MeasureScrolling();
  void MeasureSelection();

  QuietHost host_;
  MultiRenameEngine engine_{&host_.app};
  MultiRenameProfiles profiles_{host_.app};
  RenameContext context_{host_.app, engine_, profiles_, {}, {1}, {false}};
  MessageLoop loop_;
  std::unique_ptr<RenameWindow> window_;
  HWND list_ = nullptr;
  HWND edit_ = nullptr;
  Clock::time_point begin_;
  KeyTimes times_;
  std::function<void()> atNextKey_;
  bool isPreviewed_ = false;
};

void MeasuredWindow::MeasureAll(std::size_t rowCount) {
  const auto perRow = [rowCount](double bytes) { return std::vector{bytes / static_cast<double>(rowCount)}; };
  const double empty = BytesInMemory();
  const SharedItems rows = MakeRows(rowCount);
  const double withRows = BytesInMemory();
  window_->Form().FillList(rows);
  TakeMessages();
  const double withList = BytesInMemory();
  TypeKey(W('x'));
  TypeKey(W('\b'));
  const double withPreview = BytesInMemory();
  MeasureFilling(rows);
  MeasureKeys(rowCount);
  MeasureScrolling();
  MeasureSelection();
  Print("memory of the module's row, names included", perRow(withRows - empty), "bytes");
  Print("memory that the list takes more", perRow(withList - withRows), "bytes");
  Print("memory that previews take more", perRow(withPreview - withList), "bytes");
  window_->Form().FillList(nullptr);
}

void MeasuredWindow::MeasureFilling(const SharedItems& rows) {
  std::vector<double> filled;
  std::vector<double> shown;
  for (int run = 0; run < kRuns; ++run) {
    const Clock::time_point begin = Clock::now();
    window_->Form().FillList(rows);
    filled.push_back(MillisecondsSince(begin));
    UpdateWindow(list_);
    GdiFlush();
    shown.push_back(MillisecondsSince(begin));
    TakeMessages();
  }
  Print("FillList", filled);
  Print("FillList, until the list is painted", shown);
}

void MeasuredWindow::MeasureKeys(std::size_t rowCount) {
  std::vector<double> nextKeyTaken;
  std::vector<double> previewed;
  std::vector<double> painted;
  const auto add = [&](const KeyTimes& times) {
    nextKeyTaken.push_back(times.nextKeyTaken);
    previewed.push_back(times.previewed);
    painted.push_back(times.painted);
  };
  const auto print = [&](const std::string& key) {
    Print((key + ", until the next is taken").c_str(), nextKeyTaken);
    Print((key + ", until all names are computed").c_str(), previewed);
    Print((key + ", until the list shows them").c_str(), painted);
    nextKeyTaken.clear();
    previewed.clear();
    painted.clear();
  };
  for (int run = 0; run < kRuns; ++run) {
    add(TypeKey(W('x')));
    CheckFirstName(W("folder 00000_some_file name 000x.TXT"));
    TypeKey(W('\b'));
    CheckFirstName(W("folder 00000_some_file name 000.TXT"));
  }
  const double previewLength = *std::ranges::min_element(previewed);
  print("a key");
  if (rowCount < 100'000) return;
  constexpr int kMaxTries = 50;
  for (int run = 0; run < kMaxTries && nextKeyTaken.size() < kRuns; ++run) {
    const KeyTimes times = TypeKeyIntoPreview(W('x'), W('y'), previewLength);
    // Does not count a first preview that was faster than the second key.
    if (FirstName() == W("folder 00000_some_file name 000xy.TXT")) add(times);
    engine_.worker.WaitUntilIdle();
    TakeMessages();
    TypeKey(W('\b'));
    TypeKey(W('\b'));
  }
  if (nextKeyTaken.empty()) Fail("no key came during a preview");
  print("a key during a preview");
}

void MeasuredWindow::MeasureScrolling() {
  std::vector<double> pages;
  for (int run = 0; run < kRuns; ++run) {
    const Clock::time_point begin = Clock::now();
    SendMessageW(list_, WM_VSCROLL, SB_PAGEDOWN, 0);
    UpdateWindow(list_);
    GdiFlush();
    pages.push_back(MillisecondsSince(begin));
  }
  SendMessageW(list_, WM_VSCROLL, SB_TOP, 0);
  Print("a page further", pages);
}

void MeasuredWindow::MeasureSelection() {
  std::vector<double> selected;
  std::vector<double> clicked;
  std::vector<double> arrows;
  const auto selectAll = [this] {
    const Clock::time_point begin = Clock::now();
    BYTE keys[256] = {};
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    PostMessageW(list_, WM_KEYDOWN, 'A', 1);
    PostQuitMessage(0);
    loop_.Run();
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
    TakeMessages();
    return MillisecondsSince(begin);
  };
  const auto selectedCount = [this] { return SendMessageW(list_, LVM_GETSELECTEDCOUNT, 0, 0); };
  for (int run = 0; run < kRuns; ++run) {
    selected.push_back(selectAll());
    if (selectedCount() != SendMessageW(list_, LVM_GETITEMCOUNT, 0, 0)) Fail("not all rows are selected");
    Clock::time_point begin = Clock::now();
    PostMessageW(list_, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(40, 60));
    PostMessageW(list_, WM_LBUTTONUP, 0, MAKELPARAM(40, 60));
    TakeMessages();
    clicked.push_back(MillisecondsSince(begin));
    if (selectedCount() != 1) Fail("the click did not select one row");
    selectAll();
    begin = Clock::now();
    SendMessageW(list_, WM_KEYDOWN, VK_DOWN, 1);
    TakeMessages();
    arrows.push_back(MillisecondsSince(begin));
    if (selectedCount() != 1) Fail("the arrow did not select one row");
  }
  Print("Ctrl+A", selected);
  Print("a click with all selected", clicked);
  Print("an arrow key with all selected", arrows);
}

}  // namespace

int main(int count, char** arguments) {
  const int rows = count == 2 ? std::atoi(arguments[1]) : 0;
  if (rows <= 0) {
    std::fputs("usage: window_speed ROWS\n", stderr);
    return 2;
  }
  MeasuredWindow().MeasureAll(static_cast<std::size_t>(rows));
  return 0;
}
