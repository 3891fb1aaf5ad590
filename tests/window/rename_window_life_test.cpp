// How MultiRename's window opens, stores its position, and closes in every state.
#include <gmock/gmock.h>

#include <cstring>
#include <thread>

#include "multirename/form/panel_controls.h"
#include "multirename/gate_properties.h"
#include "support/semaphore.h"
#include "window/modal_driver.h"
#include "window/rename_frame_window.h"

namespace {

using namespace Velmora::SDK;
using testing::ElementsAre;

int FramesOfThread() {
  int count = 0;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM counter) -> BOOL {
        WCHAR name[64] = {};
        GetClassNameW(window, name, 64);
        if (WStringView(name) == W("QXMultiRenameFrame")) ++*reinterpret_cast<int*>(counter);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&count));
  return count;
}

class RenameWindowLife : public RenameFrameWindow {
 protected:
  const FakeConfig::Place kPlace = {W("QXMultieRename"), W("WinPos")};

  void StorePlace(const WINDOWPLACEMENT& placement, std::size_t bytes = sizeof(WINDOWPLACEMENT)) {
    const auto* const data = reinterpret_cast<const unsigned char*>(&placement);
    host_.config.blocks[kPlace].assign(data, data + bytes);
  }
  static WINDOWPLACEMENT PlacementOf(const RECT& area, UINT show = SW_SHOWNORMAL) {
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof(placement);
    placement.showCmd = show;
    placement.rcNormalPosition = area;
    return placement;
  }
  RECT FrameArea() const {
    RECT area = {};
    GetWindowRect(Frame(), &area);
    return area;
  }
  void ExpectFrameSize(LONG width, LONG height) const {
    const RECT area = FrameArea();
    EXPECT_EQ(area.right - area.left, width);
    EXPECT_EQ(area.bottom - area.top, height);
  }
  void ExpectFrameInTheMiddle() const {
    RECT work = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const RECT area = FrameArea();
    EXPECT_LE(std::abs((area.left + area.right) - (work.left + work.right)), 1);
    EXPECT_LE(std::abs((area.top + area.bottom) - (work.top + work.bottom)), 1);
  }
  // Checks everything but the stored position.
  void ExpectDestroyedOnce() {
    EXPECT_EQ(Frame(), nullptr);
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_EQ(closed_, 1);
    EXPECT_EQ(FramesOfThread(), 0);
    EXPECT_THAT(host_.returned, ElementsAre("list", "container"));
    EXPECT_EQ(engine_->notifyWindow, nullptr);
  }
  void ExpectClosedOnce() {
    ExpectDestroyedOnce();
    EXPECT_EQ(host_.config.blocks.count(kPlace), 1u);
  }
};

TEST_F(RenameWindowLife, WithoutAContainerThereIsNoWindowAndNothingIsLeft) {
  host_.hasContainer = false;
  EXPECT_EQ(OpenRenameWindow(*this, loop_), nullptr);
  EXPECT_EQ(FramesOfThread(), 0);
  EXPECT_EQ(host_.controlsOut, 0);
  EXPECT_EQ(closed_, 0);
  EXPECT_TRUE(host_.config.blocks.empty());
}

TEST_F(RenameWindowLife, WithoutAListThereIsNoWindowAndTheContainerIsGivenBack) {
  host_.hasList = false;
  EXPECT_EQ(OpenRenameWindow(*this, loop_), nullptr);
  EXPECT_EQ(FramesOfThread(), 0);
  EXPECT_THAT(host_.returned, ElementsAre("container"));
  EXPECT_EQ(closed_, 0);
}

TEST_F(RenameWindowLife, TheNextTryAfterAFailureOpensTheWindow) {
  host_.hasList = false;
  EXPECT_EQ(OpenRenameWindow(*this, loop_), nullptr);
  host_.hasList = true;
  host_.returned.clear();
  Open({W("a")});
  EXPECT_THAT(OldNames(), ElementsAre(W("a")));
}

TEST_F(RenameWindowLife, WithoutAStoredPlaceItHasItsFirstSizeInTheMiddle) {
  Open();
  ExpectFrameSize(855, 410);
  ExpectFrameInTheMiddle();
}

TEST_F(RenameWindowLife, TheStoredSizeIsKeptAndThePositionIsNot) {
  StorePlace(PlacementOf({3, 5, 1003, 605}));
  Open();
  ExpectFrameSize(1000, 600);
  ExpectFrameInTheMiddle();
}

