#include "filetools/shortcut.h"

#include <gtest/gtest.h>

#include "support/scratch_folder.h"

TEST(Shortcut, NeverTakesThePlaceOfItsTarget) {
  const ScratchFolder scratch;
  const WString file = scratch.Write(W("Makefile"), "all:\n");
  const WString sameFile = scratch.Path(W("no\\..\\MAKEFILE"));
  for (const WString& link : {file, sameFile}) {
    EXPECT_FALSE(CreateShortcut(link, file, false)) << ToUtf8(link);
    EXPECT_EQ(scratch.Read(W("Makefile")), "all:\n");
  }
}
