// The controls that an extension gets from its host, in the native build, where they need no parent.
#include <gmock/gmock.h>

#include "host/controls/controls.h"
#include "host/controls/vector_list.h"
#include "host/services/host_app.h"
#include "recorded_output.h"
#include "support/row_texts.h"
#include "support/scratch_folder.h"

using testing::ElementsAre;
using testing::Pair;

namespace QxHost {
namespace {

using namespace Velmora::SDK;

SystemAnswers AnswersIn(const ScratchFolder& scratch) {
  SystemAnswers answers;
  answers.configFolder = scratch.Path(W("config"));
  return answers;
}

// A window that a container docks.
class DockedWindow final : public IMultiWindow {
 public:
  HWND GetHandle() override {
    ++requests;
    return reinterpret_cast<HWND>(this);
  }
  bool FilterMessage(tagMSG*) override { return false; }
  void DestroyHandle() override {}

  int requests = 0;
};

class HostControlsTest : public testing::Test {
 protected:
  // Returns the interface of the control with this handle.
  template <typename Interface>
  Interface* Service(u32 kind, HWND handle) {
    return static_cast<Interface*>(host_.GetService(kind, reinterpret_cast<std::uintptr_t>(handle)));
  }

  ScratchFolder scratch_;
  RecordedOutput recorded_;
  std::unique_ptr<Reporter> reporter_ = MakeJsonReporter(recorded_.output);
  Questions questions_{*reporter_, recorded_.output, {}, {}, nullptr};
  Shared shared_{recorded_.output, *reporter_, LanguageTable(), AnswersIn(scratch_), questions_, false};
  HostApp host_{shared_, 2, "MultiRename"};
};

TEST_F(HostControlsTest, AContainerIsMadeAndTheListInIt) {
  const HWND container = host_.CreateControl(1000, nullptr, 0x56000000);
  ASSERT_NE(container, nullptr);
  auto* const docks = Service<IHostContainer>(1000, container);
  ASSERT_NE(docks, nullptr);
  DockedWindow window;
  docks->Dock(&window, 230);
  EXPECT_EQ(window.requests, 1);
  const HWND handle = docks->CreateControl(500, 200);
  auto* const list = Service<IHostListControl>(500, handle);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->GetImageSet(), 5u);
  int item = 0;
  list->AddRow(list->CreateRow(&item));
  u32 rows = 0;
  u32 selected = 1;
  list->GetCounts(&rows, &selected);
  EXPECT_THAT(std::pair(rows, selected), Pair(1u, 0u));
  host_.ReleaseService(list, 0);
  docks->Dock(nullptr, 0);
  host_.ReleaseService(docks, 0);
}

TEST_F(HostControlsTest, OtherKindsAndHandlesThatAreNoneGiveNothing) {
  EXPECT_EQ(host_.CreateControl(500, nullptr, 0), nullptr);
  EXPECT_EQ(host_.CreateControl(3000, nullptr, 0), nullptr);
  const HWND container = host_.CreateControl(1000, nullptr, 0);
  EXPECT_EQ(Service<IHostContainer>(1000, container)->CreateControl(1000, 0), nullptr);
  EXPECT_EQ(Service<void>(500, container), nullptr);
  EXPECT_EQ(Service<void>(1000, nullptr), nullptr);
  EXPECT_EQ(Service<void>(1000, reinterpret_cast<HWND>(&host_)), nullptr);
}

TEST_F(HostControlsTest, AControlThatIsGivenBackIsNotFoundAnyMore) {
  const HWND container = host_.CreateControl(1000, nullptr, 0);
  auto* const docks = Service<IHostContainer>(1000, container);
  host_.ReleaseService(docks, 1000);
  EXPECT_EQ(Service<void>(1000, container), nullptr);
  host_.ReleaseService(docks, 1000);
}

TEST_F(HostControlsTest, EventsGoToTheSinkAndNowhereWithoutOne) {
  const HWND container = host_.CreateControl(1000, nullptr, 0);
  const HWND handle = Service<IHostContainer>(1000, container)->CreateControl(500, 200);
  auto& list = *static_cast<VectorList*>(Service<IHostListControl>(500, handle));
  int items[2] = {};
  for (int& item : items) list.AddRow(&item);
  list.Select({{0, 1}});
  std::vector<std::pair<std::intptr_t, s32>> events;
  host_.SetEventSink([&](std::intptr_t source, s32 code) { events.emplace_back(source, code); });
  list.Select({{1, 2}});
  EXPECT_THAT(events, ElementsAre(Pair(static_cast<std::intptr_t>(list.GetId()), kSelectionChanged)));
  host_.SetEventSink(nullptr);
  list.Select({{0, 2}});
  EXPECT_EQ(events.size(), 1u);
}

TEST_F(HostControlsTest, TheListOfTheNextRunHasTheWidthsOfThisOne) {
  {
    const HWND handle =
        Service<IHostContainer>(1000, host_.CreateControl(1000, nullptr, 0))->CreateControl(500, 200);
    auto& list = *static_cast<VectorList*>(Service<IHostListControl>(500, handle));
    list.AddColumn(W("Old"), 200, 2);
    list.SetColumnWidth(2, 77);
    shared_.settings.Save();
  }
  Shared next(recorded_.output, *reporter_, LanguageTable(), AnswersIn(scratch_), questions_, false);
  HostApp host(next, 2, "MultiRename");
  const HWND container = host.CreateControl(1000, nullptr, 0);
  auto* const docks =
      static_cast<IHostContainer*>(host.GetService(1000, reinterpret_cast<std::uintptr_t>(container)));
  const HWND handle = docks->CreateControl(500, 200);
  auto& list = *static_cast<VectorList*>(
      static_cast<IHostListControl*>(host.GetService(500, reinterpret_cast<std::uintptr_t>(handle))));
  list.AddColumn(W("Old"), 200, 2);
  EXPECT_EQ(list.Columns().at(0).width, 77u);
  EXPECT_EQ(recorded_.problems, "");
}

}  // namespace
}  // namespace QxHost