TEST_F(RenameWindowLife, AStoredMaximizedWindowOpensWithItsNormalSize) {
  StorePlace(PlacementOf({3, 5, 903, 505}, SW_SHOWMAXIMIZED));
  Open();
  EXPECT_FALSE(IsZoomed(Frame()));
  ExpectFrameSize(900, 500);
}

TEST_F(RenameWindowLife, AStoredSizeBelowTheLeastIsTheLeast) {
  StorePlace(PlacementOf({0, 0, 100, 50}));
  Open();
  ExpectFrameSize(850, 400);
}

TEST_F(RenameWindowLife, AStoredSizeBeyondTheScreenIsTheScreens) {
  StorePlace(PlacementOf({0, 0, 20000, 9000}));
  Open();
  RECT work = {};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  ExpectFrameSize(work.right - work.left, work.bottom - work.top);
}

TEST_F(RenameWindowLife, APlaceThatCannotBeIsPassedOver) {
  WINDOWPLACEMENT wrongLength = PlacementOf({0, 0, 1000, 600});
  wrongLength.length = 40;
  const WINDOWPLACEMENT places[] = {
      wrongLength,
      PlacementOf({1000, 600, 0, 0}),
      PlacementOf({5, 5, 5, 600}),
      PlacementOf({-2000000000, 0, 2000000000, 600}),
      PlacementOf({0, 0, 1000, 0x7FFFFFFF}),
  };
  for (const WINDOWPLACEMENT& place : places) {
    StorePlace(place);
    Open();
    ExpectFrameSize(855, 410);
    CloseFrame();
  }
}

TEST_F(RenameWindowLife, ABlockThatEndsEarlyIsPassedOver) {
  StorePlace(PlacementOf({0, 0, 1000, 600}), 20);
  Open();
  ExpectFrameSize(855, 410);
}

TEST_F(RenameWindowLife, ClosingStores44BytesUnderTheSectionThatIsSpelledSo) {
  Open();
  SetWindowPos(Frame(), nullptr, 40, 50, 950, 520, SWP_NOZORDER);
  CloseFrame();
  const std::vector<unsigned char>& block = host_.config.blocks[kPlace];
  ASSERT_EQ(block.size(), 44u);
  WINDOWPLACEMENT placement = {};
  std::memcpy(&placement, block.data(), block.size());
  EXPECT_EQ(placement.length, 44u);
  EXPECT_EQ(placement.rcNormalPosition.right - placement.rcNormalPosition.left, 950);
  EXPECT_EQ(placement.rcNormalPosition.bottom - placement.rcNormalPosition.top, 520);
  ExpectClosedOnce();
}

TEST_F(RenameWindowLife, ItOpensAgainWithTheSizeOfBefore) {
  Open({W("a")});
  SetWindowPos(Frame(), nullptr, 0, 0, 960, 530, SWP_NOMOVE | SWP_NOZORDER);
  CloseFrame();
  Open({W("b")});
  ExpectFrameSize(960, 530);
  EXPECT_THAT(OldNames(), ElementsAre(W("b")));
}

TEST_F(RenameWindowLife, WmCloseFromAnotherThreadCloses) {
  Open({W("a")});
  std::thread([frame = Frame()] { PostMessageW(frame, WM_CLOSE, 0, 0); }).join();
  Settle();
  ExpectClosedOnce();
}

TEST_F(RenameWindowLife, TheObjectClosesAFrameThatIsStillThere) {
  Open({W("a")});
  host_.window = nullptr;
  window_.reset();
  ExpectClosedOnce();
}

TEST_F(RenameWindowLife, ADestroyedFrameIsClosedInTheSameOrder) {
  Open({W("a")});
  DestroyWindow(Frame());
  ExpectClosedOnce();
}

TEST_F(RenameWindowLife, ACloseGoesToItsEndWhateverTheHostThrowsMeanwhile) {
  Open({W("a")});
  host_.throwsAtClose = true;
  CloseFrame();
  ExpectDestroyedOnce();
}

TEST_F(RenameWindowLife, TheLoopGoesOnWithoutTheWindow) {
  Open({W("a")});
  CloseFrame();
  PostThreadMessageW(GetCurrentThreadId(), WM_KEYDOWN, VK_ESCAPE, 0);
  Settle();
  ExpectClosedOnce();
}

TEST_F(RenameWindowLife, ACloseDuringABoxClosesAfterTheBox) {
  Open({W("a")});
  int openDuringBox = -1;
  RunModal(
      [this] {
        PostMessageW(Frame(), MRM_CONFIRM_CLOSE, 0, 0);
        Settle();
        return 0;
      },
      [&](HWND) {
        SendMessageW(Frame(), WM_CLOSE, 0, 0);
        openDuringBox = closed_;
      });
  EXPECT_EQ(openDuringBox, 0);
  ExpectClosedOnce();
}

