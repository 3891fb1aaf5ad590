// The message loop of the window's thread, and the table of such loops.
#include <gmock/gmock.h>

#include <functional>
#include <thread>

#include "multirename/window/message_loops.h"
#include "platform/message_window.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;

struct RecordingFilter final : MessageFilter {
  explicit RecordingFilter(std::vector<std::string>& log, std::string name) : log_(log), name_(name) {}
  bool FilterMessage(MSG& message) override {
    log_.push_back(name_ + std::to_string(message.message - WM_APP));
    if (atMessage) atMessage();
    return takes;
  }
  bool takes = false;
  std::function<void()> atMessage;

 private:
  std::vector<std::string>& log_;
  std::string name_;
};

struct RecordingIdle final : IdleHandler {
  explicit RecordingIdle(std::vector<std::string>& log, std::string name, int more)
      : more_(more), log_(log), name_(name) {}
  bool OnIdle(int count) override {
    log_.push_back(name_ + std::to_string(count));
    if (atIdle) atIdle();
    return count < more_;
  }
  std::function<void()> atIdle;

 private:
  const int more_;  // the number of calls after which it wants no more
  std::vector<std::string>& log_;
  std::string name_;
};

// Each test runs on a new thread, because a message queue belongs to its thread.
class MessageLoopTest : public testing::Test {
 protected:
  template <typename Work>
  void OnNewThread(Work work) {
    std::thread([&work] {
      MSG message;
      PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);  // creates the message queue
      work();
    }).join();
  }
  static void Post(UINT message, WPARAM first = 0) {
    ASSERT_TRUE(PostThreadMessageW(GetCurrentThreadId(), message, first, 0));
  }

  std::vector<std::string> log_;
};

TEST_F(MessageLoopTest, ReturnsTheCodeOfTheQuitMessage) {
  OnNewThread([] {
    MessageLoop loop;
    PostQuitMessage(12);
    EXPECT_EQ(loop.Run(), 12);
  });
}

TEST_F(MessageLoopTest, TheFilterThatWasAddedLastSeesAMessageFirst) {
  OnNewThread([this] {
    MessageLoop loop;
    RecordingFilter first(log_, "first ");
    RecordingFilter second(log_, "second ");
    RecordingFilter third(log_, "third ");
    loop.AddFilter(first);
    loop.AddFilter(second);
    loop.AddFilter(third);
    loop.RemoveFilter(second);
    Post(WM_APP + 1);
    PostQuitMessage(0);
    loop.Run();
  });
  EXPECT_THAT(log_, ElementsAre("third 1", "first 1"));
}

TEST_F(MessageLoopTest, AFilterThatTakesAMessageEndsTheMatter) {
  OnNewThread([this] {
    MessageLoop loop;
    RecordingFilter first(log_, "first ");
    RecordingFilter second(log_, "second ");
    second.takes = true;
    loop.AddFilter(first);
    loop.AddFilter(second);
    Post(WM_APP + 1);
    PostQuitMessage(0);
    loop.Run();
  });
  EXPECT_THAT(log_, ElementsAre("second 1"));
}

TEST_F(MessageLoopTest, AMessageThatNoFilterTakesIsDispatchedAndOneThatIsTakenIsNot) {
  OnNewThread([this] {
    MessageLoop loop;
    RecordingFilter filter(log_, "filter ");
    loop.AddFilter(filter);
    const MessageWindow window([&](const PostedMessage& message) {
      log_.push_back("window " + std::to_string(message.message - WM_APP));
      filter.takes = true;
    });
    PostMessageW(window.Handle(), WM_APP + 1, 0, 0);
    PostMessageW(window.Handle(), WM_APP + 2, 0, 0);
    PostQuitMessage(0);
    loop.Run();
  });
  EXPECT_THAT(log_, ElementsAre("filter 1", "window 1", "filter 2"));
}

TEST_F(MessageLoopTest, FiltersMayGoAndComeWhileAMessageIsFiltered) {
  OnNewThread([this] {
    MessageLoop loop;
    RecordingFilter first(log_, "first ");
    RecordingFilter second(log_, "second ");
    RecordingFilter third(log_, "third ");
    RecordingFilter late(log_, "late ");
    loop.AddFilter(first);
    loop.AddFilter(second);
    loop.AddFilter(third);
    third.atMessage = [&] {
      loop.RemoveFilter(third);
      loop.RemoveFilter(second);
      loop.AddFilter(late);
    };
    Post(WM_APP + 1);
    Post(WM_APP + 2);
    PostQuitMessage(0);
    loop.Run();
  });
  EXPECT_THAT(log_, ElementsAre("third 1", "first 1", "late 2", "first 2"));
}

