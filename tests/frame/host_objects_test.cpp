// Owners of objects that the host lends.
#include "frame/host/host_objects.h"

#include <gmock/gmock.h>

#include "support/fake_host.h"

using namespace Velmora::SDK;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(HostObject, GivesItsObjectBackOnceAtTheEndOfItsScope) {
  FakeHost host;
  {
    HostObject<IHostFileList> list(host.CreateFileList());
    EXPECT_TRUE(list);
    EXPECT_EQ(list->GetCount(), 0u);
    EXPECT_THAT(host.recorder.Open(), ElementsAre("list1"));
  }
  EXPECT_THAT(host.recorder.CallsOf({"list1.Release"}), ElementsAre("list1.Release()"));
  ExpectAllReleased(host);
}

TEST(HostObject, GivesItsObjectBackEarlyAndNotAgain) {
  FakeHost host;
  {
    HostObject<IHostStringList> strings(host.CreateStringList());
    strings.Release();
    EXPECT_FALSE(strings);
    EXPECT_EQ(strings.Get(), nullptr);
    EXPECT_THAT(host.recorder.Open(), IsEmpty());
    strings.Release();
  }
  EXPECT_THAT(host.recorder.CallsOf({"strings1.Release"}), ElementsAre("strings1.Release()"));
  ExpectAllReleased(host);
}

TEST(HostObject, MayHoldNothing) {
  HostObject<IHostFileList> list(nullptr);
  EXPECT_FALSE(list);
  list.Release();
}

TEST(HostService, AsksForTheServiceAndGivesItBackWithTheNumberWanted) {
  FakeHost host;
  {
    HostService<IHostFileOperation> operation(host, kServiceFileOperation);
    EXPECT_TRUE(operation);
    EXPECT_EQ(operation.Get(), static_cast<IHostFileOperation*>(&host.fileOperation));
  }
  { HostService<IHostFileOperation> operation(host, kServiceFileOperation, 3000); }
  EXPECT_THAT(host.recorder.Calls(),
              ElementsAre("GetService(3000, 0)", "ReleaseService(file operation, 0)", "GetService(3000, 0)",
                          "ReleaseService(file operation, 3000)"));
  ExpectAllReleased(host);
}

TEST(HostService, RefusedServiceIsNotGivenBack) {
  FakeHost host;
  host.recorder.Refuse("GetService");
  { HostService<IHostFileOperation> operation(host, kServiceFileOperation); }
  EXPECT_THAT(host.recorder.Calls(), ElementsAre("GetService(3000, 0)"));
  ExpectAllReleased(host);
}
