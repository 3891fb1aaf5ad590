// What qxhost can be told to do: one verb, one file `..._verb.cpp`.
#pragma once

#include <memory>
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
  // Declares the verb's own arguments, which the verb keeps.
  virtual void Declare(CLI::App& app) = 0;
  // The items that the verb works on, which must exist.
  virtual const std::vector<std::string>& Items() const;
  // Whether they are taken one after the other, by Run::ForEachItem, and not selected together.
  virtual bool TakesItemsInTurn() const { return false; }
  // Does it, and answers the value of the result: 1 or 0 as the module said.
  virtual int Execute(Run& run) = 0;
  // Throws BadCall if the verb would change more than --dry-run holds back, which is renames.
  virtual void CheckDryRun() const {}
  // What a result of 0 means, for whoever called. Asked after Execute.
  virtual std::string NoteOfZero() const { return "the module did not handle the command"; }
  // What its help says behind its arguments; ends in a line end if there is any.
  virtual const char* HelpFooter() const { return ""; }
};

// All verbs, in the order in which the help shows them.
std::vector<std::unique_ptr<Verb>> MakeVerbs();

std::unique_ptr<Verb> MakeInfoVerb();
std::unique_ptr<Verb> MakeMenuVerb();
std::unique_ptr<Verb> MakeCommandVerb();
std::unique_ptr<Verb> MakeScriptVerb();
std::unique_ptr<Verb> MakeColumnsVerb();
std::unique_ptr<Verb> MakeRenameVerb();
std::unique_ptr<Verb> MakeWindowVerb();

}  // namespace QxHost
