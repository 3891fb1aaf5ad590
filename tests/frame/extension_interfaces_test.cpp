// The results of each operation in the interfaces of the three extension objects.
#include <gmock/gmock.h>

#include <memory>

#include "frame/host/command_numbers.h"
#include "frame/qx_utils.h"
#include "multirename/form/frame_form.h"
#include "multirename/window/qx_multi_rename.h"
#include "security/ntfs_prop.h"
#include "support/fake_helper_message.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;
using testing::IsEmpty;

TEST(FileUtils, ReturnsTheConstantsOfItsFifteenOperations) {
  FakeHost host;
  FakeHelperMessage message;
  CQXUtils extension;
  IPluginInterface& plugin = extension;
  EXPECT_EQ(plugin.OnRegister(&host), 1);
  EXPECT_EQ(plugin.GetExtensionKind(), 8192u);
  EXPECT_EQ(plugin.OnStart(&host), 1);
  EXPECT_STREQ(plugin.GetExtensionId(), "3f93229334d648ab8dcc1eb4f62b8ef7");
  EXPECT_FALSE(plugin.OnHostEvent(0, 0));
  EXPECT_FALSE(plugin.OnHostEvent(1, kEventSelectionChanged));
  EXPECT_FALSE(plugin.OnHostEvent(1, 1000));
  EXPECT_EQ(plugin.OnCommand(kCommandIgnored, 0, 0), 0);
  EXPECT_EQ(plugin.Reserved1(), 0);
  EXPECT_EQ(plugin.OnCustomCommand(nullptr), 0);
  EXPECT_EQ(plugin.OnHelperMessage(0, &message), 0);
  EXPECT_EQ(plugin.Reserved2(), 0);
  EXPECT_EQ(plugin.Reserved3(), 0);
  EXPECT_EQ(plugin.OnShutdown(0), 0);
  EXPECT_EQ(plugin.OnShutdown(1), 0);
  EXPECT_EQ(plugin.Reserved4(), 0);
  EXPECT_EQ(plugin.Reserved5(), 0);
  EXPECT_EQ(plugin.Reserved6(), 0);
  ExpectAllReleased(host);
}

TEST(FileUtils, StartKeepsTheHostWithoutCallingIt) {
  FakeHost host;
  CQXUtils extension;
  EXPECT_EQ(extension.OnStart(&host), 1);
  EXPECT_THAT(host.recorder.Calls(), IsEmpty());
}

TEST(FileUtils, ShutdownCallsNothingOfTheHost) {
  FakeHost host;
  CQXUtils extension;
  extension.OnStart(&host);
  EXPECT_EQ(extension.OnShutdown(0), 0);
  EXPECT_EQ(extension.OnCommand(kCommandShutdown, 0, 1), 0);
  EXPECT_THAT(host.recorder.Calls(), IsEmpty());
}

TEST(FileUtils, RegisteringKeepsNothingOfTheHost) {
  CQXUtils extension;
  auto first = std::make_unique<FakeHost>();
  EXPECT_EQ(extension.OnRegister(first.get()), 1);
  first.reset();
  FakeHost second;
  EXPECT_EQ(extension.OnStart(&second), 1);
  EXPECT_EQ(extension.OnCommand(kCommandUpperCase, 0, 0), 1);
  ExpectAllReleased(second);
}

TEST(FileUtils, NullHostAtRegisterAndStartDoesNotCrash) {
  CQXUtils extension;
  EXPECT_EQ(extension.OnRegister(nullptr), 1);
  EXPECT_EQ(extension.OnStart(nullptr), 1);
  EXPECT_EQ(extension.OnCommand(kCommandShutdown, 0, 0), 0);
  EXPECT_EQ(extension.OnCommand(kCommandIgnored, 0, 0), 0);
}

