#pragma once

#include "core/infra/BusyPointer.h"
#include "core/infra/ScanPause.h"
#include "core/infra/Toolkit.h"

#include <QElapsedTimer>
#include <QScopedValueRollback>
#include <QString>

#include <memory>

class clsProject;

/// While it lives the project is busy: no load or save of it begins, nothing replaces it, and the scan of changes
/// waits. What can be seen of a long work is LongWork's; this holds around the questions between its pieces too.
class BusyMark {
 public:
  explicit BusyMark(clsProject& project);

 private:
  QScopedValueRollback<bool> busy_;
  ScanPause pause_;
};

/// A work that takes long, for as long as the object lives: the busy pointer, a progress window, input held back, and
/// the project marked busy. A question in its middle can be answered; what is told afterwards waits until it has
/// gone. They nest. Its captions are put into the language that is in force.
class LongWork {
 public:
  enum class Stop { Refused, Offered };

  /// Shows the first caption and yields once. Where a stop is offered and the progress window is shown, that has a
  /// Stop button and takes Escape.
  LongWork(clsProject& project, const QString& caption, bool showProgress, Stop stop = Stop::Refused);
  /// Yields once, while input is still held: what was typed into the work is gone with it.
  ~LongWork();
  LongWork(const LongWork&) = delete;
  LongWork& operator=(const LongWork&) = delete;

  /// Shows the caption and yields once.
  void setCaption(const QString& caption);
  /// The same with a number in its place, for a step of many; yields now and then.
  void setCaption(const QString& pattern, qint32 number);
  /// Shows the progress window if the work has taken longer than a moment by now. Whoever works calls it between two
  /// steps.
  void showIfLong();
  /// The user wants no more of it. Whoever works looks at this between two steps.
  bool stopWanted() const { return stopWanted_; }

 private:
  BusyMark busy_;
  QScopedValueRollback<LongWork*> current_;
  std::unique_ptr<InputHold> hold_;
  BusyPointer pointer_;
  bool stopWanted_ = false;
  std::unique_ptr<ProgressWindow> progress_;
  bool shown_;
  QElapsedTimer since_;
};
