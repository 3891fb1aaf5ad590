// A fake host for the extension object of MultiRename and its window: commands posted to its main thread wait
// until the test runs them, and its controls are plain values.
#pragma once

#include <chrono>
#include <optional>

#include "frame/host/host_controls.h"
#include "multirename/panel_window.h"
#include "support/semaphore.h"

namespace Velmora::SDK {

// Requests the texts of all its rows at each refresh, like a list that is painted.
class PaintedList final : public IHostListControl {
 public:
  static constexpr u32 kId = 77;

  std::vector<void*> rows;
  std::set<std::size_t> selected;
  std::vector<WString> headings;
  std::vector<WString> shown;  // the new names that were painted last
  u32 rowHeight = 0;
  bool wasReleased = false;
  IEventCallback* contextMenu = nullptr;

  PaintedList() = default;
  PaintedList(const PaintedList&) = delete;
  PaintedList& operator=(const PaintedList&) = delete;
  ~PaintedList() { End(); }
  void End() {
    if (contextMenu) std::exchange(contextMenu, nullptr)->Release();
  }

  u32 GetId() override { return kId; }
  u32 GetImageSet() override { return 5; }
  void SetRowProvider(IMLRowCallBack* rowProvider) override { provider_ = rowProvider; }
  void* CreateRow(void* item) override { return item; }
  void AddRow(void* row) override { rows.push_back(row); }
  void Refresh() override { Paint(); }
  void Clear() override {
    Paint();  // the old rows still exist
    rows.clear();
    selected.clear();
  }
  u32 GetRows(void** items, u32 size) override {
    std::copy_n(rows.begin(), std::min<std::size_t>(size, rows.size()), items);
    return static_cast<u32>(rows.size());
  }
  void GetCounts(u32* rowCount, u32* selectedCount) override {
    *rowCount = static_cast<u32>(rows.size());
    *selectedCount = static_cast<u32>(selected.size());
  }
  void MoveRowUp() override { moves.push_back("up"); }
  void MoveRowDown() override { moves.push_back("down"); }
  void MoveRowTop() override { moves.push_back("top"); }
  void MoveRowBottom() override { moves.push_back("bottom"); }
  void AddColumn(const WCHAR* heading, u32 width, u32 number) override {
    EXPECT_EQ(width, 200u);
    EXPECT_EQ(number, headings.size() + 2);
    headings.emplace_back(heading);
  }
  void SetRowHeight(u32 height) override { rowHeight = height; }
  void SetEventCallback(u32 event, IEventCallback* callback) override {
    EXPECT_EQ(event, 1u);
    End();
    contextMenu = callback;
  }
  bool FilterMessage(tagMSG*) override {
    ++filtered;
    if (const auto action = std::exchange(atMessage, nullptr)) action();
    return false;
  }

  std::vector<std::string> moves;
  int filtered = 0;
  std::function<void()> atMessage;  // called at the next message that the loop offers to the list

 private:
  void Paint() {
    shown.clear();
    if (!provider_) return;
    for (void* const row : rows) {
      WCHAR text[300];
      provider_->GetCellText(row, 3, text, 300);
      shown.emplace_back(text);
    }
  }

  IMLRowCallBack* provider_ = nullptr;
};

class PaintedContainer final : public IHostContainer {
 public:
  bool hasLists = true;
  PaintedList list;
  HWND docked = nullptr;

  HWND CreateControl(u32 kind, u32 width) override {
    EXPECT_EQ(kind, 500u);
    EXPECT_EQ(width, 200u);
    return hasLists ? reinterpret_cast<HWND>(&list) : nullptr;
  }
  void Dock(IMultiWindow* window, u32) override { docked = window ? window->GetHandle() : nullptr; }
};

class WindowHost final : public RenameHost {
 public:
  bool hasContainers = true;
  bool hasLists = true;
  std::function<void()> beforeContainer;  // called on the window's thread
  std::atomic<bool> throwsAtSelection{false};
  std::function<void()> atAskText;          // called while the box is open
  std::atomic<int> containers{0};           // how many were requested
  std::atomic<int> closed{0};               // number of calls of ExtensionClosed
  std::deque<PaintedContainer> controls;    // one for each window
  std::atomic<int> controlsOut{0};          // how many were not given back
  IHostPropertyManager* manager = nullptr;  // if null, `properties` is used
  ListedProperties properties;

