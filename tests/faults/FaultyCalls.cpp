// A library that is loaded before all others into a process that saves a book. It counts the calls by which the process
// changes files below a folder, and lets the process die, or a call fail, at one of them:
//
//   FAULT_BELOW   the folder; calls elsewhere are left alone and not counted
//   FAULT_AT      the call, from 1; none without it
//   FAULT_HOW     "kill", or the errno with which that one call fails
//   FAULT_COUNT   a file that gets the number of calls at the end of the process
//
// Calls count from the process' first SIGUSR1 to itself until its next, and so on; the signal itself is kept back.
// fault_at_call does the same from outside for every call of the system; here half of what is written has reached the
// file when the process dies in the middle of it.
#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr size_t kDescriptors = 1024;

std::array<std::atomic<bool>, kDescriptors> watched{};
std::atomic<long> calls{0};
std::atomic<bool> counting{false};

const char* setting(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

bool isBelow(const char* path) {
  static const char* const folder = setting("FAULT_BELOW");
  return path != nullptr && *folder != '\0' && std::strncmp(path, folder, std::strlen(folder)) == 0;
}

bool isWatched(int fd) {
  return fd >= 0 && static_cast<size_t>(fd) < kDescriptors && watched[static_cast<size_t>(fd)];
}

void watch(int fd, bool on) {
  if (fd >= 0 && static_cast<size_t>(fd) < kDescriptors) {
    watched[static_cast<size_t>(fd)] = on;
  }
}

/// True when this call is to fail; errno is set then.
bool strikes() {
  static const long at = std::atol(setting("FAULT_AT"));
  static const char* const how = setting("FAULT_HOW");
  if (!counting || ++calls != at) {
    return false;
  }
  if (std::strcmp(how, "kill") == 0) {
    ::raise(SIGKILL);
  }
  errno = std::atoi(how);
  return true;
}

/// The routine of the C library that ours stands before.
template <class Routine>
Routine real(const char* name) {
  return reinterpret_cast<Routine>(::dlsym(RTLD_NEXT, name));
}

bool changes(int flags) {
  return (flags & (O_WRONLY | O_RDWR | O_CREAT | O_TRUNC)) != 0;
}

int opened(int fd, bool below) {
  watch(fd, below);
  return fd;
}

struct TellsCount {
  ~TellsCount() {
    const char* const file = setting("FAULT_COUNT");
    if (*file == '\0') {
      return;
    }
    std::array<char, 32> text{};
    const int length = std::snprintf(text.data(), text.size(), "%ld\n", calls.load());
    const auto fd = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, file, O_WRONLY | O_CREAT | O_TRUNC, 0666));
    ::syscall(SYS_write, fd, text.data(), length);
    ::syscall(SYS_close, fd);
  }
} tellsCount;

int openBelow(const char* path, int flags, mode_t mode) {
  const bool below = isBelow(path) && changes(flags);
  if (below && strikes()) {
    return -1;
  }
  return opened(real<int (*)(const char*, int, mode_t)>("open")(path, flags, mode), below);
}

int openAtBelow(int folder, const char* path, int flags, mode_t mode) {
  const bool below = isBelow(path) && changes(flags);
  if (below && strikes()) {
    return -1;
  }
  return opened(real<int (*)(int, const char*, int, mode_t)>("openat")(folder, path, flags, mode), below);
}

mode_t modeOf(int flags, va_list rest) {
  return (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
}

/// A call on a path that is watched fails, or is made.
template <class Call>
auto onPath(const char* path, Call call) -> decltype(call()) {
  return isBelow(path) && strikes() ? static_cast<decltype(call())>(-1) : call();
}

template <class Call>
auto onDescriptor(int fd, Call call) -> decltype(call()) {
  return isWatched(fd) && strikes() ? static_cast<decltype(call())>(-1) : call();
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = modeOf(flags, rest);
  va_end(rest);
  return openBelow(path, flags, mode);
}

// With offsets of 64 bits they are the same calls.
int open64(const char* path, int flags, ...) __attribute__((alias("open")));

int openat(int folder, const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = modeOf(flags, rest);
  va_end(rest);
  return openAtBelow(folder, path, flags, mode);
}

int openat64(int folder, const char* path, int flags, ...) __attribute__((alias("openat")));

ssize_t write(int fd, const void* bytes, size_t size) {
  const auto call = real<ssize_t (*)(int, const void*, size_t)>("write");
  if (isWatched(fd) && size > 1 && std::strcmp(setting("FAULT_HOW"), "kill") == 0) {
    // Half of it may have reached the file when the process dies.
    const size_t half = size / 2;
    const ssize_t first = call(fd, bytes, half);
    if (first != static_cast<ssize_t>(half)) {
      return first;
    }
    strikes();
    const ssize_t second = call(fd, static_cast<const char*>(bytes) + half, size - half);
    return second < 0 ? first : first + second;
  }
  return onDescriptor(fd, [&] { return call(fd, bytes, size); });
}

int fsync(int fd) {
  return onDescriptor(fd, [&] { return real<int (*)(int)>("fsync")(fd); });
}

int fdatasync(int fd) {
  return onDescriptor(fd, [&] { return real<int (*)(int)>("fdatasync")(fd); });
}

int close(int fd) {
  const bool counts = isWatched(fd) && strikes();
  const int failure = errno;
  watch(fd, false);
  const int result = real<int (*)(int)>("close")(fd);
  if (counts) {
    errno = failure;
    return -1;
  }
  return result;
}

int fchmod(int fd, mode_t mode) {
  return onDescriptor(fd, [&] { return real<int (*)(int, mode_t)>("fchmod")(fd, mode); });
}

int fchown(int fd, uid_t owner, gid_t group) {
  return onDescriptor(fd, [&] { return real<int (*)(int, uid_t, gid_t)>("fchown")(fd, owner, group); });
}

int rename(const char* from, const char* to) {
  return onPath(to, [&] { return real<int (*)(const char*, const char*)>("rename")(from, to); });
}

int unlink(const char* path) {
  return onPath(path, [&] { return real<int (*)(const char*)>("unlink")(path); });
}

int remove(const char* path) {
  return onPath(path, [&] { return real<int (*)(const char*)>("remove")(path); });
}

int mkdir(const char* path, mode_t mode) {
  return onPath(path, [&] { return real<int (*)(const char*, mode_t)>("mkdir")(path, mode); });
}

int kill(pid_t process, int signal) {
  if (signal == SIGUSR1 && process == ::getpid()) {
    counting = !counting;
    return 0;
  }
  return real<int (*)(pid_t, int)>("kill")(process, signal);
}

int rmdir(const char* path) {
  return onPath(path, [&] { return real<int (*)(const char*)>("rmdir")(path); });
}
}
