// Simulates a user who may not create symbolic links, to test what is sent to the elevated helper.
#pragma once

namespace QxHost {

// Whether this build can simulate it. The Windows build cannot.
extern const bool kRightsCanBeTaken;

// Makes every creation of a symbolic link by this process fail (1314); its helper is not affected.
void TakeRightToLink();

}  // namespace QxHost