  struct Command {
    u32 number;
    std::intptr_t a;
    std::intptr_t b;
  };

  // Waits for the next command for the main thread. Returns nothing if none comes within a minute, which is
  // never needed.
  std::optional<Command> TakeCommand() {
    std::unique_lock lock(mutex_);
    if (!posted_.wait_for(lock, std::chrono::minutes(1), [this] { return !commands_.empty(); }))
      return std::nullopt;
    const Command command = commands_.front();
    commands_.pop_front();
    return command;
  }
  std::vector<u32> WaitingCommands() {
    const std::lock_guard lock(mutex_);
    std::vector<u32> numbers;
    for (const Command& command : commands_) numbers.push_back(command.number);
    return numbers;
  }

  int FileListRequest(u32 request, IHostFileList* list, u32 marker, u32 zero) override {
    if (throwsAtSelection) throw std::runtime_error("the host fails");
    return RenameHost::FileListRequest(request, list, marker, zero);
  }
  void ExtensionClosed() override { ++closed; }
  void PostCommand(u32 number, std::intptr_t a, std::intptr_t b) override {
    const std::lock_guard lock(mutex_);
    commands_.push_back({number, a, b});
    posted_.notify_all();
  }
  IHostPropertyManager* GetPropertyManager() override { return manager ? manager : &properties; }
  IHostPropertyList* CreatePropertyList() override { return &properties; }
  HWND CreateControl(u32 kind, HWND parent, u32 style) override {
    EXPECT_EQ(kind, 1000u);
    EXPECT_NE(parent, nullptr);
    EXPECT_EQ(style, 0x56000000u);
    ++containers;
    if (beforeContainer) beforeContainer();
    if (!hasContainers) return nullptr;
    PaintedContainer& container = controls.emplace_back();
    container.hasLists = hasLists;
    return reinterpret_cast<HWND>(&container);
  }
  void* GetService(u32 number, std::uintptr_t handle) override {
    if (number == kServiceContainerControl) {
      ++controlsOut;
      return static_cast<IHostContainer*>(reinterpret_cast<PaintedContainer*>(handle));
    }
    if (number == kServiceListControl) {
      ++controlsOut;
      return static_cast<IHostListControl*>(reinterpret_cast<PaintedList*>(handle));
    }
    return RenameHost::GetService(number, handle);
  }
  void ReleaseService(void* service, u32 number) override {
    for (PaintedContainer& container : controls) {
      if (service == static_cast<IHostContainer*>(&container)) {
        EXPECT_EQ(container.docked, nullptr);
        --controlsOut;
        return;
      }
      if (service == static_cast<IHostListControl*>(&container.list)) {
        EXPECT_EQ(container.list.rows.size(), 0u);
        container.list.wasReleased = true;
        container.list.End();
        --controlsOut;
        return;
      }
    }
    RenameHost::ReleaseService(service, number);
  }
  bool AskText(const WCHAR* title, const WCHAR* prompt, const WCHAR* defaultText, const WCHAR* hint,
               WCHAR* buffer, u32 size, HWND parent, u32 zero) override {
    if (!atAskText) return RenameHost::AskText(title, prompt, defaultText, hint, buffer, size, parent, zero);
    atAskText();
    return false;
  }

 private:
  std::mutex mutex_;  // guards the members below
  std::condition_variable posted_;
  std::deque<Command> commands_;
};

}  // namespace Velmora::SDK
