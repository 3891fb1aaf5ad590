// Threads, events, waits and messages.

#include <gtest/gtest.h>

#include <atomic>

#include "platform/handles.h"
#include "platform/message_window.h"
#include "platform/outcome.h"
#include "support/wait_limit.h"

namespace {

FileHandle NewEvent(bool isSet) {
  return FileHandle(CreateEventW(nullptr, FALSE, isSet ? TRUE : FALSE, nullptr));
}

TEST(EventsTest, EachSetOfAnEventEndsOneWait) {
  const FileHandle event = NewEvent(false);
  ASSERT_TRUE(event.IsOpen());
  EXPECT_EQ(WaitForSingleObject(event.Get(), 0), WAIT_TIMEOUT);
  EXPECT_TRUE(SetEvent(event.Get()));
  EXPECT_TRUE(SetEvent(event.Get()));
  EXPECT_EQ(WaitForSingleObject(event.Get(), 0), WAIT_OBJECT_0);
  EXPECT_EQ(WaitForSingleObject(event.Get(), 1), WAIT_TIMEOUT);
}

TEST(EventsTest, AnEventCanBeginSetAndBeReset) {
  const FileHandle event = NewEvent(true);
  EXPECT_TRUE(ResetEvent(event.Get()));
  EXPECT_EQ(WaitForSingleObject(event.Get(), 0), WAIT_TIMEOUT);
  const FileHandle other = NewEvent(true);
  EXPECT_EQ(WaitForSingleObject(other.Get(), INFINITE), WAIT_OBJECT_0);
}

TEST(EventsTest, AClosedHandleIsNone) {
  FileHandle event = NewEvent(true);
  const HANDLE handle = event.Get();
  EXPECT_TRUE(CloseHandle(event.Detach()));
  EXPECT_EQ(FailureOf(SetEvent(handle)), 6u);
  EXPECT_EQ(FailureOf(ResetEvent(handle)), 6u);
  EXPECT_EQ(WaitForSingleObject(handle, 0), WAIT_FAILED);
  EXPECT_EQ(GetLastError(), 6u);
  EXPECT_EQ(FailureOf(CloseHandle(handle)), 6u);
}

struct Talk {
  FileHandle question = NewEvent(false);
  FileHandle answer = NewEvent(false);
  std::atomic<int> rounds{0};
};

DWORD Answer(LPVOID parameter) {
  Talk& talk = *static_cast<Talk*>(parameter);
  for (int round = 0; round < 100; ++round) {
    if (WaitForSingleObject(talk.question.Get(), kWaitLimit) != WAIT_OBJECT_0) return 1;
    ++talk.rounds;
    SetEvent(talk.answer.Get());
  }
  return 0;
}

TEST(EventsTest, ASuspendedThreadBeginsWhenItIsResumedAndItsEndIsWaitedFor) {
  Talk talk;
  const FileHandle thread(CreateThread(nullptr, 0, Answer, &talk, CREATE_SUSPENDED, nullptr));
  ASSERT_TRUE(thread.IsOpen());
  SetEvent(talk.question.Get());
  EXPECT_EQ(WaitForSingleObject(talk.answer.Get(), 20), WAIT_TIMEOUT);
  EXPECT_EQ(talk.rounds, 0);
  EXPECT_EQ(ResumeThread(thread.Get()), 1u);
  EXPECT_EQ(WaitForSingleObject(talk.answer.Get(), kWaitLimit), WAIT_OBJECT_0);
  EXPECT_EQ(WaitForSingleObject(thread.Get(), 0), WAIT_TIMEOUT);
  for (int round = 1; round < 100; ++round) {
    SetEvent(talk.question.Get());
    ASSERT_EQ(WaitForSingleObject(talk.answer.Get(), kWaitLimit), WAIT_OBJECT_0);
  }
  EXPECT_EQ(WaitForSingleObject(thread.Get(), kWaitLimit), WAIT_OBJECT_0);
  // A thread that has ended remains signaled.
  EXPECT_EQ(WaitForSingleObject(thread.Get(), 0), WAIT_OBJECT_0);
  EXPECT_EQ(talk.rounds, 100);
}

struct Postman {
  HWND window;
  int count;
};

DWORD PostAll(LPVOID parameter) {
  const Postman& postman = *static_cast<Postman*>(parameter);
  for (int number = 0; number < postman.count; ++number) {
    if (!PostMessageW(postman.window, 33868, static_cast<WPARAM>(number), -number)) return 1;
  }
  return 0;
}

TEST(EventsTest, MessagesOfAnotherThreadArriveInTheirOrder) {
  MessageWindow window;
  Postman postman{window.Handle(), 500};
  const FileHandle thread(CreateThread(nullptr, 0, PostAll, &postman, 0, nullptr));
  ASSERT_TRUE(thread.IsOpen());
  for (int number = 0; number < postman.count; ++number) {
    PostedMessage message;
    ASSERT_TRUE(window.Take(message, kWaitLimit));
    EXPECT_EQ(message.message, 33868u);
    EXPECT_EQ(message.first, static_cast<WPARAM>(number));
    EXPECT_EQ(message.second, -number);
  }
  EXPECT_EQ(WaitForSingleObject(thread.Get(), kWaitLimit), WAIT_OBJECT_0);
  PostedMessage none;
  EXPECT_FALSE(window.Take(none, 0));
  EXPECT_FALSE(window.Take(none, 5));
}

TEST(EventsTest, AMessageToAWindowThatIsGoneFails) {
  HWND handle;
  {
    const MessageWindow window;
    handle = window.Handle();
    EXPECT_TRUE(PostMessageW(handle, 33768, 0, 0));
  }
  EXPECT_EQ(FailureOf(PostMessageW(handle, 33768, 0, 0)), 1400u);
}

TEST(EventsTest, ASleepTakesItsTime) {
  const FileHandle event = NewEvent(false);
  Sleep(1);
  EXPECT_EQ(WaitForSingleObject(event.Get(), 1), WAIT_TIMEOUT);
}

}  // namespace
