// The history of templates of earlier runs.
#include "multirename/form/template_history.h"

#include <gmock/gmock.h>

#include "support/fake_host.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;

constexpr const WCHAR* kKey = W("RuleFilename");

TEST(TemplateHistory, HoldsTheCurrentTextFirstAndEachOnceAndNeverTheDefault) {
  FakeHost host;
  SaveTemplateHistory(host, kKey, W("b"), W("[N]"), {W("a"), W("b"), W("[N]"), W("a"), W("c")});
  EXPECT_THAT(host.config.histories[kKey], ElementsAre(W("b"), W("a"), W("c")));
  EXPECT_THAT(
      host.recorder.CallsOf({"strings1.Contains"}),
      ElementsAre("strings1.Contains(\"b\", 0)", "strings1.Contains(\"a\", 0)", "strings1.Contains(\"b\", 0)",
                  "strings1.Contains(\"a\", 0)", "strings1.Contains(\"c\", 0)"));
  ExpectAllReleased(host);
}

TEST(TemplateHistory, AnEmptyCurrentTemplateIsKeptLikeAnyOther) {
  FakeHost host;
  SaveTemplateHistory(host, kKey, W(""), W("[N]"), {W("a")});
  EXPECT_THAT(host.config.histories[kKey], ElementsAre(W(""), W("a")));
  EXPECT_THAT(LoadTemplateHistory(host, kKey), ElementsAre(W(""), W("a")));
  ExpectAllReleased(host);
}

}  // namespace
}  // namespace Velmora::SDK
