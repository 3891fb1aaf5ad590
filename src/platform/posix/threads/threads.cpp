// CreateThread, events and waits.

#include <chrono>
#include <system_error>
#include <thread>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/threads/message_queue.h"
#include "platform/posix/threads/waitable.h"
#include "platform/posix/windows_functions.h"

namespace Platform {

void Waitable::Set() {
  const std::lock_guard lock(mutex_);
  isSet_ = true;
  if (resetsItself_)
    changed_.notify_one();
  else
    changed_.notify_all();
}

void Waitable::Reset() {
  const std::lock_guard lock(mutex_);
  isSet_ = false;
}

bool Waitable::Wait(DWORD milliseconds) {
  std::unique_lock lock(mutex_);
  const auto isSet = [this] { return isSet_; };
  if (milliseconds == INFINITE)
    changed_.wait(lock, isSet);
  else if (!changed_.wait_for(lock, std::chrono::milliseconds(milliseconds), isSet))
    return false;
  if (resetsItself_) isSet_ = false;
  return true;
}

}  // namespace Platform

namespace {

using Platform::FailWith;
using Platform::Waitable;
using Platform::Waitables;

}  // namespace

HANDLE CreateThread(SECURITY_ATTRIBUTES*, std::size_t, LPTHREAD_START_ROUTINE start, LPVOID parameter,
                    DWORD flags, DWORD* number) {
  if (Platform::FaultFires("CreateThread", flags)) return nullptr;
  const auto end = std::make_shared<Waitable>(false, false);
  if ((flags & CREATE_SUSPENDED) != 0) end->gate = std::make_shared<Waitable>(false, false);
  const HANDLE handle = Waitables::Instance().Add(end);
  const DWORD ownNumber = Platform::NewThreadNumber();
  if (number) *number = ownNumber;
  try {
    std::thread([start, parameter, end, ownNumber] {
      Platform::SetThreadNumber(ownNumber);
      if (end->gate) end->gate->Wait(INFINITE);
      start(parameter);
      Platform::EndMessageQueue();
      end->Set();
    }).detach();
  } catch (const std::system_error&) {
    Waitables::Instance().Remove(handle);
    FailWith(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
  }
  return handle;
}

DWORD ResumeThread(HANDLE thread) {
  constexpr DWORD kFailed = 0xFFFFFFFF;
  if (Platform::FaultFires("ResumeThread")) return kFailed;
  const auto end = Waitables::Instance().Find(thread);
  if (!end) {
    FailWith(ERROR_INVALID_HANDLE);
    return kFailed;
  }
  if (!end->gate || end->gate->Wait(0)) return 0;  // the thread is not suspended
  end->gate->Set();
  return 1;
}

HANDLE CreateEventW(SECURITY_ATTRIBUTES*, BOOL manualReset, BOOL isSet, const WCHAR*) {
  if (Platform::FaultFires("CreateEventW")) return nullptr;
  return Waitables::Instance().Add(std::make_shared<Waitable>(manualReset == FALSE, isSet != FALSE));
}

BOOL SetEvent(HANDLE event) {
  if (Platform::FaultFires("SetEvent")) return FALSE;
  const auto found = Waitables::Instance().Find(event);
  if (!found) return FailWith(ERROR_INVALID_HANDLE);
  found->Set();
  return TRUE;
}

BOOL ResetEvent(HANDLE event) {
  if (Platform::FaultFires("ResetEvent")) return FALSE;
  const auto found = Waitables::Instance().Find(event);
  if (!found) return FailWith(ERROR_INVALID_HANDLE);
  found->Reset();
  return TRUE;
}

DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds) {
  if (Platform::FaultFires("WaitForSingleObject")) return WAIT_FAILED;
  const auto found = Waitables::Instance().Find(object);
  if (!found) {
    FailWith(ERROR_INVALID_HANDLE);
    return WAIT_FAILED;
  }
  return found->Wait(milliseconds) ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}

void Sleep(DWORD milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }

BOOL SwitchToThread() {
  if (Platform::FaultFires("SwitchToThread")) return FALSE;
  std::this_thread::yield();
  return TRUE;
}
