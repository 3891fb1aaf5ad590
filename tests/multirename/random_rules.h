// Random rows and rules for MultiRename, valid and invalid; the same in every build for one seed. Expressions
// never nest repeats, so each is harmless on a short text.
#pragma once

#include <random>
#include <string_view>

#include "multirename/plain_rules.h"

namespace PlainRules {

class RandomRules {
 public:
  explicit RandomRules(std::uint32_t seed) : engine_(seed) {}

  // Makes rows with few different names, so that new names collide.
  std::vector<Row> MakeRows();
  Rules MakeRules();
  SYSTEMTIME MakeTime();
  Pairs MakePairs(bool expressions);
  WString Letters(std::size_t most);

  std::uint32_t operator()(std::size_t bound) {
    return static_cast<std::uint32_t>(engine_()) % static_cast<std::uint32_t>(bound);
  }
  bool OneIn(std::size_t bound) { return (*this)(bound) == 0; }

 private:
  using Choices = std::initializer_list<WStringView>;

  WString Of(Choices choices) { return WString(choices.begin()[(*this)(choices.size())]); }
  template <typename T>
  T OneOf(std::initializer_list<T> choices) {
    return choices.begin()[(*this)(choices.size())];
  }

  WString NameText();
  WString OldName();
  Property MakeProperty();
  WString NumberText();
  WString RangeText();
  WString CounterText();
  WString PropertyTagText();
  WString TagText();
  WString TemplateText();
  WString ExpressionText();
  WString ExpressionReplacement();

  std::mt19937 engine_;
};

}  // namespace PlainRules
