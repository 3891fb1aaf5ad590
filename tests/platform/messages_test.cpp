// Message queues of threads, message loops, and windows with a handler.

#include <gmock/gmock.h>

#include <thread>

#include "platform/handles.h"
#include "platform/message_window.h"
#include "platform/outcome.h"
#include "support/wait_limit.h"

using testing::ElementsAre;

namespace {

// Runs on a thread with a new queue.
template <typename Work>
void OnNewThread(Work work) {
  std::thread(work).join();
}

// Creates the calling thread's queue.
void MakeQueue() {
  MSG message;
  PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
}

// Returns the numbers of the messages that a loop gets, followed by its exit code.
std::vector<UINT> RunLoop() {
  std::vector<UINT> taken;
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    taken.push_back(message.message);
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  taken.push_back(static_cast<UINT>(message.wParam));
  return taken;
}

TEST(MessagesTest, AThreadGetsWhatIsPostedToItInItsOrder) {
  OnNewThread([] {
    MakeQueue();
    for (UINT number = 0; number < 3; ++number)
      ASSERT_TRUE(PostThreadMessageW(GetCurrentThreadId(), WM_APP + number, number, -5));
    MSG message;
    for (UINT number = 0; number < 3; ++number) {
      ASSERT_GT(GetMessageW(&message, nullptr, 0, 0), 0);
      EXPECT_EQ(message.hwnd, nullptr);
      EXPECT_EQ(message.message, WM_APP + number);
      EXPECT_EQ(message.wParam, number);
      EXPECT_EQ(message.lParam, -5);
    }
    EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  });
}

TEST(MessagesTest, AMessageToNoWindowIsForTheThreadItself) {
  OnNewThread([] {
    MakeQueue();
    ASSERT_TRUE(PostMessageW(nullptr, WM_APP, 1, 2));
    MSG message;
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.hwnd, nullptr);
    EXPECT_EQ(message.message, WM_APP);
  });
}

TEST(MessagesTest, ALookLeavesTheMessage) {
  OnNewThread([] {
    MakeQueue();
    PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
    MSG message;
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE));
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE));
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, WM_APP);
    EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  });
}

TEST(MessagesTest, PostQuitMessageEndsALoopAfterAllOtherMessages) {
  OnNewThread([] {
    PostQuitMessage(7);
    PostThreadMessageW(GetCurrentThreadId(), WM_APP + 1, 0, 0);
    PostThreadMessageW(GetCurrentThreadId(), WM_APP + 2, 0, 0);
    EXPECT_THAT(RunLoop(), ElementsAre(WM_APP + 1, WM_APP + 2, 7u));
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  });
}

TEST(MessagesTest, AQuitMessageThatIsPostedToAThreadEndsALoopInItsPlace) {
  OnNewThread([] {
    MakeQueue();
    PostThreadMessageW(GetCurrentThreadId(), WM_APP + 1, 0, 0);
    PostThreadMessageW(GetCurrentThreadId(), WM_QUIT, 9, 0);
    PostThreadMessageW(GetCurrentThreadId(), WM_APP + 2, 0, 0);
    EXPECT_THAT(RunLoop(), ElementsAre(WM_APP + 1, 9u));
    MSG message;
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, WM_APP + 2);
  });
}

TEST(MessagesTest, AQuitIsSeenByALookAndStaysUntilItIsTaken) {
  OnNewThread([] {
    PostQuitMessage(3);
    MSG message;
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(message.message, WM_QUIT);
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.wParam, 3u);
    EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  });
}

struct Listener {
  HANDLE isReady;
  std::vector<UINT> taken;
  DWORD number;
};

DWORD Listen(LPVOID parameter) {
  Listener& listener = *static_cast<Listener*>(parameter);
  MakeQueue();
  listener.number = GetCurrentThreadId();
  SetEvent(listener.isReady);
  listener.taken = RunLoop();
  return 0;
}

TEST(MessagesTest, ALoopWaitsForWhatAnotherThreadPosts) {
  const FileHandle isReady(CreateEventW(nullptr, FALSE, FALSE, nullptr));
  Listener listener{isReady.Get(), {}, 0};
  DWORD number = 0;
  const FileHandle thread(CreateThread(nullptr, 0, Listen, &listener, 0, &number));
  ASSERT_EQ(WaitForSingleObject(isReady.Get(), kWaitLimit), WAIT_OBJECT_0);
  EXPECT_EQ(listener.number, number);
  EXPECT_NE(number, 0u);
  EXPECT_NE(number, GetCurrentThreadId());
  EXPECT_EQ(WaitForSingleObject(thread.Get(), 5), WAIT_TIMEOUT);
  ASSERT_TRUE(PostThreadMessageW(number, WM_APP, 0, 0));
  ASSERT_TRUE(PostThreadMessageW(number, WM_QUIT, 4, 0));
  ASSERT_EQ(WaitForSingleObject(thread.Get(), kWaitLimit), WAIT_OBJECT_0);
  EXPECT_THAT(listener.taken, ElementsAre(WM_APP, 4u));
  EXPECT_EQ(FailureOf(PostThreadMessageW(number, WM_APP, 0, 0)), 1444u);
}

