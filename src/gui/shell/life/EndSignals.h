#pragma once

#include <QObject>

#include <array>
#include <functional>

class QSocketNotifier;

/// Hears of the system's wish that the process end (SIGTERM, SIGHUP, SIGINT) and hands it on from the message loop,
/// where everything may be done. On systems without signals it hears nothing. One at a time.
class EndSignals : public QObject {
 public:
  explicit EndSignals(std::function<void()> end, QObject* parent = nullptr);
  ~EndSignals() override;

 private:
  std::function<void()> end_;
  std::array<int, 2> pipe_{-1, -1};
};
