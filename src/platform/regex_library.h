// The most states that the standard library allows in the automaton of a regular expression: the limit of
// libstdc++, or 0 for a library without one. Code that counts states counts those of libstdc++ and checks
// this constant.
#pragma once

#include <cstdint>
#include <regex>

#ifdef _GLIBCXX_REGEX_STATE_LIMIT
constexpr std::uint64_t kMaxLibraryStates = _GLIBCXX_REGEX_STATE_LIMIT;
#else
constexpr std::uint64_t kMaxLibraryStates = 0;
#endif
