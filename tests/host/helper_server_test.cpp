// The helper's side of the channel, with an extension whose behaviour each test sets.
#include "host/helper/helper_server.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "frame/host/plugin_base.h"

using namespace std::string_literals;

namespace QxHost {
namespace {

using Velmora::SDK::IHostCommandCall;
using Velmora::SDK::IHostHelperMessage;
using Velmora::SDK::IHostPacketReader;

class FakeExtension final : public Velmora::SDK::PluginBase {
 public:
  std::function<s32(s32 code, IHostHelperMessage& message)> onMessage;

  s32 OnRegister(Velmora::SDK::IHostApp*) override { return 1; }
  const char* GetExtensionId() override { return ""; }
  s32 OnCommand(s32, std::intptr_t, std::intptr_t) override { return 0; }
  s32 OnHelperMessage(s32 code, IHostHelperMessage* message) override { return onMessage(code, *message); }
};

const std::string kRequest = "QXRQ\x8C\x13\0\0\x04\0\0\0abcd"s;  // 5004 and four bytes

// Returns the output for this input, followed by "!" if the server stopped reading.
std::string Serve(FakeExtension& extension, const std::string& input) {
  std::string_view rest = input;
  std::string output;
  const HelperStreams streams{[&rest](char* buffer, std::size_t size) {
                                const std::size_t count = rest.copy(buffer, size);
                                rest.remove_prefix(count);
                                return count;
                              },
                              [&output](std::string_view bytes) {
                                output += bytes;
                                return true;
                              }};
  return ServeHelperMessages(extension, streams) ? output : output + "!";
}

TEST(HelperServer, GreetsAndRepliesToEachMessage) {
  FakeExtension extension;
  std::vector<std::pair<s32, std::string>> messages;
  extension.onMessage = [&](s32 code, IHostHelperMessage& message) {
    messages.emplace_back(code, std::string(static_cast<const char*>(message.GetData()), message.GetSize()));
    message.SetReply(1, static_cast<u32>(40 + messages.size()), 0, 0);
    return 1;
  };
  EXPECT_EQ(Serve(extension, kRequest + "QXRQ\xFF\xFF\xFF\xFF\0\0\0\0"s),
            "QXH1"
            "QXRP\x01\0\0\0\x01\0\0\0\x29\0\0\0"
            "QXRP\x01\0\0\0\x01\0\0\0\x2A\0\0\0"s);
  EXPECT_THAT(messages, testing::ElementsAre(std::pair(5004, "abcd"s), std::pair(-1, ""s)));
}

TEST(HelperServer, AMessageThatTheExtensionDoesNotKnowIsSaidToBeNone) {
  FakeExtension extension;
  extension.onMessage = [](s32, IHostHelperMessage&) { return 0; };
  EXPECT_EQ(Serve(extension, kRequest), "QXH1QXRP\0\0\0\0\0\0\0\0\x1F\0\0\0"s);
}

TEST(HelperServer, AReplyThatWasNotSetIsNotASuccess) {
  FakeExtension extension;
  extension.onMessage = [](s32, IHostHelperMessage&) { return 1; };
  EXPECT_EQ(Serve(extension, kRequest), "QXH1QXRP\x01\0\0\0\0\0\0\0\x1F\0\0\0"s);
}

TEST(HelperServer, TheMessageHasAReader) {
  FakeExtension extension;
  u32 value = 0;
  extension.onMessage = [&value](s32, IHostHelperMessage& message) {
    IHostPacketReader* const reader = message.CreateReader();
    reader->Attach(message.GetData(), message.GetSize());
    EXPECT_TRUE(reader->ReadU32(&value));
    EXPECT_FALSE(reader->ReadU32(&value));
    reader->Release();
    return 1;
  };
  Serve(extension, kRequest);
  EXPECT_EQ(value, 0x64636261u);
}

TEST(HelperServer, GivesUpWhatIsNoStreamOfMessages) {
  FakeExtension extension;
  int calls = 0;
  extension.onMessage = [&calls](s32, IHostHelperMessage&) { return ++calls, 1; };
  EXPECT_EQ(Serve(extension, "QXRX" + kRequest.substr(4)), "QXH1!");
  EXPECT_EQ(Serve(extension, "QXRQ\0\0\0\0\xFF\xFF\xFF\xFF"s), "QXH1!");
  for (std::size_t size = 1; size < kRequest.size(); ++size) {
    EXPECT_EQ(Serve(extension, kRequest.substr(0, size)), "QXH1!") << size;
  }
  EXPECT_EQ(Serve(extension, ""), "QXH1");
  EXPECT_EQ(calls, 0);
}

TEST(HelperServer, EndsWhereNobodyListens) {
  FakeExtension extension;
  EXPECT_FALSE(ServeHelperMessages(extension, {[](char*, std::size_t) { return std::size_t{0}; },
                                               [](std::string_view) { return false; }}));
}

TEST(HelperServer, WhatTheExtensionThrowsEndsIt) {
  FakeExtension extension;
  extension.onMessage = [](s32, IHostHelperMessage&) -> s32 { throw std::runtime_error("broken"); };
  EXPECT_THROW(Serve(extension, kRequest), std::runtime_error);
}

}  // namespace
}  // namespace QxHost
