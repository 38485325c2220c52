#pragma once

#include "core/infra/DateEntry.h"

#include <QString>

#include <functional>

/// Asks the user for a date, modally. Dates are day numbers, 0 is none.
class cSharedGetDate {
 public:
  /// Runs a window over the entry until it is closed; the entry then holds the result, or none.
  using Window = std::function<void(DateEntry& entry, const QString& caption)>;
  /// Installed once by whoever can draw; without one every question is cancelled.
  static void installWindow(Window window);

  /// 0 when the user cancels. No start is today; no prompt names the order of the fields.
  qint32 GetDate(const QString& prompt = {}, qint32 start = 0) const;
  /// Asks until the date lies in the limit's month and not behind the limit.
  qint32 GetDateUpTo(const QString& prompt, qint32 limit) const;
};
