// The paths of the selection.
#include "frame/services/selected_paths.h"

#include <gmock/gmock.h>

#include "support/fake_host.h"

using testing::ElementsAre;
using testing::IsEmpty;
using Velmora::SDK::SelectedPaths;

TEST(SelectedPaths, AreTheFullPathsInTheirOrder) {
  FakeHost host;
  host.SelectFiles({W("b"), W("a")});
  EXPECT_THAT(SelectedPaths(host), ElementsAre(W("C:\\view\\b"), W("C:\\view\\a")));
  EXPECT_THAT(host.recorder.CallsExcept({"list1.Get"}),
              ElementsAre("CreateFileList()", "FileListRequest(21215, list1, 18, 0)",
                          "item b.GetFullPath(2048)", "item a.GetFullPath(2048)", "list1.Release()"));
  ExpectAllReleased(host);
}

TEST(SelectedPaths, AreNoneForAnEmptySelection) {
  FakeHost host;
  EXPECT_THAT(SelectedPaths(host), IsEmpty());
  ExpectAllReleased(host);
}

TEST(SelectedPaths, AreNoneWhereTheHostRefuses) {
  for (const char* const operation : {"CreateFileList", "FileListRequest"}) {
    FakeHost host;
    host.SelectFiles({W("a")});
    host.fillsRefusedLists = true;
    host.recorder.Refuse(operation);
    EXPECT_THAT(SelectedPaths(host), IsEmpty()) << operation;
    ExpectAllReleased(host);
  }
}

TEST(SelectedPaths, AnItemWithoutAPathGivesAnEmptyText) {
  FakeHost host;
  host.selection = {host.AddFileIn(W(""), W("")), host.AddFile(W("a"))};
  EXPECT_THAT(SelectedPaths(host), ElementsAre(W(""), W("C:\\view\\a")));
}

TEST(SelectedPaths, HaveUpTo2047Characters) {
  FakeHost host;
  const WString name(2047 - 8, W('n'));  // follows "C:\view\"
  host.SelectFiles({name});
  EXPECT_THAT(SelectedPaths(host), ElementsAre(W("C:\\view\\") + name));
}
