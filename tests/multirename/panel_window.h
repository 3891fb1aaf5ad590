// The window of MultiRename without a user interface: a list that is a plain vector, a frame and a panel
// whose controls are values, real posted messages, the real worker, and a host whose main thread is another
// one.
#pragma once

#include <algorithm>
#include <atomic>
#include <optional>
#include <set>
#include <thread>

#include "multirename/form/panel_controls.h"
#include "multirename/form/panel_form.h"
#include "multirename/gate_properties.h"
#include "multirename/recorded_controls.h"
#include "multirename/rename_host.h"
#include "platform/message_window.h"
#include "support/scratch_folder.h"
#include "support/semaphore.h"

class VectorList final : public Velmora::SDK::IHostList {
 public:
  using u32 = Velmora::SDK::u32;

  std::vector<void*> rows;
  std::set<void*> selected;
  Velmora::SDK::IMLRowCallBack* provider = nullptr;
  std::vector<std::string> calls;
  std::function<void()> atClear;  // called before the rows are removed

  u32 GetId() override { return 77; }
  u32 GetImageSet() override { return 5; }
  void SetRowProvider(Velmora::SDK::IMLRowCallBack* rowProvider) override {
    provider = rowProvider;
    calls.push_back("provider");
  }
  void* CreateRow(void* item) override { return item; }
  void AddRow(void* row) override { rows.push_back(row); }
  void Refresh() override { calls.push_back("refresh"); }
  void Clear() override {
    if (atClear) atClear();
    rows.clear();
    selected.clear();
    calls.push_back("clear");
  }
  u32 GetRows(void** items, u32 size) override {
    std::copy_n(rows.begin(), std::min<std::size_t>(size, rows.size()), items);
    return static_cast<u32>(rows.size());
  }
  void GetCounts(u32* rowCount, u32* selectedCount) override {
    *rowCount = static_cast<u32>(rows.size());
    *selectedCount = static_cast<u32>(selected.size());
  }
  void MoveRowUp() override { calls.push_back("up"); }
  void MoveRowDown() override { calls.push_back("down"); }
  void MoveRowTop() override { calls.push_back("top"); }
  void MoveRowBottom() override { calls.push_back("bottom"); }
};

class FrameWindow final : public Velmora::SDK::FrameView {
 public:
  WString title;
  std::map<int, WString> panes;
  RecordedBoxes boxes;
  struct MenuPlace {
    HWND owner;
    int x;
    int y;
  };
  std::vector<MenuPlace> menuPlaces;
  std::vector<Velmora::SDK::MenuLines> menus;
  int menuAnswer = 0;
  std::vector<Velmora::SDK::RenameMessage> posted;
  int closes = 0;

  HWND Window() override { return nullptr; }
  void SetTitle(const WString& newTitle) override { title = newTitle; }
  void SetPane(int pane, const WString& text) override { panes[pane] = text; }
  int ShowMenu(HWND owner, int x, int y, const Velmora::SDK::MenuLines& lines) override {
    menuPlaces.push_back({owner, x, y});
    menus.push_back(lines);
    return menuAnswer;
  }
  int ShowBox(const WString& boxTitle, const WString& text, UINT style) override {
    return boxes.Show(boxTitle, text, style);
  }
  void Post(Velmora::SDK::RenameMessage message) override { posted.push_back(message); }
  void PostClose() override { ++closes; }
};

class PanelWindow final : public RecordedControls<Velmora::SDK::PanelView> {
 public:
  MessageWindow messages;
  std::vector<std::pair<int, Velmora::SDK::MenuLines>> menus;
  int menuAnswer = 0;
  std::vector<int> dialogs;  // the resource ids of the dialogs that were run
  // Acts as the user of the next dialog; called after the form was opened.
  std::function<void(Velmora::SDK::DialogForm& form, DialogWindow& dialog)> user;
  std::map<int, WString> tips;

  PanelWindow() { window = messages.Handle(); }

  void Post(Velmora::SDK::RenameMessage message) override { PostMessageW(window, message, 0, 0); }
  int ShowMenu(int control, const Velmora::SDK::MenuLines& lines) override {
    menus.emplace_back(control, lines);
    return menuAnswer;
  }
  int RunDialog(int resource, Velmora::SDK::DialogForm& form) override {
    dialogs.push_back(resource);
    DialogWindow dialog;
    form.Open(dialog);
    if (user) user(form, dialog);
    EXPECT_NE(dialog.result, 0) << "the dialog was left open";
    return dialog.result;
  }
  void SetTip(int control, const WString& text) override { tips[control] = text; }
};

