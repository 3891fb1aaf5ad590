// Keeps the module's code in the process.
#pragma once

namespace Velmora::SDK {

// The module stays loaded until the process ends, whoever frees its library. For an object that is left to a
// thread: the thread also uses the module's code, constants and window classes, and a host may unload the
// module once Delete has returned.
void PinModule();

}  // namespace Velmora::SDK
