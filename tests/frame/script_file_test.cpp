// The file of a script command, requested and released.
#include "frame/services/script_file.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "support/fake_host.h"

using namespace Velmora::SDK;
using testing::ElementsAre;

namespace {

const WString kPath = W("C:\\view\\a.txt");

struct Lookup {
  Lookup() { host.fileOperation.items = {host.AddFile(W("a.txt"))}; }
  FakeHost host;
};

TEST(ScriptFile, HoldsTheFileInAListAndGivesAllBackInOrder) {
  Lookup lookup;
  {
    const ScriptFile file(lookup.host, kPath);
    ASSERT_TRUE(file);
    ASSERT_EQ(file.List()->GetCount(), 1u);
    EXPECT_EQ(file.List()->GetItem(0), lookup.host.fileOperation.items[0]);
    lookup.host.recorder.ClearCalls();
  }
  EXPECT_THAT(lookup.host.recorder.Calls(),
              ElementsAre("file operation.ReleaseFileList(list1)", "ReleaseService(file operation, 3000)",
                          "list1.Release()"));
  ExpectAllReleased(lookup.host);
}

TEST(ScriptFile, GivesAllBackWhenSomethingIsThrownThroughIt) {
  Lookup lookup;
  try {
    const ScriptFile file(lookup.host, kPath);
    throw std::out_of_range("thrown");
  } catch (const std::out_of_range&) {
  }
  EXPECT_THAT(lookup.host.recorder.Calls(), testing::Contains("file operation.ReleaseFileList(list1)"));
  ExpectAllReleased(lookup.host);
}

TEST(ScriptFile, GivesTheServiceBackAtOnceWhereNothingIsFound) {
  Lookup lookup;
  const ScriptFile file(lookup.host, W("C:\\view\\b.txt"));
  EXPECT_FALSE(file);
  EXPECT_EQ(file.List(), nullptr);
  EXPECT_THAT(lookup.host.recorder.Calls(),
              ElementsAre("GetService(3000, 0)", "file operation.GetFileItem(\"C:\\view\\b.txt\", 1)",
                          "ReleaseService(file operation, 3000)"));
  ExpectAllReleased(lookup.host);
}

TEST(ScriptFile, HoldsNothingWhereTheHostRefuses) {
  for (const char* operation : {"GetService", "GetFileItem", "CreateFileList"}) {
    Lookup lookup;
    lookup.host.recorder.Refuse(operation);
    const ScriptFile file(lookup.host, kPath);
    EXPECT_FALSE(file) << operation;
    EXPECT_EQ(file.List(), nullptr) << operation;
    ExpectAllReleased(lookup.host);
  }
}

}  // namespace