TEST(MessagesTest, AThreadHasOneNumber) {
  const DWORD number = GetCurrentThreadId();
  EXPECT_NE(number, 0u);
  EXPECT_EQ(GetCurrentThreadId(), number);
  OnNewThread([number] { EXPECT_NE(GetCurrentThreadId(), number); });
}

TEST(MessagesTest, AThreadCanGiveUpItsTime) {
  SetLastError(0);
  SwitchToThread();
  EXPECT_EQ(GetLastError(), 0u);
}

TEST(MessagesTest, DispatchingCallsTheHandlerOfTheWindow) {
  OnNewThread([] {
    std::vector<PostedMessage> handled;
    const MessageWindow window([&handled](const PostedMessage& message) { handled.push_back(message); });
    const MessageWindow other;
    PostMessageW(window.Handle(), WM_APP + 5, 6, -7);
    PostMessageW(other.Handle(), WM_APP + 6, 0, 0);
    PostMessageW(window.Handle(), WM_CLOSE, 0, 0);
    PostQuitMessage(0);
    EXPECT_THAT(RunLoop(), ElementsAre(WM_APP + 5, WM_APP + 6, WM_CLOSE, 0u));
    ASSERT_EQ(handled.size(), 2u);
    EXPECT_EQ(handled[0].message, WM_APP + 5);
    EXPECT_EQ(handled[0].first, 6u);
    EXPECT_EQ(handled[0].second, -7);
    EXPECT_EQ(handled[1].message, WM_CLOSE);
    EXPECT_TRUE(PostMessageW(window.Handle(), WM_APP, 0, 0));  // handling WM_CLOSE leaves the window open
  });
}

TEST(MessagesTest, TheHandlerGetsNoMessagesOfTheSystem) {
  OnNewThread([] {
    int handled = 0;
    const MessageWindow window([&handled](const PostedMessage&) { ++handled; });
    PostMessageW(window.Handle(), WM_MOUSEMOVE, 0, 0);
    PostMessageW(window.Handle(), WM_APP - 1, 0, 0);
    PostQuitMessage(0);
    RunLoop();
    EXPECT_EQ(handled, 0);
  });
}

TEST(MessagesTest, AHandlerMayDestroyItsWindow) {
  OnNewThread([] {
    std::unique_ptr<MessageWindow> window;
    int handled = 0;
    const std::string kept = "as long as the call";
    window = std::make_unique<MessageWindow>([&, text = kept](const PostedMessage&) {
      window.reset();
      ++handled;
      EXPECT_EQ(text, kept);
    });
    PostMessageW(window->Handle(), WM_APP, 0, 0);
    PostMessageW(window->Handle(), WM_APP, 0, 0);  // removed with the window
    PostQuitMessage(0);
    EXPECT_THAT(RunLoop(), ElementsAre(WM_APP, 0u));
    EXPECT_EQ(handled, 1);
  });
}

TEST(MessagesTest, AWindowTakesItsOwnMessagesAlone) {
  OnNewThread([] {
    MessageWindow window;
    PostThreadMessageW(GetCurrentThreadId(), WM_APP + 1, 0, 0);
    PostMessageW(window.Handle(), WM_APP + 2, 0, 0);
    PostedMessage message;
    ASSERT_TRUE(window.Take(message, 0));
    EXPECT_EQ(message.message, WM_APP + 2);
    EXPECT_FALSE(window.Take(message, 0));
    PostQuitMessage(0);
    EXPECT_THAT(RunLoop(), ElementsAre(WM_APP + 1, 0u));
  });
}

TEST(MessagesTest, AWindowWhoseThreadHasEndedGetsNothing) {
  std::unique_ptr<MessageWindow> window;
  HWND handle = nullptr;
  OnNewThread([&] {
    window = std::make_unique<MessageWindow>();
    handle = window->Handle();
    EXPECT_TRUE(PostMessageW(handle, WM_APP, 0, 0));
  });
  EXPECT_EQ(FailureOf(PostMessageW(handle, WM_APP, 0, 0)), 1400u);
}

}  // namespace
