#include "host/helper/helper_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <string>
#include <utility>

#include "host/system/native_path.h"

extern char** environ;

namespace QxHost {
namespace {

class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { Close(); }
  void Close() {
    if (number_ >= 0) close(std::exchange(number_, -1));
  }
  int Get() const { return number_; }
  bool IsOpen() const { return number_ >= 0; }

 private:
  int number_;
};

int MillisecondsTo(Deadline deadline) {
  using std::chrono::milliseconds;
  const auto left = std::chrono::ceil<milliseconds>(deadline - std::chrono::steady_clock::now()).count();
  return static_cast<int>(std::clamp<decltype(left)>(left, 0, 3600 * 1000));
}

// Waits until one of `events` occurs on the descriptor or its other end is closed. Returns false after the
// deadline.
bool WaitFor(int descriptor, short events, Deadline deadline) {
  pollfd waiting{descriptor, events, 0};
  for (;;) {
    const int ready = poll(&waiting, 1, MillisecondsTo(deadline));
    if (ready >= 0 || errno != EINTR) return ready > 0;
  }
}

class PosixHelper final : public HelperProcess {
 public:
  PosixHelper(pid_t process, Descriptor socket) : process_(process), socket_(std::move(socket)) {}
  PosixHelper(const PosixHelper&) = delete;
  PosixHelper& operator=(const PosixHelper&) = delete;
  ~PosixHelper() override {
    if (process_ != 0) Kill();
  }

  DWORD Write(std::string_view bytes, Deadline deadline) override {
    while (!bytes.empty()) {
      if (!WaitFor(socket_.Get(), POLLOUT, deadline)) return ERROR_TIMEOUT;
      const ssize_t done = send(socket_.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
      if (done >= 0) {
        bytes.remove_prefix(static_cast<std::size_t>(done));
      } else if (errno != EAGAIN && errno != EINTR) {
        return ERROR_BROKEN_PIPE;
      }
    }
    return ERROR_SUCCESS;
  }

  DWORD Read(char* buffer, std::size_t size, Deadline deadline) override {
    while (size > 0) {
      if (!WaitFor(socket_.Get(), POLLIN, deadline)) return ERROR_TIMEOUT;
      const ssize_t done = recv(socket_.Get(), buffer, size, MSG_DONTWAIT);
      if (done > 0) {
        buffer += done;
        size -= static_cast<std::size_t>(done);
      } else if (done == 0 || (errno != EAGAIN && errno != EINTR)) {
        return ERROR_BROKEN_PIPE;
      }
    }
    return ERROR_SUCCESS;
  }

  void End(Deadline deadline) override {
    socket_.Close();
    const Descriptor ended(static_cast<int>(syscall(SYS_pidfd_open, process_, 0)));
    const bool hasEnded = ended.IsOpen() && WaitFor(ended.Get(), POLLIN, deadline);
    hasEnded ? Reap() : Kill();
  }

 private:
  void Kill() {
    kill(process_, SIGKILL);
    Reap();
  }

  void Reap() {
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
    process_ = 0;
  }

  pid_t process_;
  Descriptor socket_;
};

}  // namespace

std::unique_ptr<HelperProcess> StartHelper(const HelperCommand& command) {
  int pair[2];
  // Uses a socket, not a pipe, because writing to a closed socket can return an error instead of raising a
  // signal.
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, pair) != 0) return nullptr;
  Descriptor ours(pair[0]);
  const Descriptor theirs(pair[1]);

  std::vector<std::string> texts{NativePath(command.program)};
  for (const WString& argument : command.arguments) texts.push_back(NativeBytes(argument));
  std::vector<char*> arguments;
  for (std::string& text : texts) arguments.push_back(text.data());
  arguments.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  if (posix_spawn_file_actions_init(&actions) != 0) return nullptr;
  pid_t process = 0;
  const bool started =
      posix_spawn_file_actions_adddup2(&actions, theirs.Get(), STDIN_FILENO) == 0 &&
      posix_spawn_file_actions_adddup2(&actions, theirs.Get(), STDOUT_FILENO) == 0 &&
      posix_spawn(&process, texts.front().c_str(), &actions, nullptr, arguments.data(), environ) == 0;
  posix_spawn_file_actions_destroy(&actions);
  return started ? std::make_unique<PosixHelper>(process, std::move(ours)) : nullptr;
}

WString OwnProgram() { return W("Z:\\proc\\self\\exe"); }

}  // namespace QxHost
