// The interface of the verbs of qxhost. Each verb is in its own file `..._verb.cpp`; verbs.h makes them.
#pragma once

#include <string>
#include <vector>

#include "host/command_line/options.h"

namespace QxHost {

class Run;

class Verb {
 public:
  virtual ~Verb() = default;
  virtual const char* Name() const = 0;
  virtual const char* Help() const = 0;
  // Declares the arguments of the verb, whose values are stored in the verb.
  virtual void Declare(CLI::App& app) = 0;
  // Returns the items that the verb works on, which must exist.
  virtual const std::vector<std::string>& Items() const;
  // Returns whether the items are passed one after the other, by Run::ForEachItem, instead of being selected
  // together.
  virtual bool TakesItemsInTurn() const { return false; }
  // Runs the verb and returns the value of the result: 1 or 0, as the module returned.
  virtual int Execute(Run& run) = 0;
  // Throws BadCall if the verb would change anything except by renames, which are all that --dry-run
  // prevents.
  virtual void CheckDryRun() const {}
  // Returns the meaning of a result of 0, for the user. Called after Execute.
  virtual std::string NoteOfZero() const { return "the module did not handle the command"; }
  // Returns the text of the verb's help after its arguments. Ends with a line end unless it is empty.
  virtual const char* HelpFooter() const { return ""; }
};

}  // namespace QxHost
