// The most states that the standard library gives the automaton of a regular expression: libstdc++'s limit, 0
// for a library that has none. Code that counts states counts them as libstdc++ makes them, and checks this.
#pragma once

#include <cstdint>
#include <regex>

#ifdef _GLIBCXX_REGEX_STATE_LIMIT
constexpr std::uint64_t kMostStatesOfLibrary = _GLIBCXX_REGEX_STATE_LIMIT;
#else
constexpr std::uint64_t kMostStatesOfLibrary = 0;
#endif