TEST_F(RenameWindowLife, ACloseDuringAQuestionWithoutCancelEndsTheQuestionWithNo) {
  Open({W("a")});
  host_.textAnswers = {{true, W("one")}};
  Choose(kProfileBox, 1);
  const int line = 2;
  SendDlgItemMessageW(Panel(), kProfileBox, CB_SETCURSEL, line, 0);
  RunModal(
      [this] {
        PostMessageW(GetDlgItem(Panel(), kDeleteProfile), BM_CLICK, 0, 0);
        Settle();
        return 0;
      },
      [&](HWND) { SendMessageW(Frame(), WM_CLOSE, 0, 0); });
  ExpectClosedOnce();
  EXPECT_NE(profiles_.Find(W("one")), nullptr) << "nothing is deleted";
}

TEST_F(RenameWindowLife, ACloseDuringADialogClosesAfterTheDialog) {
  for (const int button : {kPairDialog, kUndoManagerButton}) {
    closed_ = 0;
    host_.returned.clear();
    Open({W("a")});
    RunModal(
        [&] {
          PostMessageW(GetDlgItem(Panel(), button), BM_CLICK, 0, 0);
          Settle();
          return 0;
        },
        [&](HWND) {
          SendMessageW(Frame(), WM_CLOSE, 0, 0);
          EXPECT_EQ(closed_, 0);
        });
    ExpectClosedOnce();
  }
}

TEST_F(RenameWindowLife, ACloseDuringAMenuClosesAfterTheMenu) {
  Open({W("a")});
  PostMessageW(GetDlgItem(Panel(), kNameTags), BM_CLICK, 0, 0);
  PostMessageW(Frame(), WM_CLOSE, 0, 0);
  Settle();
  ExpectClosedOnce();
}

TEST_F(RenameWindowLife, ACloseDuringTheListsMenuClosesAfterTheMenu) {
  Open({W("a")});
  PostMessageW(List(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(List()), MAKELPARAM(300, 300));
  PostMessageW(Frame(), WM_CLOSE, 0, 0);
  Settle();
  ExpectClosedOnce();
}

TEST_F(RenameWindowLife, ACloseDuringAPreviewStopsThePreviewAtItsNextRow) {
  GateProperties gate;
  Open({W("a.txt"), W("b.txt"), W("c.txt")});
  engine_->propertyManager = &gate;
  SetDlgItemTextW(GetDlgItem(Panel(), kNameTemplate), 1001 /* the edit field of a box */, W("[N][?p]"));
  SendMessageW(Panel(), MRM_UPDATE_PREVIEW, 0, 0);
  gate.entered.Acquire();
  std::thread later([&] {
    while (!engine_->worker.IsStopping()) std::this_thread::yield();
    gate.gate.Release();
  });
  SendMessageW(Frame(), WM_CLOSE, 0, 0);
  later.join();
  EXPECT_EQ(gate.requests, 1);
  Settle();
  ExpectClosedOnce();
}

TEST_F(RenameWindowLife, ACloseDuringARunWaitsForTheRun) {
  Open({W("a.txt"), W("b.txt")});
  Type(kNameTemplate, W("[N]1"));
  Semaphore inRun;
  Semaphore go;
  host_.renames.atRun = [&] {
    inRun.Release();
    go.Acquire();
  };
  SendMessageW(Panel(), WM_COMMAND, MAKEWPARAM(kStartButton, BN_CLICKED), 0);
  inRun.Acquire();
  std::thread later([&] { go.Release(); });
  SendMessageW(Frame(), WM_CLOSE, 0, 0);
  later.join();
  Settle();
  ExpectClosedOnce();
  EXPECT_EQ(host_.renames.itemRenames.size(), 2u);
}

TEST_F(RenameWindowLife, ACloseAfterAQuitStillHappensWhenTheObjectGoes) {
  Open({W("a")});
  RunModal(
      [this] {
        PostMessageW(Frame(), MRM_CONFIRM_CLOSE, 0, 0);
        loop_.Run();
        return 0;
      },
      [&](HWND) {
        SendMessageW(Frame(), WM_CLOSE, 0, 0);
        PostThreadMessageW(GetCurrentThreadId(), WM_QUIT, 0, 0);
      });
  host_.window = nullptr;
  window_.reset();
  ExpectClosedOnce();
}

}  // namespace
