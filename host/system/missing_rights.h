// Playing a user who may not make symbolic links, to see what goes to the elevated helper then.
#pragma once

namespace QxHost {

// Whether this build can play it. On Windows the rights are what they are.
extern const bool kRightsCanBeTaken;

// From now on this process is refused every symbolic link (1314); its helper is not.
void TakeRightToLink();

}  // namespace QxHost
