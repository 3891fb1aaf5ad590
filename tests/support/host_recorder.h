// What all parts of the fake host share: the record of calls, the objects in use, the refusals and the texts
// that are lent. May be used from any thread; functions that return a reference may be called only while no
// other thread calls the host.
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
  // Records a call as "object.Operation(arguments)". Overwrites the text that the host has lent this thread
  // before: it is valid only until the thread's next call into the host.
  void Record(std::string call);

  // Like Record, for an operation that can be refused. Returns false if this call is to be refused.
  bool Allow(std::string call);

  // Refuses every call of this operation ("GetConfig").
  void Refuse(const std::string& operation);
  // Refuses the refusable call with the number `nth`, counted from 1, and with `repeat` all later ones.
  void RefuseCall(int nth, bool repeat);
  int RefusableCalls() const { return refusableCalls_; }

  void Taken(const std::string& object);
  // Records a problem if the object is not in use.
  void Released(const std::string& object);
  bool IsTaken(const std::string& object) const;
  // Returns the names of the objects that are still in use.
  std::vector<std::string> Open() const;

  // Records a use of the interfaces that the host does not allow, such as a call to a list after its release.
  void Problem(std::string what);
  const std::vector<std::string>& Problems() const { return problems_; }

  const std::vector<std::string>& Calls() const { return calls_; }
  // Return the calls that begin with one of these strings, and all others.
  std::vector<std::string> CallsOf(const std::vector<std::string>& beginnings) const;
  std::vector<std::string> CallsExcept(const std::vector<std::string>& beginnings) const;
  // Returns the index in Calls of the first call that begins with this string, or -1.
  int PositionOf(const std::string& beginning) const;
  void ClearCalls();

  // Returns a copy of the text that is valid until the next call of this thread.
  const WCHAR* Lend(WStringView text);

 private:
  void Keep(std::string call);

  mutable std::mutex mutex_;  // guards the members below
  std::vector<std::string> calls_;
  std::vector<std::string> problems_;
  std::map<std::string, int> open_;
  std::set<std::string> refused_;
  std::map<std::thread::id, std::vector<std::unique_ptr<WString>>> lent_;
  int refusableCalls_ = 0;
  int refusedCall_ = 0;
  bool refuseLater_ = false;
};

// Format arguments for the record: a text in quotes (null without quotes); a text id, flags or display word
// as 0x and eight digits.
std::string Quoted(const WCHAR* text);
std::string Hex(std::uint32_t value);
