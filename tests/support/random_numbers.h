// Pseudo-random numbers for tests; the same sequence in every build.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

class RandomNumbers {
 public:
  explicit RandomNumbers(std::uint32_t seed) : engine_(seed) {}

  // Returns a number below `bound`.
  std::uint32_t operator()(std::size_t bound) {
    return static_cast<std::uint32_t>(engine_()) % static_cast<std::uint32_t>(bound);
  }
  bool OneIn(std::size_t count) { return (*this)(count) == 0; }
  bool Coin() { return OneIn(2); }

  // Returns an element of a list, a text or an array.
  template <typename Values>
  auto Of(const Values& values) {
    return values[(*this)(std::size(values))];
  }

 private:
  std::mt19937 engine_;
};
