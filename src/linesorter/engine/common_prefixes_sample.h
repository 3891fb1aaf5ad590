// Finds common prefixes in a sample of the keys.
#pragma once

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "linesorter/engine/common_prefixes.h"
#include "linesorter/engine/key_reader.h"

namespace WQLineSorter {

// Returns the beginnings of kStep characters that many sampled keys have, in the order of their numbers; an
// empty vector if there are few lines. CommonPrefix::shared is what the sampled keys share; other keys
// with the same beginning may share less.
template <typename Keys>
std::vector<CommonPrefix> SampleCommonPrefixes(const KeyReader<Keys>& reader) {
  constexpr std::size_t kMinLines = 4096;
  constexpr std::size_t kSamples = 2048;
  constexpr std::size_t kCommon = kSamples / 128;
  std::vector<CommonPrefix> commons;
  if (reader.LineCount() < kMinLines) return commons;
  std::vector<std::pair<std::uint64_t, std::size_t>> samples;
  samples.reserve(kSamples);
  for (std::size_t i = 0; i < kSamples; ++i) {
    const std::size_t line = reader.LineCount() / kSamples * i;
    const auto key = reader.KeyOfLine(line);
    if (key.length > kStep<Keys>) samples.emplace_back(reader.FirstCharactersOf(key), line);
  }
  std::ranges::sort(samples);
  for (std::size_t begin = 0, end = 0; begin < samples.size(); begin = end) {
    const std::uint64_t number = samples[begin].first;
    while (end < samples.size() && samples[end].first == number) ++end;
    if (end - begin < kCommon || CountIn<Keys>(number) <= kStep<Keys>) continue;
    const KeyRest first = reader.RestOfLine(samples[begin].second, kStep<Keys>);
    std::uint32_t shared = first.left;
    for (std::size_t i = begin; i < end; ++i) {
      shared = reader.Shared(reader.RestOfLine(samples[i].second, kStep<Keys>), first, shared);
    }
    commons.push_back({number, first, shared});
  }
  return commons;
}

}  // namespace WQLineSorter
