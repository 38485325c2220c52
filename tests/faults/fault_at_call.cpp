// Runs a program under our eyes and lets it die at any one of its system calls, or lets that call fail:
//
//   fault_at_call PROGRAM [ARGUMENT ...]
//
//   FAULT_AT      the call, from 1; none without it
//   FAULT_HOW     "kill": before the call is made; every call counts. Or the errno with which the call fails without
//                 being made; calls on files count alone
//   FAULT_COUNT   a file that gets the number of calls at the end
//
// Calls count from the program's first SIGUSR1 to itself until its next, and so on; it never gets to see that signal.
// Threads are followed. The exit status is the program's; it dies of SIGKILL with the program. Where the system lets
// nobody trace, it says so and ends with 77.
#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/personality.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kNotPermitted = 77;

const char* setting(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

[[noreturn]] void giveUp(const char* what) {
  std::printf("may not trace: %s: %s\n", what, std::strerror(errno));
  std::fflush(stdout);
  std::_Exit(kNotPermitted);
}

#ifdef __x86_64__
constexpr bool kCallsCanFail = true;

constexpr std::array kFileCalls{
    SYS_open,       SYS_openat,   SYS_creat,      SYS_close,   SYS_read,      SYS_pread64,   SYS_readv,
    SYS_write,      SYS_pwrite64, SYS_writev,     SYS_lseek,   SYS_stat,      SYS_lstat,     SYS_fstat,
    SYS_newfstatat, SYS_statx,    SYS_statfs,     SYS_fstatfs, SYS_access,    SYS_faccessat, SYS_faccessat2,
    SYS_rename,     SYS_renameat, SYS_renameat2,  SYS_link,    SYS_linkat,    SYS_unlink,    SYS_unlinkat,
    SYS_symlink,    SYS_readlink, SYS_readlinkat, SYS_mkdir,   SYS_mkdirat,   SYS_rmdir,     SYS_getdents64,
    SYS_chmod,      SYS_fchmod,   SYS_fchmodat,   SYS_fchown,  SYS_ftruncate, SYS_fallocate, SYS_fsync,
    SYS_fdatasync,  SYS_fcntl,    SYS_flock};

bool isFileCall(unsigned long long call) {
  return std::find(kFileCalls.begin(), kFileCalls.end(), static_cast<int>(call)) != kFileCalls.end();
}

void pokeRegister(pid_t thread, size_t offset, long value) {
  ::ptrace(PTRACE_POKEUSER, thread, offset, value);
}

/// The system finds no call of this number and makes none.
void suppressCall(pid_t thread) {
  pokeRegister(thread, offsetof(user, regs.orig_rax), -1);
}

void setResult(pid_t thread, long result) {
  pokeRegister(thread, offsetof(user, regs.rax), result);
}
#else
constexpr bool kCallsCanFail = false;
bool isFileCall(unsigned long long) {
  return false;
}
void suppressCall(pid_t) {}
void setResult(pid_t, long) {}
#endif

class Tracer {
 public:
  explicit Tracer(pid_t program) : program_(program) {}

  /// Until the program has ended; its wait status.
  int run();
  long calls() const { return calls_; }

 private:
  void atCall(pid_t thread);
  void enters(pid_t thread, unsigned long long call);
  void stopped(pid_t thread, int status);

  const long at_ = std::atol(setting("FAULT_AT"));
  const int failure_ = std::atoi(setting("FAULT_HOW"));
  const pid_t program_;
  bool counting_ = false;
  long calls_ = 0;
  /// The thread whose call is failing now.
  pid_t failing_ = 0;
};

void Tracer::enters(pid_t thread, unsigned long long call) {
  const bool counts = failure_ == 0 || isFileCall(call);
  if (!counts || ++calls_ != at_) {
    return;
  }
  if (failure_ == 0) {
    // A call that a thread is about to make is not made any more when this comes before it.
    ::kill(program_, SIGKILL);
    return;
  }
  suppressCall(thread);
  failing_ = thread;
}

void Tracer::atCall(pid_t thread) {
  __ptrace_syscall_info info{};
  if (::ptrace(PTRACE_GET_SYSCALL_INFO, thread, sizeof info, &info) < 0) {
    return;
  }
  if (info.op == PTRACE_SYSCALL_INFO_ENTRY && counting_) {
    enters(thread, info.entry.nr);
  } else if (info.op == PTRACE_SYSCALL_INFO_EXIT && failing_ == thread) {
    setResult(thread, -failure_);
    failing_ = 0;
  }
}

void Tracer::stopped(pid_t thread, int status) {
  constexpr int kCall = SIGTRAP | 0x80;
  const int signal = WSTOPSIG(status);
  const bool isEvent = status >> 16 != 0;
  int deliver = 0;
  if (signal == kCall) {
    atCall(thread);
  } else if (signal == SIGUSR1) {
    counting_ = !counting_;
  } else if (!isEvent && signal != SIGSTOP) {
    deliver = signal;
  }
  ::ptrace(counting_ ? PTRACE_SYSCALL : PTRACE_CONT, thread, nullptr, deliver);
}

int Tracer::run() {
  for (;;) {
    int status = 0;
    const pid_t thread = ::waitpid(-1, &status, __WALL);
    if (thread < 0) {
      giveUp("waitpid");
    }
    if (WIFSTOPPED(status)) {
      stopped(thread, status);
    } else if (thread == program_) {
      return status;
    }
  }
}

[[noreturn]] void become(char** program) {
  // The same calls each time: what lies where in memory must not vary.
  ::personality(ADDR_NO_RANDOMIZE);
  ::setenv("QT_HASH_SEED", "0", 1);
  if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
    giveUp("PTRACE_TRACEME");
  }
  ::raise(SIGSTOP);
  ::execv(program[0], program);
  giveUp(program[0]);
}

void tell(long calls) {
  if (std::FILE* const file = std::fopen(setting("FAULT_COUNT"), "w"); file != nullptr) {
    std::fprintf(file, "%ld\n", calls);
    std::fclose(file);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::puts("fault_at_call PROGRAM [ARGUMENT ...]");
    return 2;
  }
  if (!kCallsCanFail && std::atoi(setting("FAULT_HOW")) != 0) {
    errno = ENOSYS;
    giveUp("failing calls on this processor");
  }
  const pid_t program = ::fork();
  if (program == 0) {
    become(argv + 1);
  }
  int status = 0;
  if (program < 0 || ::waitpid(program, &status, 0) != program) {
    giveUp("fork");
  }
  if (!WIFSTOPPED(status)) {
    return WEXITSTATUS(status);
  }
  constexpr long kOptions =
      PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL | PTRACE_O_TRACECLONE | PTRACE_O_TRACEFORK | PTRACE_O_TRACEEXEC;
  if (::ptrace(PTRACE_SETOPTIONS, program, nullptr, kOptions) != 0 ||
      ::ptrace(PTRACE_CONT, program, nullptr, nullptr) != 0) {
    const int failure = errno;
    ::kill(program, SIGKILL);
    errno = failure;
    giveUp("PTRACE_SETOPTIONS");
  }
  Tracer tracer(program);
  status = tracer.run();
  tell(tracer.calls());
  if (WIFSIGNALED(status)) {
    ::signal(WTERMSIG(status), SIG_DFL);
    ::raise(WTERMSIG(status));
  }
  return WEXITSTATUS(status);
}
