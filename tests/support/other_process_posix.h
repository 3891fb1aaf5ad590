// A second process that repeats the same work in parallel with the test. For tests of the native build only.
#pragma once

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

// Created by fork, so it starts with the memory of the test. It ends with this object.
class OtherProcess {
 public:
  explicit OtherProcess(const std::function<bool()>& work) {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return;
    process_ = fork();
    if (process_ == 0) {
      close(ends[0]);
      Serve(ends[1], work);
    }
    close(ends[1]);
    end_ = ends[0];
  }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;
  ~OtherProcess() {
    if (end_ >= 0) close(end_);
    if (process_ > 0) waitpid(process_, nullptr, 0);
  }

  // Makes the process do its work once. Returns without waiting for the end.
  void Begin() {
    const char mark = 1;
    isBegun_ = process_ > 0 && send(end_, &mark, 1, MSG_NOSIGNAL) == 1;
  }

  // Waits for the end of the work. Returns false if it failed or if the process has ended.
  bool Finish() {
    char result = 0;
    return isBegun_ && read(end_, &result, 1) == 1 && result != 0;
  }

 private:
  [[noreturn]] static void Serve(int end, const std::function<bool()>& work) {
    char mark = 0;
    while (read(end, &mark, 1) == 1) {
      const char result = work() ? 1 : 0;
      if (write(end, &result, 1) != 1) break;
    }
    _exit(0);
  }

  int end_ = -1;
  pid_t process_ = -1;
  bool isBegun_ = false;
};
