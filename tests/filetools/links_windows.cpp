// Junctions and symbolic links on a system that may not have them: either there is one then, or an error and
// everything as it was.
#include <gmock/gmock.h>

#include "filetools/link_calls.h"
#include "filetools/links.h"
#include "support/fake_host.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;
using testing::ElementsAre;

namespace {

struct Kind {
  LinkKind kind;
  const char* word;
};
constexpr Kind kKinds[] = {{kJunction, "Junction"}, {kSymbolicLink, "Symlink"}};

TEST(LinksOfThisSystem, AreMadeOrCleanlyRefused) {
  for (const auto& [kind, word] : kKinds) {
    const ScratchFolder scratch;
    const WString target = scratch.MakeFolder(W("target"));
    const WString link = scratch.Path(W("link"));
    FakeHost host;
    const DWORD error = CreateLinkOfKind(&host, kind, link, target, true);
    RecordProperty(word, static_cast<int>(error));
    if (error == ERROR_SUCCESS) {
      EXPECT_EQ(GetFileAttributesW(link.c_str()) & 0x410, 0x410u) << word;
      EXPECT_THAT(host.recorder.Calls(), ElementsAre(LinkCreated(word, link, target)));
    } else {
      EXPECT_THAT(scratch.Names(), ElementsAre(W("target"))) << word << " " << error;
      EXPECT_THAT(host.recorder.Calls(),
                  ElementsAre(LinkFailed(word, static_cast<int>(error), link, target)));
    }
  }
}

}  // namespace
