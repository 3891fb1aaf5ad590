// Junctions and symbolic links on a system that may not support them.
#include <gmock/gmock.h>

#include "filetools/link_calls.h"
#include "filetools/links.h"
#include "support/fake_host.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;
using testing::ElementsAre;

namespace {

class LinksOfThisSystem : public testing::Test {
 protected:
  DWORD Create(LinkKind kind) { return CreateLinkOfKind(&host_, kind, link_, target_, true); }

  ScratchFolder scratch_;
  WString target_ = scratch_.MakeFolder(W("target"));
  WString link_ = scratch_.Path(W("link"));
  FakeHost host_;
};

TEST_F(LinksOfThisSystem, AJunctionIsMadeOrCleanlyRefused) {
  const DWORD error = Create(kJunction);
  if (error == ERROR_SUCCESS) {
    EXPECT_EQ(GetFileAttributesW(link_.c_str()), 0x410u);
    EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkCreated("Junction", link_, target_)));
  } else {
    EXPECT_EQ(error, DWORD{ERROR_INVALID_DATA});
    EXPECT_THAT(scratch_.Names(), ElementsAre(W("target")));
    EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkFailed("Junction", 13, link_, target_)));
  }
}

TEST_F(LinksOfThisSystem, AFolderWhereTheJunctionIsRefusedStays) {
  scratch_.MakeFolder(W("link"));
  const DWORD error = Create(kJunction);
  EXPECT_EQ(GetFileAttributesW(link_.c_str()), error == ERROR_SUCCESS ? 0x410u : 0x10u);
}

// Wine reports success without creating the link; the log shows what the system reports.
TEST_F(LinksOfThisSystem, ASymbolicLinkIsLoggedAsTheSystemSays) {
  const DWORD error = Create(kSymbolicLink);
  EXPECT_THAT(
      host_.recorder.Calls(),
      ElementsAre(error == ERROR_SUCCESS ? LinkCreated("Symlink", link_, target_)
                                         : LinkFailed("Symlink", static_cast<int>(error), link_, target_)));
  if (error != ERROR_SUCCESS) {
    EXPECT_THAT(scratch_.Names(), ElementsAre(W("target")));
  }
}

}  // namespace
