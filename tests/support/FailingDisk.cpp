#include "support/FailingDisk.h"

#ifdef Q_OS_UNIX
#include <csignal>
#include <exception>
#include <sys/resource.h>
#include <unistd.h>

FailingDisk::FailingDisk(qint64 bytesLeft) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  former_ = limit.rlim_cur;
  limit.rlim_cur = static_cast<rlim_t>(bytesLeft);
  active_ = setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

FailingDisk::~FailingDisk() {
  clear();
}

void FailingDisk::clear() {
  if (!active_) {
    return;
  }
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = static_cast<rlim_t>(former_);
  active_ = setrlimit(RLIMIT_FSIZE, &limit) != 0;
}

bool FailingDisk::available() {
  return true;
}

OrdinaryUser::OrdinaryUser() {
  constexpr uid_t kNobody = 65534;
  changed_ = geteuid() == 0 && seteuid(kNobody) == 0;
  limited_ = geteuid() != 0;
}

OrdinaryUser::~OrdinaryUser() {
  if (changed_ && seteuid(0) != 0) {
    std::terminate();
  }
}
#else
FailingDisk::FailingDisk(qint64) {}
FailingDisk::~FailingDisk() = default;
void FailingDisk::clear() {}
bool FailingDisk::available() {
  return false;
}
OrdinaryUser::OrdinaryUser() = default;
OrdinaryUser::~OrdinaryUser() = default;
#endif
