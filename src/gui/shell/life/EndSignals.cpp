#include "gui/shell/life/EndSignals.h"

#include "gui/toolkit/GuardedSlot.h"

#include <QSocketNotifier>
#include <QtGlobal>

#include <utility>

#ifdef Q_OS_UNIX
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::array kSignals{SIGTERM, SIGHUP, SIGINT};

/// Where the handler writes; the only thing that it may do.
volatile std::sig_atomic_t wakeUp = -1;

void handle(int) {
  const char byte = 1;
  [[maybe_unused]] const ssize_t written = ::write(wakeUp, &byte, 1);
}

}  // namespace

EndSignals::EndSignals(std::function<void()> end, QObject* parent) : QObject(parent), end_(std::move(end)) {
  if (::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    return;
  }
  wakeUp = pipe_[1];
  auto* const heard = new QSocketNotifier(pipe_[0], QSocketNotifier::Read, this);
  connect(heard, &QSocketNotifier::activated, this, guarded("EndSignals", "EndSignals", [this, heard] {
            heard->setEnabled(false);
            end_();
          }));
  for (const int signal : kSignals) {
    std::signal(signal, handle);
  }
}

EndSignals::~EndSignals() {
  for (const int signal : kSignals) {
    std::signal(signal, SIG_DFL);
  }
  wakeUp = -1;
  for (const int end : pipe_) {
    if (end >= 0) {
      ::close(end);
    }
  }
}

#else

EndSignals::EndSignals(std::function<void()> end, QObject* parent) : QObject(parent), end_(std::move(end)) {}
EndSignals::~EndSignals() = default;

#endif
