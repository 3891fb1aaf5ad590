// The life cycle of a module's extensions, and their commands.
#include "host/extensions_test.h"

#include <stdexcept>

#include "frame/host/command_numbers.h"
#include "host/output/failures.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace QxHost {
namespace {

using namespace Velmora::SDK;

TEST_F(ExtensionsTest, LiveFromCreateToDeleteInTheOrderOfTheirIndices) {
  onCommand = [](IHostApp&, s32) { return 1; };
  Extensions extensions(shared_, exports_);
  EXPECT_TRUE(extensions.Start());
  EXPECT_EQ(extensions.RunCommand(kCommandUpperCase), 1);
  extensions.Stop();
  EXPECT_THAT(calls,
              ElementsAre("create 0", "create 1", "create 2", "register 0", "start 0", "properties",
                          "attach 1", "register 2", "start 2", "command 0 30000 0 0", "command 0 20002 0 0",
                          "delete 0", "detach", "delete 1", "command 2 20002 0 0", "delete 2"));
}

TEST_F(ExtensionsTest, AreDeletedOnceEvenIfNobodyStopsThem) {
  {
    Extensions extensions(shared_, exports_);
    extensions.Start();
    calls.clear();
  }
  EXPECT_THAT(calls, ElementsAre("command 0 20002 0 0", "delete 0", "detach", "delete 1",
                                 "command 2 20002 0 0", "delete 2"));
}

TEST_F(ExtensionsTest, RecordsOfFullFieldsAreReadToTheirEnd) {
  extensionCount = 1;
  Extensions extensions(shared_, exports_);
  extensions.ReportRecords();
  EXPECT_THAT(recorded_.Out(), HasSubstr("\"name\":\"" + std::string(100, 'n') + "\""));
  EXPECT_THAT(recorded_.Out(), HasSubstr("\"version\":\"vvvvvvvvvv\""));
  EXPECT_THAT(recorded_.Out(), HasSubstr("\"id\":\"" + std::string(34, 'a') + "\""));
}

TEST_F(ExtensionsTest, RecordsWithoutAnEndAreNotFollowedForEver) {
  extensionCount = 0xFFFFFFFF;
  Extensions extensions(shared_, exports_);
  extensions.ReportRecords();
  EXPECT_LT(recorded_.Out().size(), 100000u);
}

TEST_F(ExtensionsTest, AModuleWithoutExtensionsIsNone) {
  extensionCount = 0;
  EXPECT_THROW(Extensions(shared_, exports_), ModuleFailure);
}

TEST_F(ExtensionsTest, ACommandGoesToWhoDeclaredItElseByItsNumber) {
  onRegister = [registered = 0](IHostApp& host) mutable {
    // The second extension to register, Multi Rename, declares a number outside its range.
    if (registered++ == 1) host.GetCommandFactory()->CreateCommand(31, 0, 0, 0, 0, 0);
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  calls.clear();
  for (const s32 number : {31, 30999, 31000, 32999, 33000, -1}) extensions.RunCommand(number);
  EXPECT_THAT(calls, ElementsAre("command 2 31 0 0", "command 0 30999 0 0", "command 2 31000 0 0",
                                 "command 2 32999 0 0", "command 0 33000 0 0", "command 0 -1 0 0"));
}

TEST_F(ExtensionsTest, APostedCommandRunsAfterTheCommandHasReturned) {
  onCommand = [](IHostApp& host, s32 number) {
    if (number == kCommandMultiRename) {
      host.PostCommand(kCommandReadSelection, 5, 6);
      calls.push_back("posted");
    }
    return number == kCommandMultiRename ? 1 : 0;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  calls.clear();
  EXPECT_EQ(extensions.RunCommand(kCommandMultiRename), 1);
  EXPECT_THAT(calls, ElementsAre("command 2 31000 0 0", "posted", "command 2 32000 5 6"));
}

TEST_F(ExtensionsTest, WhatTheModuleThrowsIsAFailureOfTheModule) {
  Extensions extensions(shared_, exports_);
  extensions.Start();
  onCommand = [](IHostApp&, s32) -> s32 { throw std::runtime_error("stoi argument out of range"); };
  try {
    extensions.RunCommand(kCommandUpperCase);
    FAIL() << "nothing was thrown";
  } catch (const ModuleFailure& failure) {
    EXPECT_THAT(failure.what(), HasSubstr("OnCommand: stoi argument out of range"));
  }
  onCommand = [](IHostApp&, s32) -> s32 { throw 5; };
  EXPECT_THROW(extensions.RunCommand(kCommandUpperCase), ModuleFailure);
}

TEST_F(ExtensionsTest, AModuleIsFoundByItsIdInAnyCaseAndByNoOther) {
  extensionCount = 2;
  u32 system = 0;
  u32 first = 0;
  onRegister = [&](IHostApp& host) {
    system = host.FindModuleByGuid("A4C2985D9C7E4035A3221CFD600171D0");
    first = host.FindModuleByGuid(std::string(34, 'A').c_str());
    EXPECT_EQ(host.FindModuleByGuid("00000000000000000000000000000000"), 0u);
    EXPECT_EQ(host.FindModuleByGuid(""), 0u);
    EXPECT_EQ(host.FindModuleByGuid(nullptr), 0u);
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  EXPECT_NE(system & 0xFFFF, 0u);
  EXPECT_NE(first & 0xFFFF, 0u);
  EXPECT_NE(system & 0xFFFF, first & 0xFFFF);
}

}  // namespace
}  // namespace QxHost