TEST(MultiRename, ReturnsTheConstantsOfItsFifteenOperations) {
  FakeHelperMessage message;
  QXMultiRename extension;
  IPluginInterface& plugin = extension;
  EXPECT_EQ(plugin.GetExtensionKind(), 8192u);
  EXPECT_STREQ(plugin.GetExtensionId(), "338f59b3448642bf9f3ad7bafb4fae2b");
  EXPECT_FALSE(plugin.OnHostEvent(0, 7));
  EXPECT_EQ(plugin.OnCommand(kCommandIgnored, 0, 0), 0);
  EXPECT_EQ(plugin.OnCommand(kCommandShutdown, 0, 0), 0);
  EXPECT_EQ(plugin.OnCommand(kCommandUpperCase, 0, 0), 0);
  EXPECT_EQ(plugin.Reserved1(), 0);
  EXPECT_EQ(plugin.OnCustomCommand(nullptr), 0);
  for (const s32 code : {0, 5000, 5001, 5002, 5003, 5004}) {
    EXPECT_EQ(plugin.OnHelperMessage(code, &message), 0) << code;
  }
  EXPECT_THAT(message.recorder.Calls(), IsEmpty());
  EXPECT_EQ(plugin.Reserved2(), 0);
  EXPECT_EQ(plugin.Reserved3(), 0);
  EXPECT_EQ(plugin.OnShutdown(0), 0);
  EXPECT_EQ(plugin.Reserved4(), 0);
  EXPECT_EQ(plugin.Reserved5(), 0);
  EXPECT_EQ(plugin.Reserved6(), 0);
}

TEST(MultiRename, NullHostAtRegisterAndStartDoesNotCrash) {
  QXMultiRename extension;
  EXPECT_EQ(extension.OnRegister(nullptr), 1);
  EXPECT_EQ(extension.OnStart(nullptr), 1);
  EXPECT_EQ(extension.OnShutdown(0), 0);
}

TEST(MultiRename, ShutdownNotifiesTheHostOnce) {
  FakeHost host;
  QXMultiRename extension;
  extension.OnStart(&host);
  host.recorder.ClearCalls();
  EXPECT_EQ(extension.OnShutdown(0), 0);
  EXPECT_THAT(host.recorder.CallsOf({"ExtensionClosed"}), testing::SizeIs(1));
  ASSERT_FALSE(host.recorder.Calls().empty());
  EXPECT_EQ(host.recorder.Calls().back(), "ExtensionClosed()");
  ExpectAllReleased(host);
}

TEST(MultiRename, CommandOfTheShutdownNotifiesTheHostOnce) {
  FakeHost host;
  QXMultiRename extension;
  extension.OnStart(&host);
  host.recorder.ClearCalls();
  EXPECT_EQ(extension.OnCommand(kCommandIgnored, 0, 0), 0);
  EXPECT_THAT(host.recorder.CallsOf({"ExtensionClosed"}), IsEmpty());
  EXPECT_EQ(extension.OnCommand(kCommandShutdown, 0, 1), 0);
  EXPECT_THAT(host.recorder.CallsOf({"ExtensionClosed"}), testing::SizeIs(1));
  ExpectAllReleased(host);
}

TEST(NtfsProperties, ReturnsTheConstantsOfItsThirteenOperations) {
  FakeHost host;
  NTFSProp extension;
  IFileProperties& properties = extension;
  EXPECT_STREQ(properties.GetProviderId(), "0305E12E5E9B4B2A9278C76F80AC321B");
  EXPECT_EQ(properties.RegisterProperties(&host), 0);
  EXPECT_FALSE(properties.Attach(1));
  EXPECT_FALSE(properties.ClearCache());
  EXPECT_FALSE(properties.Reserved1());
  EXPECT_FALSE(properties.Reserved2());
  EXPECT_FALSE(properties.Reserved3());
  EXPECT_FALSE(properties.Reserved4());
  EXPECT_FALSE(properties.Reserved5());
  EXPECT_FALSE(properties.Reserved6());
  EXPECT_FALSE(properties.Reserved7());
  EXPECT_FALSE(properties.Detach());
  ExpectAllReleased(host);
}

TEST(NtfsProperties, GiveNoValueWhileTheyAreNotAttached) {
  FakeHost host;
  NTFSProp extension;
  WCHAR text[16] = W("as it was");
  EXPECT_FALSE(extension.GetPropertyValue(host.AddFile(W("a.txt")), text, 16, 0));
  EXPECT_EQ(WString(text), W("as it was"));
}

TEST(NtfsProperties, NullHostAtRegisterPropertiesDoesNotCrash) {
  NTFSProp extension;
  EXPECT_EQ(extension.RegisterProperties(nullptr), 0);
}
