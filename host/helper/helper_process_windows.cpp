#include "host/helper/helper_process.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include "platform/handles.h"

namespace QxHost {
namespace {

constexpr DWORD kPipeBytes = 65536;
constexpr DWORD kMaxPathChars = 32768;

DWORD MillisecondsTo(Deadline deadline) {
  using std::chrono::milliseconds;
  const auto left = std::chrono::ceil<milliseconds>(deadline - std::chrono::steady_clock::now()).count();
  return static_cast<DWORD>(std::clamp<decltype(left)>(left, 0, 3600 * 1000));
}

// Both ends of a duplex pipe. Ours is opened for overlapped calls, which can have a time limit; theirs is
// inherited.
struct PipeEnds {
  FileHandle ours;
  FileHandle theirs;
};

PipeEnds MakePipe() {
  static std::atomic<unsigned> count{0};
  const WString name = L"\\\\.\\pipe\\qxhost-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                       std::to_wstring(GetTickCount64()) + L"-" + std::to_wstring(++count);
  PipeEnds ends;
  ends.ours.Reset(CreateNamedPipeW(
      name.c_str(), PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
      PIPE_TYPE_BYTE | PIPE_READMODE_BYTE | PIPE_WAIT, 1, kPipeBytes, kPipeBytes, 0, nullptr));
  if (!ends.ours.IsOpen()) return ends;
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  ends.theirs.Reset(CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, &inherited, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  return ends;
}

WString CommandLineOf(const HelperCommand& command) {
  WString line = L"\"" + command.program + L"\"";
  for (const WString& argument : command.arguments) line += L" \"" + argument + L"\"";
  return line;
}

class WindowsHelper final : public HelperProcess {
 public:
  WindowsHelper(FileHandle process, FileHandle pipe)
      : process_(std::move(process)),
        pipe_(std::move(pipe)),
        done_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
  WindowsHelper(const WindowsHelper&) = delete;
  WindowsHelper& operator=(const WindowsHelper&) = delete;
  ~WindowsHelper() override {
    if (process_.IsOpen()) TerminateProcess(process_.Get(), 1);
  }

  DWORD Write(std::string_view bytes, Deadline deadline) override {
    return Transfer(bytes.size(), deadline, [&](std::size_t at, DWORD size, OVERLAPPED* overlapped) {
      return WriteFile(pipe_.Get(), bytes.data() + at, size, nullptr, overlapped);
    });
  }

  DWORD Read(char* buffer, std::size_t size, Deadline deadline) override {
    return Transfer(size, deadline, [&](std::size_t at, DWORD count, OVERLAPPED* overlapped) {
      return ReadFile(pipe_.Get(), buffer + at, count, nullptr, overlapped);
    });
  }

  void End(Deadline deadline) override {
    pipe_.Reset();
    if (WaitForSingleObject(process_.Get(), MillisecondsTo(deadline)) != WAIT_OBJECT_0) {
      TerminateProcess(process_.Get(), 1);
    }
    process_.Reset();
  }

 private:
  template <typename Call>
  DWORD Transfer(std::size_t size, Deadline deadline, Call call) {
    std::size_t at = 0;
    while (at < size) {
      OVERLAPPED overlapped{};
      overlapped.hEvent = done_.Get();
      const auto part = static_cast<DWORD>(std::min<std::size_t>(size - at, kPipeBytes));
      if (!call(at, part, &overlapped) && GetLastError() != ERROR_IO_PENDING) return ERROR_BROKEN_PIPE;
      const bool inTime = WaitForSingleObject(done_.Get(), MillisecondsTo(deadline)) == WAIT_OBJECT_0;
      if (!inTime) CancelIoEx(pipe_.Get(), &overlapped);
      // Waits for a cancelled call too, because it must not write to the buffer after this function has
      // returned.
      DWORD count = 0;
      const bool worked = GetOverlappedResult(pipe_.Get(), &overlapped, &count, TRUE) && count != 0;
      if (!inTime) return ERROR_TIMEOUT;
      if (!worked) return ERROR_BROKEN_PIPE;
      at += count;
    }
    return ERROR_SUCCESS;
  }

  FileHandle process_;
  FileHandle pipe_;
  FileHandle done_;
};

}  // namespace

std::unique_ptr<HelperProcess> StartHelper(const HelperCommand& command) {
  PipeEnds pipe = MakePipe();
  if (!pipe.theirs.IsOpen()) return nullptr;
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = pipe.theirs.Get();
  startup.hStdOutput = pipe.theirs.Get();
  startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION started{};
  WString line = CommandLineOf(command);
  if (!CreateProcessW(command.program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                      &startup, &started)) {
    return nullptr;
  }
  CloseHandle(started.hThread);
  return std::make_unique<WindowsHelper>(FileHandle(started.hProcess), std::move(pipe.ours));
}

WString OwnProgram() {
  WString path(kMaxPathChars, WCHAR());
  path.resize(GetModuleFileNameW(nullptr, path.data(), kMaxPathChars));
  return path;
}

}  // namespace QxHost
