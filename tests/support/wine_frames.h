// Wine leaves the frames of windows to a window manager and waits for its answers. Where the tests run there
// is none, so each window that closes would wait two seconds.
#pragma once

// Tells Wine, for the running program alone and until its session ends, to draw the frames itself. Must run
// before the program's first window. False where this is not Wine. Windows build alone.
bool DrawFramesWithoutWindowManager();