// Properties by name, as listed by the host.
class ListedProperties final : public Velmora::SDK::IHostPropertyManager,
                               public Velmora::SDK::IHostPropertyList {
 public:
  struct Property {
    WString internalName;
    WString displayName;
    bool isGiven = true;
  };
  std::vector<Property> properties;
  int lists = 0;  // number of calls of ListProperties
  int releases = 0;

  Velmora::SDK::u32 GetValue(WCHAR*, Velmora::SDK::u32, const WCHAR*, void*, const WCHAR*) override {
    return 0;
  }
  void ListProperties(Velmora::SDK::IHostPropertyList* list, Velmora::SDK::u32 zero) override {
    EXPECT_EQ(list, this);
    EXPECT_EQ(zero, 0u);
    ++lists;
  }
  Velmora::SDK::u32 Count() override { return static_cast<Velmora::SDK::u32>(properties.size()); }
  bool At(Velmora::SDK::u32 index, WCHAR* internalName, WCHAR* displayName, Velmora::SDK::u32 size) override {
    EXPECT_EQ(size, 1024u);
    if (!properties[index].isGiven) return false;
    CopyTerminated(internalName, size, WStringView(properties[index].internalName));
    CopyTerminated(displayName, size, WStringView(properties[index].displayName));
    return true;
  }
  void Release() override { ++releases; }
};

// Reads the selection on another thread when the window posts command 32000, as the extension does.
class PanelHost : public RenameHost {
 public:
  Velmora::SDK::RenameContext* context = nullptr;
  ListedProperties properties;
  bool runsCommand = true;              // whether command 32000 is carried out
  std::function<void()> beforeReading;  // called on the main thread
  std::function<void()> beforeDocument;
  std::function<void()> beforeStringList;
  bool fillsBuffers = false;              // requested texts fill the whole buffer, without a terminator
  std::vector<Velmora::SDK::u32> posted;  // the command numbers
  std::optional<WString> fileText;        // the text that ReadTextFile returns
  std::vector<std::pair<WString, Velmora::SDK::u32>> readFiles;  // paths and buffer sizes
  std::intptr_t event = 0;                                       // of the last command 32000

  ~PanelHost() override { Join(); }
  void Join() {
    if (mainThread_.joinable()) mainThread_.join();
  }

  Velmora::SDK::IHostPropertyList* CreatePropertyList() override { return &properties; }
  Velmora::SDK::IHostXmlDocument* CreateXmlDocument() override {
    if (beforeDocument) beforeDocument();
    return RenameHost::CreateXmlDocument();
  }
  Velmora::SDK::IHostStringList* CreateStringList() override {
    if (beforeStringList) beforeStringList();
    return RenameHost::CreateStringList();
  }
  bool AskText(const WCHAR* title, const WCHAR* prompt, const WCHAR* defaultText, const WCHAR* hint,
               WCHAR* buffer, Velmora::SDK::u32 size, HWND parent, Velmora::SDK::u32 zero) override {
    if (!fillsBuffers)
      return RenameHost::AskText(title, prompt, defaultText, hint, buffer, size, parent, zero);
    std::fill_n(buffer, size, W('n'));
    return true;
  }
  void PostCommand(Velmora::SDK::u32 number, std::intptr_t a, std::intptr_t b) override {
    EXPECT_EQ(a, 0);
    posted.push_back(number);
    event = b;
    if (!runsCommand) return;
    Join();
    mainThread_ = std::thread([this, b] {
      if (beforeReading) beforeReading();
      context->rows.Set(Velmora::SDK::ReadSelection(*this));
      SetEvent(reinterpret_cast<HANDLE>(b));
    });
  }
  bool ReadTextFile(WCHAR* buffer, Velmora::SDK::u32 size, const WCHAR* path) override {
    readFiles.emplace_back(path, size);
    if (fillsBuffers) {
      std::fill_n(buffer, size, W('n'));
      return true;
    }
    if (fileText) CopyTerminated(buffer, size, WStringView(*fileText));
    return fileText.has_value();
  }

 private:
  std::thread mainThread_;
};

// A window with rows, opened as by the extension. Tests operate `form` like a user and process posted
// messages with Deliver or Wait.
class PanelTest : public testing::Test {
 protected:
  using WString = ::WString;

