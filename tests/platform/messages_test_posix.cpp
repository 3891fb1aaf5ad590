// Messages: behaviour of the native build only.

#include <thread>

#include "platform/faults_on_demand.h"
#include "platform/message_window.h"
#include "platform/outcome.h"

namespace {

class MessagesPosixTest : public FaultsOnDemand {};

TEST_F(MessagesPosixTest, AThreadWithoutAQueueGetsNothing) {
  std::thread([] {
    EXPECT_EQ(FailureOf(PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0)), 1444u);
  }).join();
}

TEST_F(MessagesPosixTest, AFilterOfNumbersOrOfNoWindowIsRefused) {
  const MessageWindow window;
  MSG message;
  EXPECT_EQ(GetMessageW(&message, nullptr, WM_APP, WM_APP), -1);
  EXPECT_EQ(GetLastError(), 87u);
  EXPECT_EQ(FailureOf(PeekMessageW(&message, nullptr, 0, WM_APP, PM_REMOVE)), 87u);
  EXPECT_EQ(GetMessageW(&message, reinterpret_cast<HWND>(&message), 0, 0), -1);
  EXPECT_EQ(GetLastError(), 1400u);
}

TEST_F(MessagesPosixTest, AThreadWithAnExactNumberIsNamedByCreateThreadBeforeItBegins) {
  DWORD number = 0;
  const HANDLE thread = CreateThread(
      nullptr, 0,
      [](LPVOID argument) -> DWORD {
        EXPECT_EQ(GetCurrentThreadId(), *static_cast<DWORD*>(argument));
        return 0;
      },
      &number, CREATE_SUSPENDED, &number);
  ResumeThread(thread);
  EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
  CloseHandle(thread);
}

TEST_F(MessagesPosixTest, EachFunctionFailsOnDemand) {
  const MessageWindow window;
  MSG message;
  const auto getOne = [&]() -> DWORD {
    PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
    return FailureOf(GetMessageW(&message, nullptr, 0, 0) != -1);
  };
  const auto peekOne = [&] {
    PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
    return FailureOf(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  };
  ExpectSecondCallFails("GetMessageW", getOne);
  ExpectSecondCallFails("PeekMessageW", peekOne);
  ExpectSecondCallFails("PostThreadMessageW",
                        [] { return FailureOf(PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0)); });
  ExpectSecondCallFails("PostMessageW",
                        [&] { return FailureOf(PostMessageW(window.Handle(), WM_APP, 0, 0)); });
  ExpectSecondCallFails("SwitchToThread", [] { return FailureOf(SwitchToThread()); });
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
  }
}

}  // namespace
