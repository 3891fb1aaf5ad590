// The lock that prevents simultaneous runs.
#include "host/rename/undo_lock.h"

#include <gmock/gmock.h>

#include "support/scratch_folder.h"

using testing::IsEmpty;

namespace QxHost {
namespace {

TEST(UndoLockTest, OneHasItAtATimeAndItsFileGoesWithIt) {
  ScratchFolder scratch;
  const WString path = scratch.Path(W("lock"));
  UndoLock second;
  {
    UndoLock first;
    EXPECT_EQ(first.Take(path), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(second.Take(path), DWORD{ERROR_SHARING_VIOLATION});
  }
  EXPECT_THAT(scratch.Names(), IsEmpty());
  EXPECT_EQ(second.Take(path), DWORD{ERROR_SUCCESS});
  UndoLock third;
  EXPECT_EQ(third.Take(path), DWORD{ERROR_SHARING_VIOLATION});
}

TEST(UndoLockTest, AFolderThatIsNoneIsAnErrorAndNoReasonToWait) {
  ScratchFolder scratch;
  scratch.Write(W("file"), "");
  UndoLock lock;
  const DWORD error = lock.Take(scratch.Path(W("file\\lock")));
  EXPECT_NE(error, DWORD{ERROR_SUCCESS});
  EXPECT_NE(error, DWORD{ERROR_SHARING_VIOLATION});
}

}  // namespace
}  // namespace QxHost
