#pragma once

#include "core/infra/clsHashTable.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <utility>
#include <vector>

/// Follows change tables for one area: at each interval it takes the flag off every record that has changed there and
/// hands its ID on. Nothing happens while a ScanPause lives: what has changed meanwhile waits. A handler that fails is
/// logged under the names that are given here and costs its own ID only.
class ChangePoller : public QObject {
 public:
  using Handler = std::function<void(qint32 id)>;

  /// Names of routine and module as they stand in the log; plain literals. The timer bears the routine's name up to
  /// its underscore.
  ChangePoller(const char* routine, const char* module, ChangeArea area, QObject* parent = nullptr);

  /// One more table to follow, behind the others; before the first poll. It must outlive the poller.
  void follow(clsHashTable& table, Handler handler);
  /// What happens behind each poll, once, however much had changed, and when nothing had.
  void setAfterPoll(std::function<void(bool anyChange)> afterPoll) { afterPoll_ = std::move(afterPoll); }

  /// Polls at this interval from now on.
  void start(std::chrono::milliseconds interval) { timer_.start(interval); }
  void stop() { timer_.stop(); }
  bool isRunning() const { return timer_.isActive(); }
  /// Polls now. A poll within a poll does nothing: the outer one comes to what is new.
  void poll();

 private:
  struct Followed {
    clsHashTable* table;
    Handler handler;
  };

  bool pollTable(const Followed& followed) const;

  const char* routine_;
  const char* module_;
  ChangeArea area_;
  std::vector<Followed> followed_;
  std::function<void(bool)> afterPoll_;
  QTimer timer_;
  bool polling_ = false;
};
