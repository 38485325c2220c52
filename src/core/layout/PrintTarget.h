#pragma once

#include "core/layout/PrintedPage.h"
#include "core/layout/TextMeasure.h"

#include <QString>

/// Whoever waits for a long print. `step` is told of each piece, and throws the error of a cancelled print when the
/// user wants no more of it.
class PrintProgress {
 public:
  virtual ~PrintProgress() = default;
  /// A caption with a place for the number.
  virtual void step(const QString& pattern, qint32 number) = 0;
};

/// What pages are printed on.
class PrintTarget {
 public:
  virtual ~PrintTarget() = default;
  virtual const TextMeasure& measure() const = 0;
  /// Throws RuntimeError when it can't be printed; a file of the document's is then as it was.
  virtual void print(const PrintDocument& document, PrintProgress& progress) = 0;
};
