// What qxhost can be told to do: one verb, one file `..._verb.cpp`.
#pragma once

#include <memory>
#include <vector>

#include "host/options.h"

namespace QxHost {

class Run;

class Verb {
 public:
  virtual ~Verb() = default;
  virtual const char* Name() const = 0;
  virtual const char* Help() const = 0;
  // Declares the verb's own arguments, which the verb keeps.
  virtual void Declare(CLI::App& app) = 0;
  // The items that the verb works on, which must exist.
  virtual const std::vector<std::string>& Items() const;
  // Does it, and answers the value of the result: 1 or 0 as the module said.
  virtual int Execute(Run& run) = 0;
};

// All verbs, in the order in which the help shows them.
std::vector<std::unique_ptr<Verb>> MakeVerbs();

std::unique_ptr<Verb> MakeInfoVerb();
std::unique_ptr<Verb> MakeMenuVerb();
std::unique_ptr<Verb> MakeCommandVerb();

}  // namespace QxHost