TEST_F(MessageLoopTest, IdleHandlersAreCalledUntilNoneWantsMore) {
  OnNewThread([this] {
    MessageLoop loop;
    RecordingIdle handler(log_, "idle ", 2);
    loop.AddIdleHandler(handler);
    RecordingIdle last(log_, "last ", 0);
    last.atIdle = [&] {
      if (log_.size() >= 6) PostQuitMessage(0);
    };
    loop.AddIdleHandler(last);
    loop.Run();
  });
  EXPECT_THAT(log_, ElementsAre("idle 0", "last 0", "idle 1", "last 1", "idle 2", "last 2"));
}

TEST_F(MessageLoopTest, NoIdleHandlerIsCalledWhileAMessageIsWaiting) {
  OnNewThread([this] {
    MessageLoop loop;
    RecordingIdle handler(log_, "idle ", 1000);
    RecordingFilter filter(log_, "filter ");
    loop.AddIdleHandler(handler);
    loop.AddFilter(filter);
    handler.atIdle = [&] { log_.size() < 4 ? Post(WM_APP + 5) : PostQuitMessage(0); };
    Post(WM_APP + 1);
    Post(WM_APP + 2);
    loop.Run();
  });
  EXPECT_THAT(log_, ElementsAre("filter 1", "filter 2", "idle 0", "filter 5", "idle 0"));
}

TEST_F(MessageLoopTest, IdleHandlingIsDoneAgainAfterAMessage) {
  OnNewThread([this] {
    MessageLoop loop;
    RecordingIdle handler(log_, "idle ", 0);
    loop.AddIdleHandler(handler);
    handler.atIdle = [this] { log_.size() < 3 ? Post(513) : PostQuitMessage(0); };
    loop.Run();
  });
  EXPECT_THAT(log_, ElementsAre("idle 0", "idle 0", "idle 0"));
}

// Paint messages, mouse moves and the system's timer recur continually.
TEST_F(MessageLoopTest, NoIdleHandlingFollowsMessages15And160And280And512) {
  for (const UINT last : {15u, 160u, 280u, 512u}) {
    OnNewThread([this, last] {
      MessageLoop loop;
      RecordingIdle handler(log_, "idle after " + std::to_string(last) + ": ", 0);
      loop.AddIdleHandler(handler);
      Post(last);
      // Gives the loop time to call the handler; without that call it waits.
      std::thread later([thread = GetCurrentThreadId()] {
        Sleep(30);
        PostThreadMessageW(thread, WM_QUIT, 0, 0);
      });
      loop.Run();
      later.join();
    });
  }
  EXPECT_THAT(log_, testing::IsEmpty());
}

TEST_F(MessageLoopTest, IdleHandlersMayGoWhileTheyAreCalled) {
  OnNewThread([this] {
    MessageLoop loop;
    RecordingIdle first(log_, "first ", 0);
    RecordingIdle second(log_, "second ", 0);
    loop.AddIdleHandler(first);
    loop.AddIdleHandler(second);
    first.atIdle = [&] {
      loop.RemoveIdleHandler(first);
      loop.RemoveIdleHandler(second);
      PostQuitMessage(0);
    };
    loop.Run();
  });
  EXPECT_THAT(log_, ElementsAre("first 0"));
}

TEST_F(MessageLoopTest, TheTableHoldsTheLoopOfAThreadForTheTimeOfItsEntry) {
  OnNewThread([] {
    MessageLoops& table = MessageLoops::Instance();
    const DWORD thread = GetCurrentThreadId();
    EXPECT_EQ(table.Find(thread), nullptr);
    {
      MessageLoop loop;
      const MessageLoopEntry entry(loop);
      EXPECT_EQ(table.Find(thread), &loop);
      std::thread([&] {
        EXPECT_EQ(table.Find(thread), &loop);
        EXPECT_EQ(table.Find(GetCurrentThreadId()), nullptr);
      }).join();
    }
    EXPECT_EQ(table.Find(thread), nullptr);
  });
}

}  // namespace
}  // namespace Velmora::SDK
