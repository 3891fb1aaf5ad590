// What all parts of the fake host share: the record of calls, the count of what is taken and given back, the
// refusals, and the texts that are lent out. Any thread; what returns a reference is for a time when no other
// thread calls the host.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "platform/text.h"

class HostRecorder {
 public:
  // Records a call as "object.Operation(arguments)". A text that the host lent this thread before is
  // overwritten now: it is the caller's only until its next call into the host.
  void Record(std::string call);

  // The same for an operation that can be refused. False if this call is to be refused.
  bool Allow(std::string call);

  // Refuses every call of this operation ("GetConfig").
  void Refuse(const std::string& operation);
  // Refuses the refusable call number `nth` (1 is the first), and with `repeat` all later ones.
  void RefuseCall(int nth, bool repeat);
  int RefusableCalls() const { return refusableCalls_; }

  void Taken(const std::string& object);
  // Giving back what is not taken is a problem.
  void GivenBack(const std::string& object);
  bool IsTaken(const std::string& object) const;
  // What was taken and not given back, by name.
  std::vector<std::string> Open() const;

  // A use of the interfaces that the host does not allow, such as one of a list after its release.
  void Problem(std::string what);
  const std::vector<std::string>& Problems() const { return problems_; }

  const std::vector<std::string>& Calls() const { return calls_; }
  // Only the calls that begin with one of these, or all others.
  std::vector<std::string> CallsOf(const std::vector<std::string>& beginnings) const;
  std::vector<std::string> CallsExcept(const std::vector<std::string>& beginnings) const;
  // The first position in Calls of one that begins so, or -1.
  int PositionOf(const std::string& beginning) const;
  void ClearCalls();

  // Lends a text until the next call of this thread.
  const WCHAR* Lend(WStringView text);

 private:
  void Keep(std::string call);

  mutable std::mutex mutex_;  // guards what follows
  std::vector<std::string> calls_;
  std::vector<std::string> problems_;
  std::map<std::string, int> open_;
  std::set<std::string> refused_;
  std::map<std::thread::id, std::vector<std::unique_ptr<WString>>> lent_;
  int refusableCalls_ = 0;
  int refusedCall_ = 0;
  bool refuseLater_ = false;
};

// Arguments as they stand in a record: a text in quotes (null without), a text id, flags or display word as
// 0x and eight digits.
std::string Quoted(const WCHAR* text);
std::string Hex(std::uint32_t value);