  PanelTest() { host_.context = &context_; }
  ~PanelTest() override {
    engine_->worker.Quit();
    engine_->worker.WaitForEnd(INFINITE);
    host_.Join();
  }

  // Opens the window with files of these names selected and waits for the first preview.
  void Open(const std::vector<WString>& names = {}) {
    Select(names);
    context_.rows.Set(Velmora::SDK::ReadSelection(host_));
    engine_->propertyManager = &host_.properties;
    ASSERT_TRUE(engine_->worker.Start());
    frame.Open(&list);
    form.Open();
    frame.FillList();
    Settle();
  }

  void Select(const std::vector<WString>& names) {
    host_.selection.clear();
    for (const WString& name : names) host_.selection.push_back(host_.AddFile(name));
  }

  // Passes all posted messages to the form.
  void Deliver() {
    PostedMessage message;
    while (view.messages.Take(message, 0)) Hand(message);
  }

  // Like Deliver, and waits for the work that the worker has been given.
  void Settle() {
    do {
      Deliver();
      ASSERT_TRUE(engine_->worker.WaitUntilIdle());
    } while (HandOne());
    Deliver();
  }

  // Removes the posted messages and returns them without passing them to the form.
  std::vector<UINT> Waiting() {
    std::vector<UINT> waiting;
    PostedMessage message;
    while (view.messages.Take(message, 0)) waiting.push_back(message.message);
    return waiting;
  }

  void Type(int control, const WString& text) {
    view[control].text = text;
    form.Change(control);
  }
  void Choose(int control, int line) {
    view[control].selectedLine = line;
    form.Change(control);
  }
  void Check(int control, bool isChecked) {
    view[control].isChecked = isChecked;
    form.Press(control);
  }

  // Starts a preview of "x[?p][C]" and waits until the gate blocks it in the first row.
  void PreviewIntoGate(Velmora::SDK::GateProperties& gate) {
    engine_->propertyManager = &gate;
    Type(Velmora::SDK::kNameTemplate, W("x[?p][C]"));
    Deliver();
    gate.entered.Acquire();
    gate.isOpen = true;  // does not block the other rows
  }

  // Performs an action while the worker is blocked. The worker continues when it is asked to stop.
  template <typename Action>
  void WhileHeld(Velmora::SDK::Semaphore& held, Action action) {
    std::atomic<bool> isDone{false};
    std::thread opener([&] {
      while (!engine_->worker.IsStopping() && !isDone) std::this_thread::yield();
      held.Release();
    });
    action();
    isDone = true;
    opener.join();
  }

  std::vector<WString> NewNames() const {
    std::vector<WString> names;
    for (const void* const row : list.rows)
      names.push_back(static_cast<const Velmora::SDK::MultiRenameItem*>(row)->newName);
    return names;
  }
  std::vector<Velmora::SDK::u32> States() const {
    std::vector<Velmora::SDK::u32> states;
    for (const void* const row : list.rows)
      states.push_back(static_cast<const Velmora::SDK::MultiRenameItem*>(row)->state);
    return states;
  }
  Velmora::SDK::MultiRenameItem& Row(std::size_t index) {
    return *static_cast<Velmora::SDK::MultiRenameItem*>(list.rows[index]);
  }
  std::vector<WString> UndoFiles() const { return scratch_.Names(W("Undo")); }

  const ScratchFolder scratch_;
  PanelHost host_;
  Velmora::SDK::OwnedEngine engine_ = [this] {
    host_.configFolder = scratch_.Path() + W("\\");
    return Velmora::SDK::OwnedEngine(new Velmora::SDK::MultiRenameEngine(&host_));
  }();
  Velmora::SDK::MultiRenameProfiles profiles_{host_};
  Velmora::SDK::RenameContext context_{host_, *engine_, profiles_, {}, {1}, {false}};
  VectorList list;
  FrameWindow frameView;
  PanelWindow view;
  Velmora::SDK::FrameForm frame{frameView, context_};
  Velmora::SDK::PanelForm form{view, frame, context_};

 private:
  void Hand(const PostedMessage& message) {
    EXPECT_TRUE(form.OnMessage(message.message, message.first, message.second)) << message.message;
  }
  bool HandOne() {
    PostedMessage message;
    if (!view.messages.Take(message, 0)) return false;
    Hand(message);
    return true;
  }
};
